#include "materials/texture_splitting.h"

#include "host/app/dib.h"
#include "host/geokit/texture.h"

namespace {

/// Writes the image; on success the texture shows the file, otherwise it is off.
bool WriteForTexture(const CKelvoDib& image, const GK_wString& file, GK_Texture& texture)
{
    texture.on = image.WriteToFile(file.Array()) != 0;
    if (texture.on)
        texture.filename = file;
    return texture.on;
}

} // namespace

bool SplitTexture(GK_Texture& diffuse, GK_Texture& alpha)
{
    const GK_wString source = diffuse.filename;
    const int dot = source.ReverseFind(L'.');
    CKelvoDib image;
    if (dot < 0 || image.ReadFromFile(source.Array()) == 0)
        return false;
    GK_wString colorFile = source.Left(dot);
    GK_wString alphaFile = colorFile;
    colorFile += L"_kvDiffuse.png";
    alphaFile += L"_kvAlpha.png";

    bool white = true;
    CKelvoDib alphaImage;
    const bool isTransparent = SplitImage(image, alphaImage, white);
    bool alphaWritten = false;
    if (isTransparent) {
        alphaWritten = WriteForTexture(alphaImage, alphaFile, alpha);
        if (alphaWritten)
            alpha.type = GK_Texture::TYPE::transparency_texture;
        alphaImage.DestroyDib();
    }
    const bool colorWritten = !white && WriteForTexture(image, colorFile, diffuse);
    if (isTransparent && (alphaWritten || colorWritten)) {
        diffuse.on = colorWritten;
        return true;
    }
    diffuse.on = true;
    return false;
}
