#pragma once

#include "host/app/dib.h"

#include <cstddef>

/// Returns the bytes from one row of a device-independent bitmap to the next: the pixels, padded to
/// 4 bytes.
constexpr std::size_t DibRowSize(int width, int depth)
{
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(depth) + 31) / 32 * 4;
}

/// Returns the pixels of a row; row 0 is the top one, which comes last. The image has pixels.
template <class Dib>
auto* DibRow(Dib& image, int y)
{
    const std::size_t rowSize = DibRowSize(image.Width(), image.GetDepth());
    return image.FindDIBBits() + static_cast<std::size_t>(image.Height() - 1 - y) * rowSize;
}
