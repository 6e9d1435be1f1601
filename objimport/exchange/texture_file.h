#pragma once

#include "host/app/dib.h"
#include "host/geokit/string.h"

#include <string>
#include <vector>

/// An image as it can stand in another file.
struct EmbeddedImage
{
    std::vector<unsigned char> file; ///< a PNG or JPEG
    bool isJpeg = false;
    bool isTransparent = false; ///< some of it is not opaque
};

/// The outcome of reading a texture's file.
enum class TextureState
{
    Read,
    Missing, ///< there is none of that name
    Broken   ///< it is no PNG, JPEG, TGA or BMP, is damaged, or is too large
};

/// Reads a texture's file, found as the host finds it. A PNG or JPEG stays as it is, what else the
/// host reads becomes a PNG. Throws std::bad_alloc when out of memory.
TextureState ReadTexture(const GK_wString& name, EmbeddedImage& image);

/// Reads the pixels of an image, as opaque as another one says: by its alpha channel, or by its
/// brightness when it has none. Without the name of the first it is white, without that of the
/// other it stays as it is; one of them is not empty. The state is that of the first of the two
/// that could not be read. Throws std::bad_alloc when out of memory.
TextureState ReadPixels(const GK_wString& colors, const GK_wString& alpha, CKelvoDib& image);

/// Reads both images in the same way, as one PNG.
TextureState ReadTextureWithAlpha(const GK_wString& colors, const GK_wString& alpha,
                                  EmbeddedImage& image);
