#pragma once

class CKelvoDib;
class GK_wString;
struct GK_Texture;

/// Splits the image of a texture with 32 bits a pixel into two PNG files beside it: the colours
/// ("..._kvDiffuse.png") and the alpha channel as grey ("..._kvAlpha.png"). Sets the textures' file
/// names, on flags and the alpha texture's type accordingly. True when the textures whose on flag
/// is set are to be used instead of the source; false when only `diffuse` is to be used, which then
/// has its source file or, for an image without transparency, the colour file. Every failure leaves
/// the source file in use.
bool SplitTexture(GK_Texture& diffuse, GK_Texture& alpha);

/// The files that a texture's image is split into.
GK_wString ColorFileOf(const GK_wString& source);
GK_wString AlphaFileOf(const GK_wString& source);

/// Splits an image of 32 bits: `image` becomes its own colours with 24 bits and `alphaImage` its
/// alpha channel as grey, or empty when every pixel is opaque. `white`: every pixel has a red,
/// green or blue value of 255. True when some pixel is not opaque. For another depth, or out of
/// memory, the result is false, and `image` and `white` are unchanged.
bool SplitImage(CKelvoDib& image, CKelvoDib& alphaImage, bool& white);
