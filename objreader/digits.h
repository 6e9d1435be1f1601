#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// A run of decimal digits, up to eight at a time, without a branch for each digit.
struct DigitRun
{
    std::uint32_t value = 0;
    int count = 0; ///< 0 to 8
};

/// Powers of ten that a run of digits may need.
inline constexpr std::array<std::uint32_t, 9> SmallPowersOfTen{
    1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};

/// The eight bytes at an address, the first one lowest, with '0' taken away from each: digits stand
/// as their values.
inline std::uint64_t LoadDigits(const char* text)
{
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);
    return bytes ^ 0x3030303030303030;
}

/// How many of eight loaded bytes are digits before the first that is none, in bits: 0, 8, to 64.
inline unsigned DigitBits(std::uint64_t digits)
{
    // A digit's high half is 0 and stays so with 6 added to the low half.
    const std::uint64_t others = ((digits + 0x7676767676767676) | digits) & 0x8080808080808080;
    return static_cast<unsigned>(std::countr_zero(others)) & ~7U;
}

/// The value of the first so many bits of digits, 8 at least.
inline std::uint32_t DigitsValue(std::uint64_t digits, unsigned digitBits)
{
    // The digits move up after leading zeros; then neighbours join: 2, 4, 8 digits.
    digits <<= -digitBits % 64;
    digits = digits * 10 + (digits >> 8);
    constexpr std::uint64_t Pairs = 0x000000FF000000FF;
    digits = ((digits & Pairs) * (100 + (std::uint64_t{1000000} << 32)) +
              ((digits >> 16) & Pairs) * (1 + (std::uint64_t{10000} << 32))) >>
             32;
    return static_cast<std::uint32_t>(digits);
}

/// Reads the digits at the front of a text of which eight bytes can be read.
inline DigitRun ReadDigits(const char* text)
{
    const std::uint64_t digits = LoadDigits(text);
    const unsigned digitBits = DigitBits(digits);
    if (digitBits == 0)
        return {};
    return {DigitsValue(digits, digitBits), static_cast<int>(digitBits / 8)};
}
