#pragma once

#include "console_host/app/image_codecs.h"

/// Returns whether the first bytes of a file look like a PNG, TGA, BMP or JPEG. Takes
/// ImageSignatureSize bytes, or fewer when the file is shorter.
bool HasImageSignature(ImageBytes start);
constexpr std::size_t ImageSignatureSize = 32;

/// Reads the bytes of a PNG, TGA, BMP or JPEG file. Returns false for anything else, for what
/// ReadFromFile of the image class refuses, and out of memory.
bool ReadImage(ImageBytes file, ImageBuilder& image);
