#pragma once

#include "console_host/app/document.h"
#include "objimport/text_output.h"

/// How many rows of a list are shown.
constexpr int ShownRows = 20;

/// "1 mesh", "1,200 meshes".
std::string Counted(std::size_t count, const char* one, const char* many);

/// The count in groups of three digits.
std::string Number(std::size_t count);

/// The texts of the first few elements of a list, and how many more there are; "-" for none.
template <class List, class ToText>
std::string FirstFew(const List& list, ToText toText)
{
    constexpr std::size_t Shown = 3;
    std::string text;
    std::size_t count = 0;
    for (const auto& element : list)
        if (++count <= Shown)
            text.append(count > 1 ? ", " : "").append(toText(element));
    if (count > Shown)
        text.append(" + ").append(Number(count - Shown));
    return text.empty() ? "-" : text;
}

/// Says how many of a list are left out, when any are.
void WriteLeftOut(TextOutput& output, std::size_t count);

/// Returns how many objects of each kind there are, and how large the meshes are in all.
std::string Totals(const ConsoleDoc& doc);

/// A table for each kind of object that the document holds: name, layer, groups, material, size.
void WriteObjectTables(TextOutput& output, const ConsoleDoc& doc);
