#include "console_host/app/image_header.h"

#include "console_host/app/byte_reader.h"
#include "console_host/app/jpeg_structure.h"

#include "host/app/dib.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace {

constexpr std::array<unsigned char, 8> PngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

bool StartsWith(ImageBytes bytes, ImageBytes start)
{
    return bytes.size() >= start.size() && std::equal(start.begin(), start.end(), bytes.begin());
}

std::uint64_t PixelCount(const ImageHeader& header)
{
    return static_cast<std::uint64_t>(header.width) * static_cast<std::uint64_t>(header.height);
}

/// Takes a size over; false when it is outside the limits.
bool SetSize(ImageHeader& header, std::uint32_t width, std::uint32_t height)
{
    constexpr std::uint32_t MaxSide = CKelvoUiDib::MaxSide;
    if (width < 1 || height < 1 || width > MaxSide || height > MaxSide)
        return false;
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(height);
    return true;
}

constexpr std::uint32_t ChunkName(const char (&name)[5])
{
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value = value << 8U | static_cast<unsigned char>(name[i]);
    return value;
}

/// All chunks are there as far as the end mark, and the pixels' first chunk is not empty, for which
/// the library would have no buffer.
bool HasSoundChunks(ImageBytes file)
{
    ByteReader reader(file, PngSignature.size());
    bool hasPixels = false;
    while (reader.Left() >= 12) {
        const std::uint32_t length = reader.Big32();
        const std::uint32_t name = reader.Big32();
        if (name == ChunkName("IEND"))
            return hasPixels;
        if (length > reader.Left())
            return false;
        if (name == ChunkName("IDAT") && !hasPixels && length == 0)
            return false;
        hasPixels = hasPixels || name == ChunkName("IDAT");
        constexpr std::size_t ChecksumSize = 4;
        reader.Skip(length + ChecksumSize);
    }
    return false;
}

bool ReadPngHeader(ImageBytes file, ImageHeader& header)
{
    ByteReader reader(file, PngSignature.size());
    if (reader.Big32() != 13 || reader.Big32() != ChunkName("IHDR") || !HasSoundChunks(file))
        return false;
    const std::uint32_t width = reader.Big32();
    const std::uint32_t height = reader.Big32();
    if (!SetSize(header, width, height))
        return false;
    const std::uint64_t depth = reader.Byte();
    const std::size_t colorType = reader.Byte();
    constexpr std::array<std::uint64_t, 7> Channels{1, 0, 3, 1, 2, 0, 4};
    if (depth < 1 || depth > 16 || colorType >= Channels.size())
        return false;

    // Deflate packs 258 bytes into 2 bits at best.
    constexpr std::uint64_t MostDeflated = 1032;
    const std::uint64_t rows = height;
    const std::uint64_t channels = Channels[colorType];
    header.fewestFileBytes = rows * ((width * channels * depth + 7) / 8) / MostDeflated;

    // The library takes a row channel by channel; the passes of an interlaced image need more.
    const std::uint64_t unpacked = rows * ((width * depth + 7) / 8 * channels + 1);
    header.largestBlock = std::max(2 * unpacked, PixelCount(header) * (depth == 16 ? 8 : 4));
    return true;
}

/// Height is negative in images whose top row comes first.
bool SetBmpSize(ImageHeader& header, std::int32_t width, std::int32_t height)
{
    if (width < 0 || height == std::numeric_limits<std::int32_t>::min())
        return false;
    return SetSize(header, static_cast<std::uint32_t>(width),
                   static_cast<std::uint32_t>(std::abs(height)));
}

bool ReadBmpHeader(ImageBytes file, ImageHeader& header)
{
    constexpr std::uint32_t FileHeaderSize = 14;
    ByteReader reader(file, 10);
    const std::uint32_t pixelOffset = reader.Little32();
    const std::uint32_t headerSize = reader.Little32();
    if (headerSize < 12 || headerSize > 124 || pixelOffset < FileHeaderSize + headerSize)
        return false;
    const bool isOldHeader = headerSize == 12;
    const std::uint32_t width = isOldHeader ? reader.Little16() : reader.Little32();
    const std::uint32_t height = isOldHeader ? reader.Little16() : reader.Little32();
    if (!SetBmpSize(header, static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)))
        return false;
    reader.Skip(2);
    const std::uint64_t depth = reader.Little16();
    // The library misplaces the palette behind an old header.
    if (depth < 1 || depth > 32 || (isOldHeader && depth < 24))
        return false;

    // The last row may lack its padding.
    const std::uint64_t rowSize = (width * depth + 31) / 32 * 4;
    header.fewestFileBytes = pixelOffset +
                             rowSize * (static_cast<std::uint64_t>(header.height) - 1) +
                             (width * depth + 7) / 8;
    header.largestBlock = PixelCount(header) * 4;
    return true;
}

