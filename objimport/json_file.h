#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"

#include <span>
#include <string>

/// Throws ProgramError, before anything is imported, when nothing can be written to the file that
/// is to receive the JSON ("-": standard output).
void CheckJsonFile(const std::string& name);

/// Writes the document as JSON; an existing file is replaced when the new one is whole. Throws
/// ProgramError when it cannot be written, or when the file is one that the import has read.
void WriteJsonFile(const std::string& name, std::span<const ImportRecord> imports,
                   const ConsoleDoc& doc);
