#pragma once

#include <cstdio>
#include <string>

/// Returns a document, read in its JSON form from a stream, as short text that a person can read
/// and compare. What is as in a fresh document is left out. Throws std::exception when it is not
/// JSON.
[[nodiscard]] std::string Report(std::FILE* document);
