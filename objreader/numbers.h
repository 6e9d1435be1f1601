#pragma once

#include "objreader/digits.h"

/// Numbers as they stand in tokens. Each operation takes the longest leading part of the token that
/// forms a number and takes no notice of the rest. The text must end with a zero byte, behind which
/// CObjLineTokenizer::Padding bytes can be read, as those of the tokenizer do.

/// Reads a real by the rules of `strtod` in the "C" locale, correctly rounded: decimal and
/// hexadecimal numbers, infinity and nan. Too large a number gives an infinity, too small a one 0.
/// False, and `value` unchanged, when no leading part forms a number. The text begins with no
/// blank.
[[gnu::always_inline]] inline bool ReadReal(const char* text, double& value);

/// As ReadReal, for the few that are not plain.
bool ReadAnyReal(const char* text, double& value);

/// Reads a decimal integer by the rules of `strtol`, kept within 32 bits. False, and `value`
/// unchanged, when no leading part forms a number.
bool ReadInteger(const char* text, int& value);

/// Reads a decimal integer by the rules of `atoi`, kept within 32 bits: without digits it is 0.
/// Steps `text` behind the digits.
int TakeInteger(const char*& text);

/// As ReadReal, for what most reals are: a sign or none, digits, a point, digits, eight in all at
/// most, and nothing more. False for all others.
[[gnu::always_inline]] inline bool ReadPlainReal(const char* text, double& value)
{
    static constexpr std::array<std::array<double, 8>, 2> Scales{
        {{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7},
         {-1e0, -1e1, -1e2, -1e3, -1e4, -1e5, -1e6, -1e7}}};

    const bool negative = *text == '-';
    text += static_cast<int>(negative || *text == '+');
    const std::uint64_t bytes = LoadDigits(text);
    const std::size_t wholeBits = DigitBits(bytes);
    if (wholeBits == 0 || wholeBits == 64 || text[wholeBits / 8] != '.')
        return false;
    // The digits on both sides of the point are read as one run, as if the point were not there.
    const std::uint64_t bytesBehind = LoadDigits(text + 1);
    const std::uint64_t behindPoint = ~std::uint64_t{0} << wholeBits;
    const std::uint64_t digits = bytes ^ ((bytes ^ bytesBehind) & behindPoint);
    const std::size_t digitBits = DigitBits(digits);
    if (text[1 + digitBits / 8] != '\0')
        return false;
    // Both are exact, so the quotient is rounded once and thus correctly. Half of all coordinates
    // are negative, so the sign is no place for a branch.
    value = static_cast<double>(DigitsValue(digits, digitBits)) /
            Scales[negative ? 1 : 0][(digitBits - wholeBits) / 8];
    return true;
}

inline bool ReadReal(const char* text, double& value)
{
    return ReadPlainReal(text, value) || ReadAnyReal(text, value);
}
