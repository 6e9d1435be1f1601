#pragma once

#include "console_host/app/document.h"
#include "objimport/page.h"

/// Writes a table for each kind of object that the document holds: name, layer, groups, material,
/// size. Columns that say nothing are left out.
void WriteObjectTables(const Page& page, const ConsoleDoc& doc);

/// Writes how many objects of each kind there are, how large the meshes are in all, and the
/// smallest and largest corner of the whole.
void WriteTotals(const Page& page, ConsoleDoc& doc);
