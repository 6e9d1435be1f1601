#pragma once

#include "console_host/app/document.h"
#include "console_host/program/text_output.h"

/// How many rows of a list are shown.
constexpr int ShownRows = 20;

/// "1 mesh", "1,200 meshes".
std::string Counted(std::size_t count, const char* one, const char* many);

/// The count in groups of three digits.
std::string Number(std::size_t count);

/// Says how many of a list are left out, when any are.
void WriteLeftOut(TextOutput& output, std::size_t count);

/// A table for each kind of object that the document holds: name, layer, groups, material, size.
void WriteObjectTables(TextOutput& output, const ConsoleDoc& doc);
