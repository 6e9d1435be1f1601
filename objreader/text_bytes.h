#pragma once

/// LF, CR or a zero byte: what ends a physical line.
constexpr bool IsLineEnd(char byte)
{
    return byte == '\n' || byte == '\r' || byte == '\0';
}

/// Returns where the physical line after this one begins, or `end` when there is none. CR LF is one
/// line end. A byte can be read at `end`.
inline const char* AfterLine(const char* text, const char* end)
{
    while (text != end && !IsLineEnd(*text))
        ++text;
    if (text == end)
        return end;
    return text + (*text == '\r' && text[1] == '\n' ? 2 : 1);
}
