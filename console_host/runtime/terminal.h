#pragma once

#include <cstdio>
#include <functional>
#include <string_view>

/// Returns whether the stream is a terminal, with a person at its other end.
bool IsTerminal(std::FILE* stream);

/// Returns how many columns the terminal has that a stream goes to; 0 when it is none, or when it
/// does not say.
int TerminalWidth(std::FILE* stream);

/// Prepares the terminal that a stream goes to for colours; returns whether it shows them. False
/// when it is no terminal, and when the environment has NO_COLOR.
bool ShowsColours(std::FILE* stream);

/// Writes to standard error past all buffers. May be called from a signal handler.
void WriteErrorsAtOnce(std::string_view utf8) noexcept;

/// Returns the next byte of a text in UTF-8, or EOF.
using NextByte = std::function<int()>;

/// Returns a reader of a stream, byte by byte; a terminal's text becomes UTF-8 whatever encoding it
/// has. The stream stays the caller's and must live as long as the result.
NextByte ReadUtf8(std::FILE* stream);

/// Writes whole characters of UTF-8 to a stream; a console shows them whatever its code page is.
/// Returns false, with errno set, when they could not be written.
bool WriteUtf8(std::FILE* stream, std::string_view utf8);
