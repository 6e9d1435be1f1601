#include "console_host/app/image_reader.h"

#include <string_view>

namespace {

using Reader = bool (*)(ImageBytes, ImageBuilder&);

std::string_view Text(ImageBytes bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// Returns a number of 4 bytes, highest first.
std::uint32_t BigNumber(ImageBytes bytes)
{
    std::uint32_t value = 0;
    for (const unsigned char byte : bytes.first<4>())
        value = value << 8U | byte;
    return value;
}

/// Refuses files that break off, of which some decoders fill up the rest, and sizes that are not
/// allowed, for which some take memory at once.
bool ReadWholePng(ImageBytes file, ImageBuilder& image)
{
    constexpr std::size_t Header = 24;
    return Text(file).rfind("IEND") != std::string_view::npos && file.size() > Header &&
           image.Allows(BigNumber(file.subspan(16)), BigNumber(file.subspan(20))) &&
           ReadPng(file, image);
}

/// Also refuses files with more scans than pictures in use have, which is some ten: each one goes
/// over the whole picture.
bool ReadWholeJpeg(ImageBytes file, ImageBuilder& image)
{
    constexpr int MaxScans = 64;
    std::string_view rest = Text(file);
    int scans = 0;
    for (std::size_t at = 0; (at = rest.find("\xFF\xDA")) != std::string_view::npos; ++scans)
        rest.remove_prefix(at + 2);
    const bool isWhole = rest.find("\xFF\xD9") != std::string_view::npos;
    return isWhole && scans <= MaxScans && ReadJpeg(file, image);
}

/// Returns the reader for files that begin like this, or null.
Reader FindReader(ImageBytes start)
{
    const std::string_view text = Text(start);
    if (text.starts_with("\x89PNG\r\n\x1A\n"))
        return ReadWholePng;
    if (text.starts_with("BM"))
        return ReadBmp;
    if (text.starts_with("\xFF\xD8"))
        return ReadWholeJpeg;
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
