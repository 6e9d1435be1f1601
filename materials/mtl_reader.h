#pragma once

#include "objreader/obj_line_tokenizer.h"

#include "host/geokit/material.h"

#include <cstdio>
#include <string>

class CReadOBJ;

/// Reads one material library into the material table of the document that is imported into.
class CMtlReader
{
public:
    /// Takes the open stream over. The reader of the OBJ file must outlive this one.
    CMtlReader(CReadOBJ& objReader, std::FILE* stream);

    /// Reads to the end of the library, or to the first colour that cannot be read. Each material
    /// is added to the table when the next one begins, the last one at the end, and that only when
    /// the table has none of its name.
    void Read();

    /// Reading broke off with an error of the stream.
    [[nodiscard]] bool ReadFailed() const { return m_tokenizer.ReadFailed(); }

private:
    bool HandleStatement();
    bool ReadColor(void (GK_Material::*set)(const GK_Color&));
    void ReadShine();
    void ReadOpacity();

    void BeginMaterial();
    void FinishLastMaterial();

    void AddTexture(GK_Texture::TYPE type, std::string_view fileName);
    void AddSplitTexture(GK_Texture& diffuse);

    const std::string& JoinTokens(std::string_view between);

    CReadOBJ& m_objReader;
    CObjLineTokenizer m_tokenizer;
    GK_Material m_material; ///< being gathered; it has no name before the first "newmtl"
    std::string m_joined;   ///< scratch
};
