#include "console_host/app/image_colors.h"

#include <algorithm>

namespace {

ColorMasks ReadMasks(ImageBytes file, std::uint32_t headerSize)
{
    constexpr std::uint32_t HeaderWithAlphaMask = 56;
    return {LittleNumber(file, 62, 4), LittleNumber(file, 58, 4), LittleNumber(file, 54, 4),
            headerSize >= HeaderWithAlphaMask ? LittleNumber(file, 66, 4) : 0};
}

struct BmpHeader
{
    ImageBytes file;
    std::size_t pixelOffset = LittleNumber(file, 10, 4);
    std::uint32_t headerSize = LittleNumber(file, 14, 4);
    bool isOld = headerSize == 12; ///< of the first kind, with short numbers
    std::uint32_t width = LittleNumber(file, 18, isOld ? 2 : 4);
    std::uint32_t signedHeight = LittleNumber(file, isOld ? 20 : 22, isOld ? 2 : 4);
    bool topFirst = signedHeight >> 31U != 0;
    std::uint32_t height = topFirst ? 0U - signedHeight : signedHeight;
    std::uint32_t depth = LittleNumber(file, isOld ? 24 : 28, 2);
    std::uint32_t compression = isOld ? 0 : LittleNumber(file, 30, 4);
    bool hasMasks = compression == 3 && (depth == 16 || depth == 32);
    ColorMasks masks = hasMasks      ? ReadMasks(file, headerSize)
                       : depth == 16 ? MasksOf16
                       : depth == 32 ? MasksOf32
                                     : MasksOf24;

    [[nodiscard]] std::size_t PaletteOffset() const { return std::size_t{14} + headerSize; }

    [[nodiscard]] std::size_t RowSize() const
    {
        return DibRowSize(static_cast<int>(width), static_cast<int>(depth));
    }

    /// Returns the pixels of a row; row 0 is the top one.
    [[nodiscard]] const unsigned char* Row(std::uint32_t y) const
    {
        return file.data() + pixelOffset + RowSize() * (topFirst ? y : height - 1 - y);
    }

    /// Returns whether the header makes sense and all pixels that it claims are in the file.
    [[nodiscard]] bool IsSound() const
    {
        constexpr std::uint32_t MaxSide = CKelvoUiDib::MaxSide;
        constexpr std::array<std::uint32_t, 6> Depths{1, 4, 8, 16, 24, 32};
        if (width > MaxSide || height < 1 || height > MaxSide || (!isOld && headerSize < 40) ||
            (compression != 0 && !hasMasks) ||
            std::find(Depths.begin(), Depths.end(), depth) == Depths.end())
            return false;
        // The last row may lack its padding.
        const std::size_t size = RowSize() * (height - 1) + (width * depth + 7) / 8;
        const std::size_t smallestPalette = depth <= 8 ? 4 : 0;
        return pixelOffset >= PaletteOffset() + smallestPalette &&
               pixelOffset + size <= file.size();
    }
};

void ReadIndices(const BmpHeader& bmp, ImageBuilder& image)
{
    const ColorReader colors(MasksOf24, bmp.isOld ? 3 : 4);
    const ImageBytes palette =
        bmp.file.subspan(bmp.PaletteOffset(), bmp.pixelOffset - bmp.PaletteOffset());
    const unsigned highest = (1U << bmp.depth) - 1;
    for (std::uint32_t y = 0; y < bmp.height; ++y) {
        const unsigned char* const from = bmp.Row(y);
        unsigned char* to = image.Row(y);
        for (std::uint32_t bit = 0; bit < bmp.width * bmp.depth; bit += bmp.depth, to += 3) {
            const unsigned bits = from[bit / 8];
            colors.Read(palette, bits >> (8 - bmp.depth - bit % 8) & highest, to);
        }
    }
}

void ReadColors(const BmpHeader& bmp, ImageBuilder& image)
{
    const std::size_t step = bmp.depth / 8;
    const ColorReader colors(bmp.masks, step);
    for (std::uint32_t y = 0; y < bmp.height; ++y) {
        const unsigned char* from = bmp.Row(y);
        unsigned char* to = image.Row(y);
        for (std::uint32_t x = 0; x < bmp.width; ++x, from += step, to += colors.PixelSize())
            colors.Read(from, to);
    }
}

/// Makes an image opaque whose alpha is 0 in all pixels: without masks the fourth byte of a pixel
/// is alpha only when it is used.
void DropUnusedAlpha(const BmpHeader& bmp, ImageBuilder& image)
{
    unsigned used = 0;
    for (std::uint32_t y = 0; y < bmp.height && used == 0; ++y) {
        for (std::size_t x = 0; x < bmp.width; ++x)
            used |= image.Row(y)[4 * x + 3];
    }
    for (std::uint32_t y = 0; y < bmp.height && used == 0; ++y) {
        for (std::size_t x = 0; x < bmp.width; ++x)
            image.Row(y)[4 * x + 3] = 255;
    }
}

} // namespace

bool ReadBmp(ImageBytes file, ImageBuilder& image)
{
    const BmpHeader bmp{file};
    const bool hasAlpha = bmp.masks[3] != 0;
    if (!bmp.IsSound() || !image.Make(bmp.width, bmp.height, hasAlpha ? 32 : 24))
        return false;
    if (bmp.depth <= 8)
        ReadIndices(bmp, image);
    else
        ReadColors(bmp, image);
    if (hasAlpha && !bmp.hasMasks)
        DropUnusedAlpha(bmp, image);
    return true;
}
