#pragma once

#include "host/geokit/string.h"

/// An image that a material shows, a plain value. A default-made one is on, with a blend of 1 and
/// no file.
struct GK_Texture
{
    enum class TYPE
    {
        no_texture_type = 0,
        bitmap_texture = 1,
        bump_texture = 2,
        transparency_texture = 3
    };

    TYPE type = TYPE::bitmap_texture;
    GK_wString filename;
    bool on = true;
    double blendConstant = 1.0; ///< the constant blend value, 0 to 1
};
