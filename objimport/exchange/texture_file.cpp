#include "objimport/exchange/texture_file.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace {

/// Returns the bytes of a file that can be embedded; none of any other.
std::vector<unsigned char> ReadBytes(std::FILE* stream)
{
    constexpr std::size_t Block = std::size_t{1} << 18U;
    constexpr std::size_t Most = std::numeric_limits<std::int32_t>::max();
    std::vector<unsigned char> bytes;
    for (std::size_t read = Block; read == Block && bytes.size() <= Most;) {
        bytes.resize(bytes.size() + Block);
        read = std::fread(bytes.data() + bytes.size() - Block, 1, Block, stream);
        bytes.resize(bytes.size() - Block + read);
    }
    if (bytes.size() > Most || std::ferror(stream) != 0)
        bytes.clear();
    return bytes;
}

bool BeginsWith(const std::vector<unsigned char>& bytes, std::string_view signature)
{
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

std::size_t RowSize(const CKelvoDib& image)
{
    return (static_cast<std::size_t>(image.Width()) * static_cast<std::size_t>(image.GetDepth()) /
                8 +
            3) /
           4 * 4;
}

/// Returns a pixel, blue first.
const unsigned char* Pixel(const CKelvoDib& image, int x, int y)
{
    return image.FindDIBBits() + RowSize(image) * static_cast<std::size_t>(y) +
           static_cast<std::size_t>(x) * static_cast<std::size_t>(image.GetDepth()) / 8;
}

bool HasTransparentPixel(const CKelvoDib& image)
{
    constexpr std::size_t Step = 4;
    if (image.GetDepth() != 32)
        return false;
    const unsigned char* const bits = image.FindDIBBits();
    for (std::size_t i = Step - 1; i < image.GetStorageSize(); i += Step)
        if (bits[i] != 255)
            return true;
    return false;
}

/// Opens and decodes an image; the stream is at its start.
TextureState Open(const GK_wString& name, CKelvoDib& image, KelvoFile& stream)
{
    stream.reset(_wfopen(name.Array(), L"rb"));
    if (stream == nullptr)
        return TextureState::Missing;
    const bool isRead = IsPlainFile(stream.get()) && image.ReadFromFile(name.Array()) != 0 &&
                        image.FindDIBBits() != nullptr;
    return isRead ? TextureState::Read : TextureState::Broken;
}

void SetPng(const CKelvoDib& image, EmbeddedImage& embedded)
{
    embedded.file = image.PngBytes();
    if (embedded.file.empty())
        throw std::bad_alloc();
    embedded.isTransparent = HasTransparentPixel(image);
}

unsigned char Opacity(const unsigned char* pixel, int depth)
{
    return depth == 32 ? pixel[3]
                       : static_cast<unsigned char>((pixel[0] + pixel[1] + pixel[2]) / 3);
}

/// Returns the colours with the opacity that the other image says, taken from the nearest of its
/// pixels where the sizes differ.
CKelvoDib Combine(const CKelvoDib& colors, const CKelvoDib& alpha)
{
    CKelvoDib both(colors.Width(), colors.Height(), 32, true);
    if (both.FindDIBBits() == nullptr)
        throw std::bad_alloc();
    unsigned char* to = both.FindDIBBits();
    for (int y = 0; y < both.Height(); ++y) {
        const auto alphaY = static_cast<int>(std::int64_t{y} * alpha.Height() / both.Height());
        for (int x = 0; x < both.Width(); ++x, to += 4) {
            const auto alphaX = static_cast<int>(std::int64_t{x} * alpha.Width() / both.Width());
            std::copy_n(Pixel(colors, x, y), 3, to);
            to[3] = Opacity(Pixel(alpha, alphaX, alphaY), alpha.GetDepth());
        }
    }
    return both;
}

CKelvoDib White(int width, int height)
{
    CKelvoDib image(width, height, 24, true);
    if (image.FindDIBBits() == nullptr)
        throw std::bad_alloc();
    std::fill_n(image.FindDIBBits(), image.GetStorageSize(), static_cast<unsigned char>(255));
    return image;
}

} // namespace

TextureState ReadTexture(const GK_wString& name, EmbeddedImage& image)
{
    KelvoFile stream;
    CKelvoDib pixels;
    const TextureState state = Open(name, pixels, stream);
    if (state != TextureState::Read)
        return state;
    image.file = ReadBytes(stream.get());
    image.isJpeg = BeginsWith(image.file, "\xFF\xD8\xFF");
    if (image.isJpeg)
        return state;
    if (BeginsWith(image.file, "\x89PNG\r\n\x1A\n"))
        image.isTransparent = HasTransparentPixel(pixels);
    else
        SetPng(pixels, image);
    return state;
}

TextureState ReadPixels(const GK_wString& colors, const GK_wString& alpha, CKelvoDib& image)
{
    KelvoFile stream;
    if (!colors.IsEmpty())
        if (const TextureState state = Open(colors, image, stream); state != TextureState::Read)
            return state;
    if (alpha.IsEmpty())
        return TextureState::Read;
    CKelvoDib alphaPixels;
    if (const TextureState state = Open(alpha, alphaPixels, stream); state != TextureState::Read)
        return state;
    if (colors.IsEmpty())
        image = White(alphaPixels.Width(), alphaPixels.Height());
    image = Combine(image, alphaPixels);
    return TextureState::Read;
}

TextureState ReadTextureWithAlpha(const GK_wString& colors, const GK_wString& alpha,
                                  EmbeddedImage& image)
{
    CKelvoDib pixels;
    const TextureState state = ReadPixels(colors, alpha, pixels);
    if (state == TextureState::Read)
        SetPng(pixels, image);
    return state;
}
