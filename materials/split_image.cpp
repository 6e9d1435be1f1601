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

/// The colours of two pixels, close together in 48 bits.
std::uint64_t PackColors(std::uint64_t pixels)
{
    return (pixels & ColorBits) | (pixels >> 8U & std::uint64_t{ColorBits} << 24U);
}

/// The alpha values of two pixels, each three times.
std::uint64_t SpreadAlphas(std::uint64_t pixels)
{
    return (pixels >> 24U & 0xFFU) * 0x010101U + (pixels >> 56U) * 0x010101000000U;
}

/// Stores 48 bits and 48 bits as 12 bytes.
void StorePairs(std::uint64_t first, std::uint64_t second, unsigned char* to)
{
    const std::uint64_t low = first | second << 48U;
    const auto high = static_cast<std::uint32_t>(second >> 16U);
    std::memcpy(to, &low, sizeof low);
    std::memcpy(to + sizeof low, &high, sizeof high);
}

/// Four pixels at once, where words have their lowest byte first.
template <bool LookForWhite>
void SplitFourPixels(const unsigned char* from, unsigned char* color, unsigned char* alpha,
                     PixelFacts& facts)
{
    std::uint64_t first = 0;
    std::uint64_t second = 0;
    std::memcpy(&first, from, sizeof first);
    std::memcpy(&second, from + sizeof first, sizeof second);
    for (const std::uint64_t pair : {first, second}) {
        NotePixel<LookForWhite>(static_cast<std::uint32_t>(pair), facts);
        NotePixel<LookForWhite>(static_cast<std::uint32_t>(pair >> 32U), facts);
    }
    StorePairs(PackColors(first), PackColors(second), color);
    StorePairs(SpreadAlphas(first), SpreadAlphas(second), alpha);
}

template <bool LookForWhite>
void SplitRow(const unsigned char* from, unsigned char* color, unsigned char* alpha, int width,
              PixelFacts& result)
{
    PixelFacts facts = result; // stays in registers
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
    result = facts;
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
