#pragma once

#include "console_host/app/document.h"
#include "objimport/import_record.h"
#include "objimport/text_output.h"

#include <span>

/// Writes the imports and the document that they made as JSON.
void WriteDocumentJson(TextOutput& output, std::span<const ImportRecord> imports,
                       const ConsoleDoc& doc);
