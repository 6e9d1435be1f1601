#include "console_host/app/image_library.h"

#include "host/app/dib.h"

// The library is compiled here, without warnings, and stays inside this file. Its memory is cleared
// and limited, it never asserts, and leaves files to its callers.
#define STBI_MALLOC(size) LibraryMemory::Current().Allocate(size)
#define STBI_REALLOC(block, size) LibraryMemory::Current().Reallocate(block, size)
#define STBI_FREE(block) LibraryMemory::Free(block)
#define STBI_ASSERT(condition) static_cast<void>(0)
#define STBI_MAX_DIMENSIONS CKelvoUiDib::MaxSide
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_ONLY_PNG
#define STBI_ONLY_TGA
#define STBI_ONLY_BMP
#define STBI_ONLY_JPEG
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#include <stb/stb_image.h>

#define STBIW_MALLOC(size) LibraryMemory::Current().Allocate(size)
#define STBIW_REALLOC(block, size) LibraryMemory::Current().Reallocate(block, size)
#define STBIW_FREE(block) LibraryMemory::Free(block)
#define STBIW_ASSERT(condition) static_cast<void>(0)
#define STBI_WRITE_NO_STDIO
#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <limits>
#include <stb/stb_image_write.h>

LibraryImage ReadLibraryImage(ImageBytes file, LibraryMemory& memory)
{
    if (file.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return {};
    const LibraryMemory::Use use(memory);
    LibraryImage image;
    image.pixels = stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &image.width,
                                         &image.height, &image.channels, 0);
    return image;
}

ImageBytes MakePng(const LibraryImage& image, LibraryMemory& memory)
{
    // The library counts in int and may double a buffer that holds the data grown by an eighth.
    constexpr std::uint64_t MostData = 900'000'000;
    const std::uint64_t rowSize = static_cast<std::uint64_t>(image.width * image.channels) + 1;
    if (rowSize * static_cast<std::uint64_t>(image.height) > MostData)
        return {};

    // The lowest level that the library knows: for a fifth more bytes than the highest it takes a
    // fraction of its time.
    stbi_write_png_compression_level = 5;
    const LibraryMemory::Use use(memory);
    int size = 0;
    const unsigned char* bytes =
        stbi_write_png_to_mem(image.pixels, 0, image.width, image.height, image.channels, &size);
    if (bytes == nullptr)
        return {};
    return {bytes, static_cast<std::size_t>(size)};
}
