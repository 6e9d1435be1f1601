#pragma once

#include <string>

/// Returns the value at a place such as "/imports/0/outcome" of a JSON text: a text as it is,
/// anything else as JSON without blanks. Throws std::exception when the text is not JSON or has no
/// such place. Here because the library that reads JSON takes long to compile.
[[nodiscard]] std::string JsonAt(const std::string& json, const std::string& place);

/// Returns how many entries the list at a place has. Throws as JsonAt does.
[[nodiscard]] std::size_t JsonCount(const std::string& json, const std::string& place);
