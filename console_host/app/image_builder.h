#pragma once

#include "host/app/dib.h"

#include <cstddef>
#include <cstdint>
#include <utility>

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

/// Returns whether the pixels are in proportion to the file: any file may hold 4096 x 4096 of them,
/// and another 16 for each of its bytes.
constexpr bool IsInProportion(std::uint64_t width, std::uint64_t height, std::uint64_t fileSize)
{
    constexpr std::uint64_t AlwaysGranted = std::uint64_t{4096} * 4096;
    constexpr std::uint64_t PixelsForOneByte = 16;
    return width * height <= AlwaysGranted + PixelsForOneByte * fileSize;
}

/// The image that a decoder fills from a file. The size that the file claims is checked before any
/// memory is taken for it.
class ImageBuilder
{
public:
    explicit ImageBuilder(std::uint64_t fileSize) : m_fileSize(fileSize) {}

    /// Returns whether an image of this size may be made: it is not beyond the limits of images,
    /// nor out of proportion to the file.
    bool Allows(std::uint32_t width, std::uint32_t height)
    {
        constexpr std::uint32_t MaxSide = CKelvoUiDib::MaxSide;
        if (width > MaxSide || height > MaxSide)
            return false;
        m_width = static_cast<int>(width);
        m_height = static_cast<int>(height);
        m_isOutOfProportion = !IsInProportion(width, height, m_fileSize);
        return !m_isOutOfProportion;
    }

    /// Makes the image, its contents undefined. Returns false for a size that is not allowed, and
    /// out of memory.
    bool Make(std::uint32_t width, std::uint32_t height, int depth)
    {
        return Allows(width, height) && m_image.CreateDib(m_width, m_height, depth, true);
    }

    /// Returns the pixels of a row; row 0 is the top one.
    [[nodiscard]] unsigned char* Row(std::uint32_t y)
    {
        return DibRow(m_image, static_cast<int>(y));
    }

    [[nodiscard]] CKelvoUiDib TakeImage() { return std::move(m_image); }

    /// Return the size that the file claims, when it is within the limits of images.
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }

    /// Returns whether the file was refused because it claims too many pixels for its bytes.
    [[nodiscard]] bool IsOutOfProportion() const { return m_isOutOfProportion; }

private:
    std::uint64_t m_fileSize;
    int m_width = 0;
    int m_height = 0;
    bool m_isOutOfProportion = false;
    CKelvoUiDib m_image;
};
