#pragma once

#include "objimport/text_output.h"

#include <string_view>

/// Writes a text in UTF-8 as a JSON string. Bytes that are no UTF-8 become U+FFFD, one for each
/// beginning of a character that is not finished.
void WriteJsonText(TextOutput& output, std::string_view text);
