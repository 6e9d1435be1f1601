#include "console_host/app/image_codecs.h"

#include <string_view>

namespace {

using Reader = bool (*)(ImageBytes, ImageBuilder&);

std::string_view Text(ImageBytes bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Returns a number of a file that has its highest byte first.
std::uint32_t BigNumber(ImageBytes file, std::size_t at, std::size_t count)
{
    std::uint32_t value = 0;
    for (const unsigned char byte : file.subspan(at, count))
        value = value << 8U | byte;
    return value;
}

// What a file claims is checked before its decoder sees it: some decoders allocate the image at
// once. Some also fill up the rest of a truncated one.

bool ReadSoundPng(ImageBytes file, ImageBuilder& image)
{
    constexpr std::size_t HeaderEnd = 24;
    return file.size() >= HeaderEnd && Text(file).rfind("IEND") != std::string_view::npos &&
           image.Allows(BigNumber(file, 16, 4), BigNumber(file, 20, 4)) && ReadPng(file, image);
}

/// Returns whether the image may be as large as the frame of a JPEG says, and may be in the file:
/// each block of 8 by 8 pixels takes a bit at least.
bool AllowsFrame(ImageBytes file, ImageBuilder& image)
{
    for (std::size_t at = 2; at + 9 <= file.size();) {
        const unsigned marker = file[at + 1];
        if (file[at] != 0xFF || marker == 0 || marker == 0xFF) {
            ++at;
            continue;
        }
        const bool isTable = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
        if (marker >= 0xC0 && marker <= 0xCF && !isTable) {
            const std::uint32_t height = BigNumber(file, at + 5, 2);
            const std::uint32_t width = BigNumber(file, at + 7, 2);
            return image.Allows(width, height) && width * height / 512 <= file.size();
        }
        at += 2 + BigNumber(file, at + 2, 2);
    }
    return false;
}

/// Pictures in use have some ten scans, each of which goes over the whole picture.
bool ReadSoundJpeg(ImageBytes file, ImageBuilder& image)
{
    constexpr int MaxScans = 64;
    std::string_view rest = Text(file);
    int scans = 0;
    for (std::size_t at = 0; (at = rest.find("\xFF\xDA")) != std::string_view::npos; ++scans)
        rest.remove_prefix(at + 2);
    const bool isWhole = rest.find("\xFF\xD9") != std::string_view::npos;
    return isWhole && scans <= MaxScans && AllowsFrame(file, image) && ReadJpeg(file, image);
}

/// Returns the reader for files that begin like this, or null.
Reader FindReader(ImageBytes start)
{
    const std::string_view text = Text(start);
    if (text.starts_with("\x89PNG\r\n\x1A\n"))
        return ReadSoundPng;
    if (text.starts_with("BM"))
        return ReadBmp;
    if (text.starts_with("\xFF\xD8"))
        return ReadSoundJpeg;
    return LooksLikeTga(start) ? ReadTga : nullptr;
}

} // namespace

bool HasImageSignature(ImageBytes start)
{
    return FindReader(start) != nullptr;
}

bool ReadImage(ImageBytes file, ImageBuilder& image)
{
    const Reader read = FindReader(file);
    return read != nullptr && read(file, image);
}
