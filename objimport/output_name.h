#pragma once

#include <string>

/// Returns whether "{name}" or "{folder}" stands in the path of an output.
bool HasPlaceholders(const std::string& path);

/// Returns the first word in braces in the path of an output that is neither; empty when there is
/// none.
std::string UnknownPlaceholder(const std::string& path);

/// Returns the path of an input's output: "{name}" becomes the input's name without its ending
/// ("stdin" for "-"), "{folder}" its folder.
std::string OutputName(const std::string& path, const std::string& input);