struct TgaHeader
{
    explicit TgaHeader(ImageBytes file)
    {
        ByteReader reader(file);
        idLength = reader.Byte();
        hasPalette = reader.Byte();
        type = reader.Byte();
        paletteStart = reader.Little16();
        paletteLength = reader.Little16();
        paletteDepth = reader.Byte();
        reader.Skip(4);
        width = reader.Little16();
        height = reader.Little16();
        depth = reader.Byte();
    }

    [[nodiscard]] bool IsRunLengthCoded() const { return type >= 8; }

    [[nodiscard]] bool IsSound() const
    {
        const std::uint32_t plainType = IsRunLengthCoded() ? type - 8 : type;
        if (hasPalette == 1)
            return plainType == 1 && (depth == 8 || depth == 16) && IsPixelDepth(paletteDepth);
        return hasPalette == 0 && (plainType == 2 || plainType == 3) && IsPixelDepth(depth);
    }

    /// Bytes before the pixels.
    [[nodiscard]] std::uint64_t PixelOffset() const
    {
        constexpr std::uint64_t Size = 18;
        const std::uint64_t palette =
            hasPalette == 1 ? paletteStart + paletteLength * ((paletteDepth + 7) / 8) : 0;
        return Size + idLength + palette;
    }

    std::uint32_t idLength = 0;
    std::uint32_t hasPalette = 0;
    std::uint32_t type = 0;
    std::uint64_t paletteStart = 0;
    std::uint64_t paletteLength = 0;
    std::uint64_t paletteDepth = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint64_t depth = 0;

private:
    static bool IsPixelDepth(std::uint64_t bits)
    {
        return bits == 8 || bits == 15 || bits == 16 || bits == 24 || bits == 32;
    }
};

bool ReadTgaHeader(ImageBytes file, ImageHeader& header)
{
    const TgaHeader tga(file);
    if (!tga.IsSound() || !SetSize(header, tga.width, tga.height))
        return false;
    const std::uint64_t pixels = PixelCount(header);
    const std::uint64_t pixelBytes = (tga.depth + 7) / 8;
    constexpr std::uint64_t LongestRun = 128;
    header.fewestFileBytes =
        tga.PixelOffset() + (tga.IsRunLengthCoded()
                                 ? (pixels + LongestRun - 1) / LongestRun * (1 + pixelBytes)
                                 : pixels * pixelBytes);
    header.largestBlock = pixels * 4;
    return true;
}

bool ReadJpegHeader(ImageBytes file, ImageHeader& header)
{
    JpegStructure structure;
    if (!ReadJpegStructure(file, structure))
        return false;
    if (!SetSize(header, structure.width, structure.height))
        return false;

    // Every block of 8 by 8 samples takes a bit at least, and another one that ends it, unless its
    // details come in later scans.
    const std::uint64_t blockBits = structure.isProgressive ? 1 : 2;
    header.fewestFileBytes = structure.BlockCount() * blockBits / 8;

    constexpr std::uint64_t MostPadding = 32;
    const std::uint64_t samples =
        (structure.width + MostPadding) * (structure.height + MostPadding);
    header.largestBlock = samples * 4;
    return true;
}

} // namespace

bool ReadImageHeader(ImageBytes file, ImageHeader& header)
{
    if (StartsWith(file, PngSignature))
        return ReadPngHeader(file, header);
    if (file.size() >= 2 && file[0] == 'B' && file[1] == 'M')
        return ReadBmpHeader(file, header);
    if (file.size() >= 2 && file[0] == 0xFF && file[1] == 0xD8)
        return ReadJpegHeader(file, header);
    return ReadTgaHeader(file, header);
}

bool HasImageSignature(ImageBytes start)
{
    if (StartsWith(start, PngSignature))
        return true;
    if (start.size() < 2)
        return false;
    if ((start[0] == 'B' && start[1] == 'M') || (start[0] == 0xFF && start[1] == 0xD8))
        return true;
    return TgaHeader(start).IsSound();
}

bool IsInProportion(const ImageHeader& header, std::uint64_t fileSize)
{
    constexpr std::uint64_t AlwaysGranted = std::uint64_t{4096} * 4096;
    constexpr std::uint64_t PixelsForOneByte = 16;
    const std::uint64_t pixels = PixelCount(header);
    return header.fewestFileBytes <= fileSize && pixels * 4 <= CKelvoUiDib::MaxStorageSize &&
           pixels <= AlwaysGranted + PixelsForOneByte * fileSize;
}
