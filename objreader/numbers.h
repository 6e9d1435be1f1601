#pragma once

#include "objreader/digits.h"

/// Numbers as they stand in a text. Each operation takes the longest leading part of the text that
/// forms a number and ignores the rest. The text must end with a byte that can stand in
/// no number, a zero byte for one, after which CObjLineTokenizer::Padding bytes can be read: so do
/// tokens and lines of the tokenizer.

/// A blank or control byte, which is in no number and no token.
constexpr bool EndsNumber(char byte)
{
    return static_cast<unsigned char>(byte) <= ' ';
}

/// Steps over spaces. False when a control byte follows, as every line end is one.
inline bool SkipSpaces(const char*& text)
{
    while (*text == ' ')
        ++text;
    return !EndsNumber(*text);
}

/// Reads a real by the rules of `strtod` in the "C" locale, correctly rounded: decimal and
/// hexadecimal numbers, infinity and nan. Too large a number becomes an infinity, too small a one
/// 0. Steps `text` past what it took. False, and `text` and `value` unchanged, when no leading part
/// forms a number. The text begins with no blank.
[[gnu::always_inline]] inline bool TakeReal(const char*& text, double& value);

/// As TakeReal, for the few that are not plain.
bool TakeAnyReal(const char*& text, double& value);

/// As TakeReal, of a text that is not needed any more.
inline bool ReadReal(const char* text, double& value);

/// Reads a decimal integer by the rules of `strtol`, kept within 32 bits. False, and `value`
/// unchanged, when no leading part forms a number.
bool ReadInteger(const char* text, int& value);

/// Reads a decimal integer by the rules of `atoi`, kept within 32 bits: without digits it is 0.
/// Steps `text` past the digits.
int TakeInteger(const char*& text);

/// As TakeReal, for what most reals are: a sign or none, digits, a point, digits, eight in all at
/// most, and nothing more. False for all others.
[[gnu::always_inline]] inline bool TakePlainReal(const char*& text, double& value)
{
    static constexpr std::array<std::array<double, 8>, 2> Scales{
        {{1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7},
         {-1e0, -1e1, -1e2, -1e3, -1e4, -1e5, -1e6, -1e7}}};

    const bool negative = *text == '-';
    const char* const number = text + static_cast<int>(negative || *text == '+');
    const std::uint64_t bytes = LoadDigits(number);
    const unsigned wholeBits = DigitBits(bytes);
    if (wholeBits == 0 || wholeBits == 64 || number[wholeBits / 8] != '.')
        return false;
    // The digits on both sides of the point are read as one run, as if the point were not there.
    const std::uint64_t bytesAfter = LoadDigits(number + 1);
    const std::uint64_t afterPoint = ~std::uint64_t{0} << wholeBits;
    const std::uint64_t digits = bytes ^ ((bytes ^ bytesAfter) & afterPoint);
    const unsigned digitBits = DigitBits(digits);
    const char* const end = number + 1 + digitBits / 8;
    if (!EndsNumber(*end))
        return false;
    text = end;
    // Both are exact, so the quotient is rounded once and thus correctly. Half of all coordinates
    // are negative, so the sign is no place for a branch.
    value = static_cast<double>(DigitsValue(digits, digitBits)) /
            Scales[negative ? 1 : 0][(digitBits - wholeBits) / 8];
    return true;
}

inline bool TakeReal(const char*& text, double& value)
{
    return TakePlainReal(text, value) || TakeAnyReal(text, value);
}

inline bool ReadReal(const char* text, double& value)
{
    return TakeReal(text, value);
}
