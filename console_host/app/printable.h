#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Returns whether a character could control a terminal or disguise text: a control character, or a
/// mark that changes the direction of writing.
[[nodiscard]] bool IsSteering(char32_t code);

/// Returns the text with an escape (\x1B, \u202E) for every such character except line ends and
/// tabs, and for bytes that are not UTF-8.
std::string Printable(std::string_view utf8);

/// Returns the same for a text that has to stay on one line: line ends and tabs become escapes too.
std::string PrintableLine(std::string_view utf8);

/// Writes a text for a person, made printable, and hides the note that work is going on. Returns
/// false when it could not be written, which the stream's error state says as well.
bool WriteForPerson(std::FILE* stream, std::string_view utf8);
