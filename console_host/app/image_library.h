#pragma once

#include "console_host/app/image_header.h"
#include "console_host/app/library_memory.h"

/// An image as the image library gives it: the top row first, no padding, and for each pixel grey,
/// grey and alpha, red, green and blue, or those and alpha.
struct LibraryImage
{
    const unsigned char* pixels = nullptr; ///< belongs to the memory
    int width = 0;
    int height = 0;
    int channels = 0; ///< 1 to 4
};

/// Reads a PNG, TGA, BMP or JPEG that has passed ReadImageHeader. The pixels are null on failure.
LibraryImage ReadLibraryImage(ImageBytes file, LibraryMemory& memory);

/// The bytes of a PNG file, or none on failure; they belong to the memory.
ImageBytes MakePng(const LibraryImage& image, LibraryMemory& memory);
