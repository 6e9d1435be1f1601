#pragma once

#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// What the bytes of a line mean to the tokenizer.

/// Printable ASCII without the space: what tokens are made of.
constexpr bool IsPrintable(char byte)
{
    return byte > 0x20 && byte < 0x7F;
}

/// LF, CR or a zero byte.
constexpr bool IsLineEnd(char byte)
{
    return byte == '\n' || byte == '\r' || byte == '\0';
}

/// One bit for each of 64 bytes, the first byte's lowest.
struct ByteMasks
{
    std::uint64_t printable = 0;
    std::uint64_t lineEnd = 0;
    std::uint64_t backslash = 0;
};

#ifdef __SSE2__

inline ByteMasks ClassifyBytes(const char* bytes)
{
    ByteMasks masks;
    for (int part = 0; part < 4; ++part) {
        const __m128i block =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + 16 * part)); // NOLINT
        const auto equals = [block](char value) {
            return _mm_cmpeq_epi8(block, _mm_set1_epi8(value));
        };
        const auto bits = [part](__m128i matches) {
            return static_cast<std::uint64_t>(
                       static_cast<std::uint32_t>(_mm_movemask_epi8(matches)))
                   << (16 * part);
        };
        const __m128i aboveSpace = _mm_cmpgt_epi8(block, _mm_set1_epi8(0x20));
        masks.printable |= bits(_mm_andnot_si128(equals(0x7F), aboveSpace));
        masks.lineEnd |= bits(_mm_or_si128(_mm_or_si128(equals('\n'), equals('\r')), equals('\0')));
        masks.backslash |= bits(equals('\\'));
    }
    return masks;
}

#else

inline ByteMasks ClassifyBytes(const char* bytes)
{
    ByteMasks masks;
    for (int i = 0; i < 64; ++i) {
        const auto bit = [i](bool set) { return static_cast<std::uint64_t>(set) << i; };
        masks.printable |= bit(IsPrintable(bytes[i]));
        masks.lineEnd |= bit(IsLineEnd(bytes[i]));
        masks.backslash |= bit(bytes[i] == '\\');
    }
    return masks;
}

#endif
