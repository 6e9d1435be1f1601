#include "console_host/app/image_colors.h"

#include <algorithm>
#include <bit>

namespace {

/// Returns a number of 1 to 8 bits as one of 8 bits: its bits are repeated.
unsigned char Expand(std::uint32_t value, int bits)
{
    std::uint32_t expanded = value;
    int size = bits;
    for (; size < 8; size += bits)
        expanded = expanded << bits | value;
    return static_cast<unsigned char>(expanded >> (size - 8));
}

} // namespace

ColorReader::ColorReader(const ColorMasks& masks, std::size_t colorSize)
    : m_colorSize(colorSize), m_channelCount(masks[3] != 0 ? 4 : 3)
{
    for (std::size_t i = 0; i < m_channelCount; ++i) {
        Channel& channel = m_channels[i];
        channel.mask = masks[i];
        const int end = 32 - std::countl_zero(masks[i]);
        const int bits = std::clamp(end - std::countr_zero(masks[i]), 1, 8);
        channel.shift = std::max(end - bits, 0);
        for (std::uint32_t value = 0; value < 1U << bits; ++value)
            channel.values[value] = Expand(value, bits);
    }
}
