#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"

#include <functional>
#include <string>

class TextOutput;

/// A document with one object of each kind.
void FillSampleDocument(ConsoleDoc& doc);

/// Returns an import with something in each list of its journal.
ImportRecord SampleImport();

/// Returns the text that something writes.
std::string Written(const std::function<void(TextOutput&)>& write);
