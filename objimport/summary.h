#pragma once

#include "console_host/app/document.h"
#include "objimport/page.h"

/// Writes what a document holds, for a person to read: how much and how large it is, its objects,
/// materials, textures, layers and groups. Long lists are cut, with a note of how much is left out,
/// unless the page shows all.
void WriteSummary(const Page& page, ConsoleDoc& doc);
