#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Returns whether '*' or '?' stands in a name.
bool IsPattern(std::string_view name);

/// Returns whether a name matches a pattern, in which '*' stands for any characters and '?' for
/// one. Both are UTF-8. Takes time in proportion to the product of both lengths at most.
bool MatchesPattern(std::string_view name, std::string_view pattern, bool ignoreCase);

/// Returns the files whose names match a pattern, sorted by name; only the last part of the path
/// may be a pattern. Hidden names (".x") match only a pattern that begins with '.'. On Windows
/// letters match in either case.
std::vector<std::string> FilesOfPattern(const std::string& pattern);
