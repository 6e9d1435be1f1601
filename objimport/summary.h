#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"
#include "objimport/text_output.h"

#include <span>

/// Writes what the imports brought and what the document holds, for a person to read. Long lists
/// are cut, with a note of how many are left out.
void WriteSummary(TextOutput& output, std::span<const ImportRecord> imports, const ConsoleDoc& doc);
