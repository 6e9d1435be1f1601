#pragma once

#include "console_host/app/image_builder.h"

#include <functional>
#include <span>

using ImageBytes = std::span<const unsigned char>;

/// Returns whether the first bytes of a file look like a PNG, TGA, BMP or JPEG. Takes
/// ImageSignatureSize bytes, or fewer when the file is shorter.
bool HasImageSignature(ImageBytes start);
constexpr std::size_t ImageSignatureSize = 32;

/// Reads the bytes of a PNG, TGA, BMP or JPEG file. Returns false for anything else, for what
/// ReadFromFile of the image class refuses, and out of memory.
bool ReadImage(ImageBytes file, ImageBuilder& image);

/// Takes the next bytes of a file. Returns false when that fails; never throws.
using PutImageBytes = std::function<bool(ImageBytes)>;

// Each of these reads a file of one kind, whose bytes begin as that kind does. They return false
// for a file that is damaged, truncated or of an unsupported form, for a size that the builder
// refuses, and out of memory.

bool ReadBmp(ImageBytes file, ImageBuilder& image);
bool ReadJpeg(ImageBytes file, ImageBuilder& image);
bool ReadPng(ImageBytes file, ImageBuilder& image);
bool ReadTga(ImageBytes file, ImageBuilder& image);

/// Returns whether the first bytes of a file are the header of a TGA, which has no signature.
bool LooksLikeTga(ImageBytes start);

/// Puts the bytes of a PNG, one part after the other. Returns false when that fails. The image has
/// pixels.
bool WritePng(const CKelvoUiDib& image, const PutImageBytes& put);
