#pragma once

#include <cstdint>
#include <span>

using ImageBytes = std::span<const unsigned char>;

/// What the header of an image file claims.
struct ImageHeader
{
    int width = 0;
    int height = 0;

    /// Fewest bytes that a file with such an image takes.
    std::uint64_t fewestFileBytes = 0;

    /// Most bytes that reading such an image takes in one block of memory.
    std::uint64_t largestBlock = 0;
};

/// Reads the header of a PNG, BMP, JPEG or TGA. False for anything else, and for files whose
/// structure the image library is known to mishandle.
bool ReadImageHeader(ImageBytes file, ImageHeader& header);

/// The first bytes of a file look like one of the four kinds. Takes ImageSignatureSize bytes, or
/// fewer when the file is shorter.
bool HasImageSignature(ImageBytes start);
constexpr std::size_t ImageSignatureSize = 32;

/// The image is within the limits, its data can be there, and its pixels are in proportion to the
/// file: any file may hold 4096 x 4096 of them, and another 16 for each of its bytes.
bool IsInProportion(const ImageHeader& header, std::uint64_t fileSize);
