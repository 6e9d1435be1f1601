#include "objimport/exchange/glb_materials.h"

#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/linear_color.h"

#include "host/runtime/file.h"

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace {

std::vector<double> LinearColor(const GK_Color& color, double opacity)
{
    return {LinearChannel(color.Red()), LinearChannel(color.Green()), LinearChannel(color.Blue()),
            opacity};
}

/// Returns the last part of a path in any platform's form.
std::string FileName(const GK_wString& path)
{
    const std::wstring_view text = path.View();
    const std::size_t slash = text.find_last_of(L"/\\");
    return GK_wString(std::wstring(text.substr(slash + 1))).Utf8(); // npos + 1 is 0
}

/// Returns a path with the separators of this system.
std::string NativeName(const GK_wString& path)
{
    std::string name = path.Utf8();
    if (std::filesystem::path::preferred_separator == '/')
        std::replace(name.begin(), name.end(), '\\', '/');
    return name;
}

/// Returns the beginning of a list of names, in their order.
std::string FirstOf(const std::set<std::string>& names)
{
    constexpr std::size_t Most = 5;
    std::string text;
    std::size_t count = 0;
    for (const std::string& name : names) {
        if (count++ == Most)
            return text + ", ...";
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

/// Returns how a material looks that has neither metal nor image, seen from both sides.
tinygltf::Material MakeMaterial(const std::vector<double>& color, double roughness)
{
    tinygltf::Material made;
    made.pbrMetallicRoughness.baseColorFactor = color;
    made.pbrMetallicRoughness.metallicFactor = 0.0;
    made.pbrMetallicRoughness.roughnessFactor = roughness;
    made.doubleSided = true;
    return made;
}

} // namespace

GlbMaterials::GlbMaterials(const ExchangeDocument& document, tinygltf::Model& model,
                           GlbBuffer& buffer)
    : m_document(document), m_model(model), m_buffer(buffer),
      m_indices(document.materials.size(), -1)
{
    MarkUsed();
    for (std::size_t i = 0; i < m_indices.size(); ++i) {
        if (m_indices[i] < 0)
            continue;
        m_indices[i] = static_cast<int>(m_model.materials.size());
        AddMaterial(document.materials[i]);
    }
}

/// Sets the indices of used materials to 0.
void GlbMaterials::MarkUsed()
{
    const auto count = static_cast<int>(m_indices.size());
    for (const ExchangeObject& object : m_document.objects) {
        const GK_MdxObjectAttributes& attributes = *object.attributes;
        const int index = attributes.materialIndex;
        if (attributes.MaterialSource() == GK::material_from_object && index >= 0 && index < count)
            m_indices[static_cast<std::size_t>(index)] = 0;
    }
}

int GlbMaterials::MaterialFor(int documentIndex)
{
    if (documentIndex >= 0 && documentIndex < static_cast<int>(m_indices.size()))
        return m_indices[static_cast<std::size_t>(documentIndex)];
    if (m_plain < 0) {
        // glTF's own would be of metal.
        m_plain = static_cast<int>(m_model.materials.size());
        m_model.materials.push_back(MakeMaterial({1.0, 1.0, 1.0, 1.0}, 1.0));
    }
    return m_plain;
}

void GlbMaterials::AddMaterial(const GK_Material& material)
{
    const double opacity = 1.0 - material.Transparency();
    const TextureNames names = NamesOf(material);
    const TextureFound found = FindOrAddTexture(names);
    const bool isCovered = found.texture >= 0 && !names.colors.IsEmpty();
    tinygltf::Material made =
        MakeMaterial(LinearColor(isCovered ? GK_Color(255, 255, 255) : material.Diffuse(), opacity),
                     1.0 - material.Shine() / GK_Material::MaxShine());
    made.name = material.Name().Utf8();
    made.pbrMetallicRoughness.baseColorTexture.index = found.texture;
    if (opacity < 1.0 || found.isTransparent)
        made.alphaMode = "BLEND";
    m_model.materials.push_back(std::move(made));
}

GlbMaterials::TextureNames GlbMaterials::NamesOf(const GK_Material& material)
{
    TextureNames names;
    const auto take = [this](GK_wString& name, const GK_Texture& texture) {
        if (name.IsEmpty())
            name = texture.filename;
        else
            ++m_further;
    };
    for (const GK_Texture& texture : material.Textures()) {
        if (!texture.on || texture.filename.IsEmpty())
            continue;
        if (texture.type == GK_Texture::TYPE::bitmap_texture)
            take(names.colors, texture);
        else if (texture.type == GK_Texture::TYPE::transparency_texture)
            take(names.alpha, texture);
        else
            ++m_bumps;
    }
    return names;
}

GlbMaterials::TextureFound GlbMaterials::FindOrAddTexture(const TextureNames& names)
{
    if (names.colors.IsEmpty() && names.alpha.IsEmpty())
        return {};
    const Key key = {FileKey(names.colors.Array()), FileKey(names.alpha.Array())};
    const auto known = m_textures.find(key);
    if (known != m_textures.end())
        return known->second;
    return m_textures.emplace(key, AddTexture(names)).first->second;
}

void GlbMaterials::NoteLost(TextureState state, const GK_wString& name)
{
    if (state != TextureState::Read)
        (state == TextureState::Missing ? m_missing : m_broken).insert(NativeName(name));
}

/// Reads the colours and the alpha as one image, or what of the two can be read.
TextureState GlbMaterials::ReadImage(const TextureNames& names, EmbeddedImage& image)
{
    const bool hasAlpha =
        !names.alpha.IsEmpty() && FileKey(names.alpha.Array()) != FileKey(names.colors.Array());
    if (!hasAlpha) {
        const TextureState state = ReadTexture(names.colors, image);
        NoteLost(state, names.colors);
        return state;
    }
    const TextureState both = ReadTextureWithAlpha(names.colors, names.alpha, image);
    if (both == TextureState::Read)
        return both;
    if (names.colors.IsEmpty()) {
        NoteLost(both, names.alpha);
        return both;
    }
    const TextureState colors = ReadTexture(names.colors, image);
    if (colors == TextureState::Read)
        NoteLost(both, names.alpha);
    NoteLost(colors, names.colors);
    return colors;
}

GlbMaterials::TextureFound GlbMaterials::AddTexture(const TextureNames& names)
{
    EmbeddedImage read;
    if (ReadImage(names, read) != TextureState::Read)
        return {};
    tinygltf::Image image;
    image.bufferView = m_buffer.AddImage(read.file);
    image.mimeType = read.isJpeg ? "image/jpeg" : "image/png";
    image.name = FileName(names.colors.IsEmpty() ? names.alpha : names.colors);
    tinygltf::Texture texture;
    texture.source = static_cast<int>(m_model.images.size());
    m_model.images.push_back(std::move(image));
    m_model.textures.push_back(std::move(texture));
    return {static_cast<int>(m_model.textures.size()) - 1, read.isTransparent};
}

void GlbMaterials::SetFirstImageView(int view)
{
    for (tinygltf::Image& image : m_model.images)
        image.bufferView += view;
}

void GlbMaterials::AddLosses(std::vector<std::string>& losses) const
{
    if (!m_missing.empty())
        losses.push_back(
            Counted(m_missing.size(), ExchangeTexts::TexturesMissing, FirstOf(m_missing)));
    if (!m_broken.empty())
        losses.push_back(
            Counted(m_broken.size(), ExchangeTexts::TexturesBroken, FirstOf(m_broken)));
    if (m_bumps > 0)
        losses.push_back(Counted(m_bumps, ExchangeTexts::BumpsLeftOut));
    if (m_further > 0)
        losses.push_back(Counted(m_further, ExchangeTexts::TexturesLeftOut));
}
