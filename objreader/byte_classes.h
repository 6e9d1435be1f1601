#pragma once

#include <array>
#include <cstdint>
#include <cstring>

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

/// 64 bytes looked at together. In the masks each byte has one bit, the first byte's the lowest.
class ByteBlock
{
public:
    static constexpr int Size = 64;

    explicit ByteBlock(const char* bytes);

    /// The block with a zero byte in place of every byte that is not printable.
    void StorePrintable(char* bytes) const;

    std::uint64_t printable = 0;
    std::uint64_t lineEnds = 0; ///< and other bytes up to CR: few files have any but tabs
    bool anyBackslash = false;

private:
#ifdef __SSE2__
    __m128i m_printable[4];
#else
    std::array<char, Size> m_printable;
#endif
};

#ifdef __SSE2__

inline ByteBlock::ByteBlock(const char* bytes)
{
    __m128i backslashes = _mm_setzero_si128();
    for (int part = 0; part < 4; ++part) {
        const __m128i block =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + 16 * part)); // NOLINT
        const auto equals = [block](char value) {
            return _mm_cmpeq_epi8(block, _mm_set1_epi8(value));
        };
        const auto bits = [part](__m128i matches) {
            return std::uint64_t{static_cast<std::uint32_t>(_mm_movemask_epi8(matches))}
                   << (16 * part);
        };
        const __m128i aboveSpace = _mm_cmpgt_epi8(block, _mm_set1_epi8(0x20));
        const __m128i isPrintable = _mm_andnot_si128(equals(0x7F), aboveSpace);
        printable |= bits(isPrintable);
        const __m128i uptoReturn = _mm_min_epu8(block, _mm_set1_epi8('\r'));
        lineEnds |= bits(_mm_cmpeq_epi8(uptoReturn, block));
        backslashes = _mm_or_si128(backslashes, equals('\\'));
        m_printable[part] = _mm_and_si128(block, isPrintable);
    }
    anyBackslash = _mm_movemask_epi8(backslashes) != 0;
}

inline void ByteBlock::StorePrintable(char* bytes) const
{
    for (int part = 0; part < 4; ++part)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + 16 * part), // NOLINT
                         m_printable[part]);
}

#else

inline ByteBlock::ByteBlock(const char* bytes)
{
    for (std::size_t i = 0; i < Size; ++i) {
        const auto bit = [i](bool set) { return std::uint64_t{set} << i; };
        printable |= bit(IsPrintable(bytes[i]));
        lineEnds |= bit(IsLineEnd(bytes[i]));
        anyBackslash = anyBackslash || bytes[i] == '\\';
        m_printable[i] = IsPrintable(bytes[i]) ? bytes[i] : '\0';
    }
}

inline void ByteBlock::StorePrintable(char* bytes) const
{
    std::memcpy(bytes, m_printable.data(), Size);
}

#endif
