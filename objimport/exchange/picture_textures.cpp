#include "objimport/exchange/picture_textures.h"

#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/texture_file.h"

#include <algorithm>
#include <array>

namespace {

/// Returns how many pixels of an image become one, in each direction.
int StepOf(const CKelvoDib& image)
{
    constexpr int LongestSide = 1024;
    return (std::max(image.Width(), image.Height()) + LongestSide - 1) / LongestSide;
}

/// Returns the mean of a square of pixels that begins there, as far as it is in the image.
std::array<std::uint8_t, 4> Mean(const CKelvoDib& image, int left, int bottom, int step)
{
    const auto depth = static_cast<std::size_t>(image.GetDepth()) / 8;
    const std::size_t row = image.GetStorageSize() / static_cast<std::size_t>(image.Height());
    std::array<std::uint64_t, 4> sums{};
    std::uint64_t count = 0;
    for (int y = bottom; y < std::min(bottom + step, image.Height()); ++y)
        for (int x = left; x < std::min(left + step, image.Width()); ++x) {
            const unsigned char* pixel = image.FindDIBBits() + row * static_cast<std::size_t>(y) +
                                         depth * static_cast<std::size_t>(x);
            const std::array<std::uint8_t, 4> channels = {
                pixel[2], pixel[1], pixel[0], depth == 4 ? pixel[3] : std::uint8_t{255}};
            for (std::size_t i = 0; i < channels.size(); ++i)
                sums[i] += channels[i];
            ++count;
        }
    std::array<std::uint8_t, 4> mean{};
    for (std::size_t i = 0; i < mean.size(); ++i)
        mean[i] = static_cast<std::uint8_t>((sums[i] + count / 2) / count);
    return mean;
}

PictureImage Shrunk(const CKelvoDib& image)
{
    const int step = StepOf(image);
    PictureImage shrunk;
    shrunk.width = (image.Width() + step - 1) / step;
    shrunk.height = (image.Height() + step - 1) / step;
    shrunk.pixels.reserve(static_cast<std::size_t>(shrunk.width) *
                          static_cast<std::size_t>(shrunk.height) * 4);
    for (int y = 0; y < image.Height(); y += step)
        for (int x = 0; x < image.Width(); x += step) {
            const auto mean = Mean(image, x, y, step);
            shrunk.pixels.insert(shrunk.pixels.end(), mean.begin(), mean.end());
            shrunk.isTransparent = shrunk.isTransparent || mean[3] < 255;
        }
    return shrunk;
}

} // namespace

PictureTextures::PictureTextures(const ExchangeDocument& document)
    : m_byMaterial(document.materials.size())
{
    std::vector<bool> isKnown(m_byMaterial.size());
    for (const ExchangeObject& object : document.objects) {
        const int index = object.attributes->materialIndex;
        if (object.attributes->MaterialSource() != GK::material_from_object || index < 0 ||
            index >= std::ssize(m_byMaterial))
            continue;
        const auto at = static_cast<std::size_t>(index);
        if (!isKnown[at])
            m_byMaterial[at] = FindOrRead(NamesOf(document.materials[at]));
        isKnown[at] = true;
    }
}

PictureTextures::Names PictureTextures::NamesOf(const GK_Material& material)
{
    Names names;
    for (const GK_Texture& texture : material.Textures()) {
        if (!texture.on)
            continue;
        if (texture.type == GK_Texture::TYPE::bitmap_texture && names.first.empty())
            names.first = texture.filename.View();
        if (texture.type == GK_Texture::TYPE::transparency_texture && names.second.empty())
            names.second = texture.filename.View();
    }
    return names;
}

const PictureImage* PictureTextures::FindOrRead(const Names& names)
{
    if (names.first.empty() && names.second.empty())
        return nullptr;
    const auto [place, isNew] = m_images.try_emplace(names);
    if (!isNew)
        return place->second.get();
    CKelvoDib pixels;
    const TextureState state =
        ReadPixels(GK_wString(names.first), GK_wString(names.second), pixels);
    if (state == TextureState::Read)
        place->second = std::make_unique<PictureImage>(Shrunk(pixels));
    else
        ++(state == TextureState::Missing ? m_missing : m_broken);
    return place->second.get();
}

const PictureImage* PictureTextures::ImageFor(int material) const
{
    return material >= 0 && material < std::ssize(m_byMaterial)
               ? m_byMaterial[static_cast<std::size_t>(material)]
               : nullptr;
}

void PictureTextures::AppendLosses(std::vector<std::string>& losses) const
{
    if (m_missing > 0)
        losses.push_back(Counted(m_missing, ExchangeTexts::PictureTexturesMissing));
    if (m_broken > 0)
        losses.push_back(Counted(m_broken, ExchangeTexts::PictureTexturesBroken));
}
