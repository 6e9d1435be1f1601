#include "console_host/app/image_library.h"
#include "console_host/app/image_reader.h"

#include "host/app/dib.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <numeric>
#include <vector>

namespace {

/// Every byte of the pixel storage can be read, and there are some.
void CheckStorage(const CKelvoUiDib& image)
{
    const unsigned char* bits = image.FindDIBBits();
    const auto sum = std::accumulate(bits, bits + image.GetStorageSize(), std::uint64_t{0});
    if (image.GetStorageSize() == 0 || sum > 255 * image.GetStorageSize())
        std::abort();
}

/// A small image written as a PNG reads back as the same picture.
void CheckWriting(const CKelvoUiDib& image)
{
    const int channels = image.GetDepth() / 8;
    const int pixels = image.Width() * image.Height();
    if (pixels > 4096)
        return;
    std::vector<unsigned char> bytes(static_cast<std::size_t>(pixels * channels));
    std::memcpy(bytes.data(), image.FindDIBBits(), bytes.size());
    const LibraryImage written{bytes.data(), image.Width(), image.Height(), channels};

    LibraryMemory memory(std::numeric_limits<std::uint64_t>::max(),
                         LibraryMemory::WhenExhausted::Throw);
    const ImageBytes png = MakePng(written, memory);
    const LibraryImage back = ReadLibraryImage(png, memory);
    if (back.pixels == nullptr || !std::equal(bytes.begin(), bytes.end(), back.pixels))
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CKelvoUiDib image;
    if (ReadImage({data, size}, image)) {
        CheckStorage(image);
        CheckWriting(image);
    }
    return 0;
}
