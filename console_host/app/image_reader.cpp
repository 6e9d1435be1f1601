#include "console_host/app/image_reader.h"

#include "console_host/app/dib_layout.h"
#include "console_host/app/image_library.h"

#include "host/app/dib.h"

#include <utility>

namespace {

/// Turns a row of the library's pixels into one of an image: `Channels` bytes a pixel in, with or
/// without alpha, as 3 or 4 bytes out.
template <int Channels>
void ConvertRow(const unsigned char* from, unsigned char* to, int width)
{
    constexpr bool IsGrey = Channels <= 2;
    constexpr bool HasAlpha = Channels % 2 == 0;
    for (int x = 0; x < width; ++x) {
        to[0] = from[IsGrey ? 0 : 2];
        to[1] = from[IsGrey ? 0 : 1];
        to[2] = from[0];
        if constexpr (HasAlpha)
            to[3] = from[Channels - 1];
        from += Channels;
        to += HasAlpha ? 4 : 3;
    }
}

/// The library's top row comes first, the image's comes last.
template <int Channels>
void ConvertRows(const LibraryImage& from, CKelvoUiDib& to)
{
    const std::size_t rowSize = DibRowSize(to.Width(), to.GetDepth());
    const unsigned char* source = from.pixels;
    unsigned char* target = to.FindDIBBits() + to.GetStorageSize();
    for (int y = 0; y < from.height; ++y) {
        target -= rowSize;
        ConvertRow<Channels>(source, target, from.width);
        source += static_cast<std::size_t>(from.width) * Channels;
    }
}

void ConvertImage(const LibraryImage& from, CKelvoUiDib& to)
{
    switch (from.channels) {
    case 1:
        return ConvertRows<1>(from, to);
    case 2:
        return ConvertRows<2>(from, to);
    case 3:
        return ConvertRows<3>(from, to);
    default:
        return ConvertRows<4>(from, to);
    }
}

} // namespace

bool ReadImage(ImageBytes file, CKelvoUiDib& image)
{
    ImageHeader header;
    if (!ReadImageHeader(file, header) || !IsInProportion(header, file.size()))
        return false;

    // Beside the image's own blocks, the library gathers the file's data in a block that it doubles
    // as needed, and keeps its tables.
    constexpr std::uint64_t Tables = std::uint64_t{512} << 10U;
    LibraryMemory memory(header.largestBlock + 2 * file.size() + Tables,
                         LibraryMemory::WhenExhausted::GiveNull);
    const LibraryImage decoded = ReadLibraryImage(file, memory);
    if (decoded.pixels == nullptr)
        return false;
    CKelvoUiDib result;
    const int depth = decoded.channels % 2 == 0 ? 32 : 24;
    if (!result.CreateDib(decoded.width, decoded.height, depth, true))
        return false;
    ConvertImage(decoded, result);
    image = std::move(result);
    return true;
}
