#pragma once

#include <cstdio>
#include <functional>

/// Whether a person sits at the other end of the stream.
bool IsTerminal(std::FILE* stream);

/// Gives the next byte of a text in UTF-8, or EOF.
using ByteReader = std::function<int()>;

/// Reads a stream byte by byte; a terminal's text becomes UTF-8 whatever encoding it has. The
/// stream stays the caller's and must live as long as the reader.
ByteReader MakeByteReader(std::FILE* stream);
