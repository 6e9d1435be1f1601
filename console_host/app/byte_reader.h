#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Looks at the bytes of a file from front to back. What lies behind the end reads as 0.
class ByteReader
{
public:
    explicit ByteReader(std::span<const unsigned char> bytes, std::size_t position = 0)
        : m_bytes(bytes), m_position(position)
    {
    }

    [[nodiscard]] std::size_t Position() const { return m_position; }
    [[nodiscard]] bool AtEnd() const { return m_position >= m_bytes.size(); }
    [[nodiscard]] std::size_t Left() const { return AtEnd() ? 0 : m_bytes.size() - m_position; }

    void Skip(std::size_t count) { m_position += count < Left() ? count : Left(); }

    std::uint8_t Byte() { return AtEnd() ? std::uint8_t{0} : m_bytes[m_position++]; }

    std::uint32_t Big16() { return TakeBig(2); }
    std::uint32_t Big32() { return TakeBig(4); }
    std::uint32_t Little16() { return TakeLittle(2); }
    std::uint32_t Little32() { return TakeLittle(4); }

private:
    std::uint32_t TakeBig(int count)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value = value << 8U | Byte();
        return value;
    }

    std::uint32_t TakeLittle(int count)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= std::uint32_t{Byte()} << static_cast<unsigned>(8 * i);
        return value;
    }

    std::span<const unsigned char> m_bytes;
    std::size_t m_position;
};
