#pragma once

#include "console_host/app/image_codecs.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// Bits of a stored colour that are its blue, green, red and alpha; 0 for an alpha that is not
/// there.
using ColorMasks = std::array<std::uint32_t, 4>;

constexpr ColorMasks MasksOf16{0x1F, 0x3E0, 0x7C00, 0};
constexpr ColorMasks MasksOf24{0xFF, 0xFF00, 0xFF0000, 0};
constexpr ColorMasks MasksOf32{0xFF, 0xFF00, 0xFF0000, 0xFF000000};

/// Returns a number of up to 4 bytes that has its lowest byte first.
constexpr std::uint32_t LittleNumber(const unsigned char* bytes, std::size_t count)
{
    std::uint32_t value = 0;
    for (std::size_t i = count; i > 0; --i)
        value = value << 8U | bytes[i - 1];
    return value;
}

/// Returns a number of a file's header. What lies beyond the end of the file reads as 0.
constexpr std::uint32_t LittleNumber(ImageBytes file, std::size_t at, std::size_t count)
{
    return at + count <= file.size() ? LittleNumber(file.data() + at, count) : 0;
}

/// Turns the colours of a file into pixels of an image.
class ColorReader
{
public:
    ColorReader(const ColorMasks& masks, std::size_t colorSize);

    [[nodiscard]] std::size_t PixelSize() const { return m_channelCount; }

    /// Turns the colour at `from` into the pixel at `to`.
    void Read(const unsigned char* from, unsigned char* to) const
    {
        const std::uint32_t color = LittleNumber(from, m_colorSize);
        for (std::size_t i = 0; i < m_channelCount; ++i)
            to[i] = m_channels[i].values[(color & m_channels[i].mask) >> m_channels[i].shift];
    }

    /// Does so with a colour of a palette, the first one if it has none of that index.
    void Read(ImageBytes palette, std::size_t index, unsigned char* to) const
    {
        const std::size_t at = index * m_colorSize;
        Read(palette.data() + (at + m_colorSize <= palette.size() ? at : 0), to);
    }

private:
    struct Channel
    {
        std::uint32_t mask = 0;
        int shift = 0;
        std::array<unsigned char, 256> values{}; ///< of 8 bits, for the bits that remain
    };

    std::size_t m_colorSize;
    std::size_t m_channelCount;
    std::array<Channel, 4> m_channels;
};
