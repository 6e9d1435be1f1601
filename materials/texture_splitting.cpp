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

GK_wString FileBeside(const GK_wString& source, std::wstring_view ending)
{
    GK_wString name = source.Left(source.ReverseFind(L'.'));
    name += ending;
    return name;
}

} // namespace

GK_wString ColorFileOf(const GK_wString& source)
{
    return FileBeside(source, L"_kvDiffuse.png");
}

GK_wString AlphaFileOf(const GK_wString& source)
{
    return FileBeside(source, L"_kvAlpha.png");
}

bool SplitTexture(GK_Texture& diffuse, GK_Texture& alpha)
{
    const GK_wString source = diffuse.filename;
    CKelvoDib image;
    if (source.ReverseFind(L'.') < 0 || image.ReadFromFile(source.Array()) == 0)
        return false;

    bool white = true;
    CKelvoDib alphaImage;
    const bool isTransparent = SplitImage(image, alphaImage, white);
    bool alphaWritten = false;
    if (isTransparent) {
        alphaWritten = WriteForTexture(alphaImage, AlphaFileOf(source), alpha);
        if (alphaWritten)
            alpha.type = GK_Texture::TYPE::transparency_texture;
        alphaImage.DestroyDib();
    }
    const bool colorWritten = !white && WriteForTexture(image, ColorFileOf(source), diffuse);
    if (isTransparent && (alphaWritten || colorWritten)) {
        diffuse.on = colorWritten;
        return true;
    }
    diffuse.on = true;
    return false;
}
