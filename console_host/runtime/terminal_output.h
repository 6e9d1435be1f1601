#pragma once

#include <cstdio>
#include <string_view>

/// Writes whole characters of UTF-8 to a stream; a console receives them whatever its code page is.
/// False when they could not be written, with errno set.
bool WriteUtf8(std::FILE* stream, std::string_view utf8);
