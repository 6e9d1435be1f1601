#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Whether a character could steer a terminal or disguise text: a control character, or a mark that
/// turns the direction of writing.
[[nodiscard]] bool IsSteering(char32_t code);

/// The text with an escape (\x1B, \u202E) for every steering character but line ends and
/// tabs, and for bytes that are no UTF-8.
std::string Printable(std::string_view utf8);

/// The same for a text that has to stay on one line: line ends and tabs become escapes, too.
std::string PrintableLine(std::string_view utf8);

/// Writes a text for a person, printable, and hides the note that work is going on. False when it
/// could not be written; a stream remembers that as well.
bool WriteForPerson(std::FILE* stream, std::string_view utf8);
