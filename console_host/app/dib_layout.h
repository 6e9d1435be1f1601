#pragma once

#include <cstddef>

/// Bytes from one row of a device-independent bitmap to the next: the pixels, padded to 4 bytes.
constexpr std::size_t DibRowSize(int width, int depth)
{
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(depth) + 31) / 32 * 4;
}
