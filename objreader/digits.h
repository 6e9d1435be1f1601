#pragma once

#include <array>
#include <bit>
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

/// Reads the digits at the front of a text of which eight bytes can be read.
inline DigitRun ReadDigits(const char* text)
{
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, text, sizeof bytes);

    // A byte is a digit when its high half is 3 and stays so with 6 added to the low half.
    bytes ^= 0x3030303030303030;
    const std::uint64_t others = ((bytes + 0x7676767676767676) | bytes) & 0x8080808080808080;
    const int count = std::countr_zero(others) / 8;

    // The digits move up behind leading zeros (in two equal steps, since no digits move by all 64
    // bits, which one shift cannot do, and eight by none); then neighbours join: 2, 4, 8 digits.
    const int halfway = 32 - 4 * count;
    bytes = bytes << halfway << halfway;
    bytes = bytes * 10 + (bytes >> 8);
    constexpr std::uint64_t Pairs = 0x000000FF000000FF;
    bytes = ((bytes & Pairs) * (100 + (std::uint64_t{1000000} << 32)) +
             ((bytes >> 16) & Pairs) * (1 + (std::uint64_t{10000} << 32))) >>
            32;
    return {static_cast<std::uint32_t>(bytes), count};
}
