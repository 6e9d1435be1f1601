#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Returns how many physical lines a text of the tokenizer's raw lines holds.
std::size_t CountRawLines(std::string_view raw);

/// Returns what stands in a logical line after its keyword: without blanks at both ends, with a
/// space for each joint of physical lines. Comment lines at joints are left out.
std::string RawRest(std::string_view raw);

/// Returns a text without blanks at both ends, and with one space for each run of blanks.
std::string WithSingleSpaces(std::string_view text);

/// Returns a text without blanks at both ends.
std::string_view Trimmed(std::string_view text);
