#include "console_host/app/image_colors.h"

namespace {

constexpr std::size_t HeaderSize = 18;

/// Kinds of pixels, without the bit that says that they are in runs.
enum Kind : std::uint32_t
{
    Indexed = 1,
    Colored = 2,
    Grey = 3,
    InRuns = 8
};

struct TgaHeader
{
    ImageBytes file;
    std::size_t idLength = LittleNumber(file, 0, 1);
    std::uint32_t paletteCount = LittleNumber(file, 1, 1);
    std::uint32_t kind = LittleNumber(file, 2, 1) & ~std::uint32_t{InRuns};
    bool inRuns = (LittleNumber(file, 2, 1) & InRuns) != 0;
    std::uint32_t firstIndex = LittleNumber(file, 3, 2); ///< that of the palette's first colour
    std::size_t colorCount = paletteCount == 1 ? LittleNumber(file, 5, 2) : 0;
    std::uint32_t width = LittleNumber(file, 12, 2);
    std::uint32_t height = LittleNumber(file, 14, 2);
    std::uint32_t depth = LittleNumber(file, 16, 1);
    std::uint32_t colorDepth = paletteCount == 1 ? LittleNumber(file, 7, 1) : depth;
    bool topFirst = (LittleNumber(file, 17, 1) & 0x20U) != 0;

    [[nodiscard]] bool IsSound() const
    {
        const bool isColorDepth = colorDepth == 8 || colorDepth == 15 || colorDepth == 16 ||
                                  colorDepth == 24 || colorDepth == 32;
        if (kind == Indexed)
            return isColorDepth && colorCount > 0 && (depth == 8 || depth == 16);
        return isColorDepth && paletteCount == 0 && (kind == Colored || kind == Grey);
    }

    [[nodiscard]] ColorMasks Masks() const
    {
        if (colorDepth == 8)
            return {0xFF, 0xFF, 0xFF, 0};
        if (colorDepth <= 16)
            return kind == Grey ? ColorMasks{0xFF, 0xFF, 0xFF, 0xFF00} : MasksOf16;
        return colorDepth == 24 ? MasksOf24 : MasksOf32;
    }
};

/// Goes through the pixels of a file, one after the other, unpacking runs.
class TgaPixels
{
public:
    TgaPixels(ImageBytes bytes, std::size_t pixelSize, bool inRuns)
        : m_bytes(bytes), m_pixelSize(pixelSize), m_inRuns(inRuns)
    {
    }

    /// Returns the bytes of the next pixel, or null when the file is truncated.
    const unsigned char* Next()
    {
        if (m_inRuns && m_left == 0) {
            if (m_bytes.empty())
                return nullptr;
            m_left = 1 + (m_bytes[0] & 0x7FU);
            m_isRepeated = (m_bytes[0] & 0x80U) != 0;
            m_pixel = nullptr;
            m_bytes = m_bytes.subspan(1);
        }
        --m_left;
        if (m_isRepeated && m_pixel != nullptr)
            return m_pixel;
        if (m_bytes.size() < m_pixelSize)
            return nullptr;
        m_pixel = m_bytes.data();
        m_bytes = m_bytes.subspan(m_pixelSize);
        return m_pixel;
    }

private:
    ImageBytes m_bytes;
    std::size_t m_pixelSize;
    bool m_inRuns;
    unsigned m_left = 0; ///< pixels of the run; not used without runs
    bool m_isRepeated = false;
    const unsigned char* m_pixel = nullptr;
};

} // namespace

bool LooksLikeTga(ImageBytes start)
{
    return start.size() >= HeaderSize && TgaHeader{start}.IsSound();
}

bool ReadTga(ImageBytes file, ImageBuilder& image)
{
    const TgaHeader tga{file};
    const std::size_t colorSize = (tga.colorDepth + 7) / 8;
    const std::size_t pixelSize = (tga.depth + 7) / 8;
    const ColorReader colors(tga.Masks(), colorSize);
    const std::size_t start = HeaderSize + tga.idLength;
    const std::size_t paletteSize = tga.colorCount * colorSize;
    if (start + paletteSize > file.size() ||
        !image.Make(tga.width, tga.height, static_cast<int>(8 * colors.PixelSize())))
        return false;
    const ImageBytes palette = file.subspan(start, paletteSize);
    TgaPixels pixels(file.subspan(start + paletteSize), pixelSize, tga.inRuns);
    for (std::uint32_t y = 0; y < tga.height; ++y) {
        unsigned char* to = image.Row(tga.topFirst ? y : tga.height - 1 - y);
        for (std::uint32_t x = 0; x < tga.width; ++x, to += colors.PixelSize()) {
            const unsigned char* const pixel = pixels.Next();
            if (pixel == nullptr)
                return false;
            if (palette.empty())
                colors.Read(pixel, to);
            else
                colors.Read(palette, LittleNumber(pixel, pixelSize) - tga.firstIndex, to);
        }
    }
    return true;
}
