#include "console_host/app/image_codecs.h"
#include "tests/png_checksums.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <numeric>
#include <string>
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
    if (image.Width() * image.Height() > 4096)
        return;
    std::vector<unsigned char> png;
    const auto append = [&](ImageBytes bytes) {
        png.insert(png.end(), bytes.begin(), bytes.end());
        return true;
    };
    if (!WritePng(image, append))
        std::abort();

    ImageBuilder back(png.size());
    if (!ReadImage(png, back) || back.Width() != image.Width() || back.Height() != image.Height())
        std::abort();
    const auto used = static_cast<std::size_t>(image.Width() * image.GetDepth() / 8);
    for (int y = 0; y < image.Height(); ++y) {
        const unsigned char* const row = DibRow(image, y);
        if (!std::equal(row, row + used, back.Row(static_cast<std::uint32_t>(y))))
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    std::string file(reinterpret_cast<const char*>(data), size);
    RepairPngChecksums(file);
    const std::vector<unsigned char> bytes(file.begin(), file.end()); // of its exact size
    ImageBuilder builder(bytes.size());
    if (ReadImage(bytes, builder)) {
        const CKelvoUiDib image = builder.TakeImage();
        CheckStorage(image);
        CheckWriting(image);
    }
    return 0;
}
