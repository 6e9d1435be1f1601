#include "materials/texture_splitting.h"

#include "host/app/dib.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace {

/// What is known of the pixels seen so far.
struct PixelFacts
{
    std::uint32_t commonBits = 0xFFFFFFFF; ///< bits that are set in every pixel
    bool white = true;

    [[nodiscard]] bool IsOpaque() const { return commonBits >> 24U == 0xFF; }
};

constexpr std::uint32_t ColorBits = 0x00FFFFFF;

/// A pixel of 32 bits is blue, green, red and alpha from the lowest byte up.
std::uint32_t LoadPixel(const unsigned char* from)
{
    if constexpr (std::endian::native == std::endian::little) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, from, sizeof pixel);
        return pixel;
    }
    return std::uint32_t{from[0]} | std::uint32_t{from[1]} << 8U | std::uint32_t{from[2]} << 16U |
           std::uint32_t{from[3]} << 24U;
}

/// One of blue, green and red is 255, that is, one of their inverses is 0.
bool HasFullColor(std::uint32_t pixel)
{
    const std::uint32_t inverse = ~pixel & ColorBits;
    return ((inverse - 0x010101U) & ~inverse & 0x808080U) != 0;
}

template <bool LookForWhite>
void NotePixel(std::uint32_t pixel, PixelFacts& facts)
{
    facts.commonBits &= pixel;
    if constexpr (LookForWhite)
        facts.white = facts.white && HasFullColor(pixel);
}

void StoreWords(std::uint32_t first, std::uint32_t second, std::uint32_t third, unsigned char* to)
{
    const std::uint32_t words[3] = {first, second, third};
    std::memcpy(to, words, sizeof words);
}

/// Four pixels come and go as words: 16 bytes in, 12 bytes out, twice.
template <bool LookForWhite>
void SplitFourPixels(const unsigned char* from, unsigned char* color, unsigned char* alpha,
                     PixelFacts& facts)
{
    const std::uint32_t p0 = LoadPixel(from);
    const std::uint32_t p1 = LoadPixel(from + 4);
    const std::uint32_t p2 = LoadPixel(from + 8);
    const std::uint32_t p3 = LoadPixel(from + 12);
    for (const std::uint32_t pixel : {p0, p1, p2, p3})
        NotePixel<LookForWhite>(pixel, facts);

    StoreWords((p0 & ColorBits) | p1 << 24U, (p1 & ColorBits) >> 8U | p2 << 16U,
               (p2 & ColorBits) >> 16U | p3 << 8U, color);

    const std::uint32_t a0 = p0 >> 24U;
    const std::uint32_t a1 = p1 >> 24U;
    const std::uint32_t a2 = p2 >> 24U;
    const std::uint32_t a3 = p3 >> 24U;
    StoreWords(a0 * 0x00010101U | a1 << 24U, a1 * 0x00000101U | a2 * 0x01010000U,
               a2 | a3 * 0x01010100U, alpha);
}

template <bool LookForWhite>
void SplitRow(const unsigned char* from, unsigned char* color, unsigned char* alpha, int width,
              PixelFacts& facts)
{
    int x = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; x + 4 <= width; x += 4, from += 16, color += 12, alpha += 12)
            SplitFourPixels<LookForWhite>(from, color, alpha, facts);
    }
    for (; x < width; ++x, from += 4, color += 3, alpha += 3) {
        NotePixel<LookForWhite>(LoadPixel(from), facts);
        std::memcpy(color, from, 3);
        std::memset(alpha, from[3], 3);
    }
}

PixelFacts SplitRows(const CKelvoDib& image, CKelvoDib& colorImage, CKelvoDib& alphaImage)
{
    const auto width = static_cast<std::size_t>(image.Width());
    const std::size_t fromSize = 4 * width;
    const std::size_t toSize = (3 * width + 3) / 4 * 4;
    const unsigned char* from = image.FindDIBBits();
    unsigned char* color = colorImage.FindDIBBits();
    unsigned char* alpha = alphaImage.FindDIBBits();
    PixelFacts facts;
    for (int y = 0; y < image.Height(); ++y, from += fromSize, color += toSize, alpha += toSize) {
        // Nearly every image shows in its first row that it is not white.
        if (facts.white)
            SplitRow<true>(from, color, alpha, image.Width(), facts);
        else
            SplitRow<false>(from, color, alpha, image.Width(), facts);
    }
    return facts;
}

} // namespace

bool SplitImage(CKelvoDib& image, CKelvoDib& alphaImage, bool& white)
{
    if (image.GetDepth() != 32)
        return false;
    CKelvoDib colorImage(image.Width(), image.Height(), 24, true);
    alphaImage.CreateDib(image.Width(), image.Height(), 24, true);
    if (image.FindDIBBits() == nullptr || colorImage.FindDIBBits() == nullptr ||
        alphaImage.FindDIBBits() == nullptr)
        return false;
    const PixelFacts facts = SplitRows(image, colorImage, alphaImage);
    white = facts.white;
    if (facts.IsOpaque())
        alphaImage.DestroyDib();
    image = std::move(colorImage);
    return !facts.IsOpaque();
}
