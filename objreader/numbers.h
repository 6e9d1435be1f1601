#pragma once

#include "objreader/digits.h"

/// Numbers as they stand in tokens. Each operation takes the longest leading part of the token that
/// forms a number and takes no notice of the rest. The text must end with a zero byte, behind which
/// CObjLineTokenizer::Padding bytes can be read, as those of the tokenizer do.

/// Reads a real by the rules of `strtod` in the "C" locale, correctly rounded: decimal and
/// hexadecimal numbers, infinity and nan. Too large a number gives an infinity, too small a one 0.
/// False, and `value` unchanged, when no leading part forms a number. The text begins with no
/// blank.
bool ReadReal(const char* text, double& value);

/// Reads a decimal integer by the rules of `strtol`, kept within 32 bits. False, and `value`
/// unchanged, when no leading part forms a number.
bool ReadInteger(const char* text, int& value);

/// Reads a decimal integer by the rules of `atoi`, kept within 32 bits: without digits it is 0.
/// Steps `text` behind the digits.
int TakeInteger(const char*& text);

/// As TakeInteger, for the many integers that are digits only, and few of them.
inline int TakePlainInteger(const char*& text)
{
    const DigitRun run = ReadDigits(text);
    if (run.count == 0 || run.count == 8)
        return TakeInteger(text);
    text += run.count;
    return static_cast<int>(run.value);
}
