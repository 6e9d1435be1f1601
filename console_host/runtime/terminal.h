#pragma once

#include <cstdio>
#include <functional>
#include <string_view>

/// Whether a person sits at the other end of the stream.
bool IsTerminal(std::FILE* stream);

/// Returns the next byte of a text in UTF-8, or EOF.
using NextByte = std::function<int()>;

/// Reads a stream byte by byte; a terminal's text becomes UTF-8 whatever encoding it has. The
/// stream stays the caller's and must live as long as the result.
NextByte ReadUtf8(std::FILE* stream);

/// Writes whole characters of UTF-8 to a stream; a console receives them whatever its code page is.
/// False when they could not be written, with errno set.
bool WriteUtf8(std::FILE* stream, std::string_view utf8);
