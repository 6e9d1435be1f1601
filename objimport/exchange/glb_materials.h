#pragma once

#include "objimport/exchange/exchange.h"
#include "objimport/exchange/glb_buffer.h"
#include "objimport/exchange/texture_file.h"

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <tiny_gltf.h>
#include <vector>

/// Puts the materials of a document that its objects use, and their textures, into a glTF model.
class GlbMaterials
{
public:
    GlbMaterials(const ExchangeDocument& document, tinygltf::Model& model, GlbBuffer& buffer);

    /// Returns the model's material for an index of the document's; for -1, and any index that the
    /// document lacks, that of objects without one.
    int MaterialFor(int documentIndex);

    /// Sets where the images stand, when the buffer is finished.
    void SetFirstImageView(int view);

    /// Appends what is not in the file.
    void AddLosses(std::vector<std::string>& losses) const;

private:
    /// The files of a material's textures; empty names for those it has not.
    struct TextureNames
    {
        GK_wString colors;
        GK_wString alpha;
    };

    struct TextureFound
    {
        int texture = -1; ///< in the model; -1: there is none
        bool isTransparent = false;
    };

    using Key = std::pair<std::filesystem::path, std::filesystem::path>;

    void MarkUsed();
    void AddMaterial(const GK_Material& material);
    TextureNames NamesOf(const GK_Material& material);
    TextureFound FindOrAddTexture(const TextureNames& names);
    TextureFound AddTexture(const TextureNames& names);
    TextureState ReadImage(const TextureNames& names, EmbeddedImage& image);
    void NoteLost(TextureState state, const GK_wString& name);

    const ExchangeDocument& m_document;
    tinygltf::Model& m_model;
    GlbBuffer& m_buffer;
    std::vector<int> m_indices; ///< in the model, of the document's materials; -1: not used
    int m_plain = -1;           ///< the material of objects without one
    std::map<Key, TextureFound> m_textures;
    std::set<std::string> m_missing; ///< files
    std::set<std::string> m_broken;
    std::size_t m_bumps = 0;
    std::size_t m_further = 0; ///< colour and alpha textures after the first of a material
};
