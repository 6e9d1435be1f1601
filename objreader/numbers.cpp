#include "objreader/numbers.h"

#include "objreader/digits.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>

namespace {

/// Every integer up to this is a double, so a product or quotient with an exact power of ten is
/// rounded once and thus correctly.
constexpr std::uint64_t LargestExactInteger = std::uint64_t{1} << 53;
constexpr std::array<double, 23> ExactPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                  1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// So many digits always fit into 64 bits.
constexpr int MostDigits = 19;

/// Exponents beyond this mean infinity or zero whatever the digits.
constexpr int LargestExponent = 1 << 28;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

char Lower(char c)
{
    return static_cast<char>(c | 0x20);
}

/// Appends a run of digits to a mantissa; returns how many there were. With more than MostDigits in
/// all the mantissa means nothing.
std::ptrdiff_t TakeDigits(const char*& text, std::uint64_t& mantissa)
{
    const char* const start = text;
    for (;;) {
        const DigitRun run = ReadDigits(text);
        mantissa = mantissa * SmallPowersOfTen[static_cast<std::size_t>(run.count)] + run.value;
        text += run.count;
        if (run.count < 8)
            return text - start;
    }
}

/// Takes an exponent (a letter, a sign or none, digits) when one stands there, else nothing.
int TakeExponent(const char*& text, char letter)
{
    if (Lower(*text) != letter)
        return 0;
    const char* p = text + 1;
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+')
        ++p;
    if (!IsDigit(*p))
        return 0;
    std::int64_t exponent = 0;
    for (; IsDigit(*p); ++p)
        exponent = std::min<std::int64_t>(exponent * 10 + (*p - '0'), LargestExponent);
    text = p;
    return static_cast<int>(negative ? -exponent : exponent);
}

/// How many places before the point a number's first digit stands that is not 0: 2 for 12.5, 0 for
/// 0.5, -1 for 0.05.
std::ptrdiff_t PlacesBeforePoint(std::string_view mantissa)
{
    const std::size_t first = mantissa.find_first_not_of("0.");
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto places = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
    return first < point ? places : places + 1;
}

/// Reads a whole number text without sign by the standard library, which rounds correctly but says
/// only "out of range" of what is too large or too small.
double ConvertExactly(std::string_view mantissa, const char* end, int exponent,
                      std::chars_format format)
{
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(mantissa.data(), end, value, format);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    if (mantissa.find_first_not_of("0.") == std::string_view::npos)
        return 0.0;
    const int bitsPerPlace = format == std::chars_format::hex ? 4 : 1;
    const bool large = PlacesBeforePoint(mantissa) * bitsPerPlace + exponent > 0;
    return large ? std::numeric_limits<double>::infinity() : 0.0;
}

bool TakeDecimal(const char*& text, double& value)
{
    const char* p = text;
    std::uint64_t mantissa = 0;
    std::ptrdiff_t digits = TakeDigits(p, mantissa);
    std::ptrdiff_t decimals = 0;
    if (*p == '.') {
        ++p;
        decimals = TakeDigits(p, mantissa);
        digits += decimals;
    }
    if (digits == 0)
        return false;

    const char* const mantissaEnd = p;
    const int exponent = TakeExponent(p, 'e');
    const std::ptrdiff_t scale = exponent - decimals;
    constexpr std::ptrdiff_t LargestScale = ExactPowersOfTen.size() - 1;
    if (digits > MostDigits || mantissa > LargestExactInteger || scale < -LargestScale ||
        scale > LargestScale) {
        const std::string_view view(text, static_cast<std::size_t>(mantissaEnd - text));
        value = ConvertExactly(view, p, exponent, std::chars_format::general);
    } else if (scale < 0) {
        value = static_cast<double>(mantissa) / ExactPowersOfTen[static_cast<std::size_t>(-scale)];
    } else {
        value = static_cast<double>(mantissa) * ExactPowersOfTen[static_cast<std::size_t>(scale)];
    }
    text = p;
    return true;
}

bool IsHexDigit(char c)
{
    return IsDigit(c) || (Lower(c) >= 'a' && Lower(c) <= 'f');
}

bool BeginsHexadecimal(const char* text)
{
    return text[0] == '0' && Lower(text[1]) == 'x';
}

/// False when no hexadecimal digit follows the "0x" that begins the number.
bool TakeHexadecimal(const char*& text, double& value)
{
    const char* const start = text + 2;
    const char* p = start;
    while (IsHexDigit(*p))
        ++p;
    std::ptrdiff_t digits = p - start;
    if (*p == '.') {
        const char* const point = p++;
        while (IsHexDigit(*p))
            ++p;
        digits += p - point - 1;
    }
    if (digits == 0)
        return false;
    const std::string_view mantissa(start, static_cast<std::size_t>(p - start));
    const int exponent = TakeExponent(p, 'p');
    value = ConvertExactly(mantissa, p, exponent, std::chars_format::hex);
    text = p;
    return true;
}

bool TakeWord(const char*& text, std::string_view lowerCaseWord)
{
    const char* p = text;
    const auto same = [&p](char c) { return Lower(*p++) == c; };
    if (!std::all_of(lowerCaseWord.begin(), lowerCaseWord.end(), same))
        return false;
    text = p;
    return true;
}

/// What follows the three letters says nothing more about the value, and is left.
bool TakeNoNumber(const char*& text, double& value)
{
    if (TakeWord(text, "inf"))
        value = std::numeric_limits<double>::infinity();
    else if (TakeWord(text, "nan"))
        value = std::numeric_limits<double>::quiet_NaN();
    else
        return false;
    return true;
}

const char* SkipBlanks(const char* text)
{
    while (*text == ' ' || (*text >= '\t' && *text <= '\r'))
        ++text;
    return text;
}

} // namespace

bool TakeAnyReal(const char*& text, double& value)
{
    const bool negative = *text == '-';
    const char* p = text + static_cast<int>(negative || *text == '+');
    double magnitude = 0.0;
    if (!(BeginsHexadecimal(p) && TakeHexadecimal(p, magnitude)) && !TakeDecimal(p, magnitude) &&
        !TakeNoNumber(p, magnitude))
        return false;
    text = p;
    value = negative ? -magnitude : magnitude;
    return true;
}

bool ReadInteger(const char* text, int& value)
{
    const char* p = SkipBlanks(text);
    if (*p == '-' || *p == '+')
        ++p;
    if (!IsDigit(*p))
        return false;
    value = TakeInteger(text);
    return true;
}

int TakeInteger(const char*& text)
{
    constexpr std::int64_t Beyond32Bits = std::int64_t{1} << 32;
    const char* p = SkipBlanks(text);
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+')
        ++p;
    std::int64_t magnitude = 0;
    DigitRun run;
    do {
        run = ReadDigits(p);
        const std::int64_t scale = SmallPowersOfTen[static_cast<std::size_t>(run.count)];
        magnitude = std::min(magnitude * scale + run.value, Beyond32Bits);
        p += run.count;
    } while (run.count == 8);
    text = p;
    const std::int64_t integer = negative ? -magnitude : magnitude;
    return static_cast<int>(std::clamp<std::int64_t>(integer, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}
