#pragma once

#include <cstdarg>
#include <string>
#include <string_view>
#include <vector>

/// Formats as the wide printf of the product's platform does, on every platform: "%s" and "%c" take
/// wide text, "%S" and "%C" 8-bit text (UTF-8), integers and floating-point numbers are as usual. A
/// null string becomes "(null)". From a placeholder that is not valid on, the rest of the format is
/// copied as it is, since nobody knows which arguments it would take. Widths and precisions above
/// 10,000 count as 10,000.
std::wstring FormatText(const wchar_t* format, std::va_list arguments);

/// Returns what a format asks for: each placeholder's length and conversion ("lld", "S"), a "*"
/// before it for each width or precision that is an argument, in order. "%%" asks for nothing. A
/// placeholder that is not valid becomes "?", the last one.
std::vector<std::wstring> Placeholders(std::wstring_view format);
