#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"
#include "objimport/page.h"

#include <string>
#include <vector>

/// Returns how an import went, in the user's language.
std::string OutcomeText(const ImportRecord& import);

/// Returns the materials that a file wants and the document lacks, in the order of their names.
std::vector<std::string> UndefinedMaterials(const ImportRecord& import, const ConsoleDoc& doc);

/// Returns how many faces of a file did not become part of a mesh in the document.
std::size_t MissingFaces(const ImportRecord& import, const ConsoleDoc& doc);

/// Writes how the import of a file went, what it added, and what it lost.
void WriteFileReport(const Page& page, const ImportRecord& import, const ConsoleDoc& doc);
