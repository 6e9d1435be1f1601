#pragma once

#include "objreader/obj_line_tokenizer.h"

#include "host/geokit/material.h"

#include <cstdio>
#include <string>

class FileLocation;
class SplitOutcomes;

/// The materials of a library, in its order. All have names.
using MtlMaterials = GK_ClassArray<GK_Material>;

/// Reads one material library.
class CMtlReader
{
public:
    /// Takes the open stream over. `location` is where the OBJ file stands. Diffuse textures are
    /// split into `splitOutcomes`; null: they are not split. Both must outlive the reader.
    CMtlReader(std::FILE* stream, const FileLocation& location, SplitOutcomes* splitOutcomes);

    /// Returns the materials up to the end of the library, or to the first colour that cannot be
    /// read. To be called once.
    MtlMaterials Read();

    /// Reading broke off with an error of the stream.
    [[nodiscard]] bool ReadFailed() const { return m_tokenizer.ReadFailed(); }

private:
    bool HandleStatement();
    bool ReadColor(void (GK_Material::*set)(const GK_Color&));
    void ReadShine();
    void ReadOpacity();

    void BeginMaterial();
    void FinishMaterial();

    void AddTexture(GK_Texture::TYPE type, std::string_view fileName);
    void AddSplitTexture(GK_Texture& diffuse);

    const std::string& JoinTokens(std::string_view between);

    CObjLineTokenizer m_tokenizer;
    const FileLocation& m_location;
    SplitOutcomes* m_splitOutcomes;
    MtlMaterials m_materials;
    GK_Material m_material; ///< being gathered; it has no name before the first "newmtl"
    std::string m_joined;   ///< scratch
};
