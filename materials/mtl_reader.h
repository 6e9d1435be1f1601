#pragma once

#include "objreader/obj_line_tokenizer.h"

#include "host/geokit/material.h"

#include <cstdio>
#include <string>

class CKelvoMaterialTable;
class CReadOBJ;

/// The materials of a library, in its order. All have names.
using MtlMaterials = GK_ClassArray<GK_Material>;

/// Adds the materials of a library to a table; the last one only when the table has none of its
/// name.
void EnterMaterials(const MtlMaterials& materials, CKelvoMaterialTable& table);

/// Reads one material library.
class CMtlReader
{
public:
    /// Takes the open stream over. The reader of the OBJ file must outlive this one.
    CMtlReader(CReadOBJ& objReader, std::FILE* stream);

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

    CReadOBJ& m_objReader;
    CObjLineTokenizer m_tokenizer;
    MtlMaterials m_materials;
    GK_Material m_material; ///< being gathered; it has no name before the first "newmtl"
    std::string m_joined;   ///< scratch
};
