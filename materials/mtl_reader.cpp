#include "materials/mtl_reader.h"

#include "materials/file_location.h"
#include "materials/mtl_color.h"
#include "materials/mtl_statements.h"
#include "materials/split_outcomes.h"
#include "objreader/numbers.h"

CMtlReader::CMtlReader(std::FILE* stream, const FileLocation& location,
                       SplitOutcomes* splitOutcomes)
    : m_tokenizer(stream), m_location(location), m_splitOutcomes(splitOutcomes)
{
}

MtlMaterials CMtlReader::Read()
{
    while (!m_tokenizer.AtEnd() && m_tokenizer.ReadLine()) {
        if (m_tokenizer.TokenCount() > 0 && !HandleStatement())
            break;
    }
    FinishMaterial();
    return std::move(m_materials);
}

/// False ends the reading of the library.
bool CMtlReader::HandleStatement()
{
    switch (FindMtlStatement(m_tokenizer.Token(0))) {
    case MtlStatement::NewMaterial:
        BeginMaterial();
        return true;
    case MtlStatement::AmbientColor:
        return ReadColor(&GK_Material::SetAmbient);
    case MtlStatement::DiffuseColor:
        return ReadColor(&GK_Material::SetDiffuse);
    case MtlStatement::SpecularColor:
        return ReadColor(&GK_Material::SetSpecular);
    case MtlStatement::TransparentColor:
        return ReadMtlColor(m_material.transparent, m_tokenizer);
    case MtlStatement::Shine:
        ReadShine();
        return true;
    case MtlStatement::Opacity:
        ReadOpacity();
        return true;
    case MtlStatement::DiffuseTexture:
        AddTexture(GK_Texture::TYPE::bitmap_texture, JoinTokens(""));
        return true;
    case MtlStatement::TransparencyTexture:
        AddTexture(GK_Texture::TYPE::transparency_texture, JoinTokens(""));
        return true;
    case MtlStatement::BumpTexture:
        AddTexture(GK_Texture::TYPE::bump_texture, JoinTokens(""));
        return true;
    case MtlStatement::SpacedBumpTexture:
        AddTexture(GK_Texture::TYPE::bump_texture, JoinTokens(" ") + " ");
        return true;
    default:
        return true;
    }
}

bool CMtlReader::ReadColor(void (GK_Material::*set)(const GK_Color&))
{
    GK_Color color;
    if (!ReadMtlColor(color, m_tokenizer))
        return false;
    (m_material.*set)(color);
    return true;
}

void CMtlReader::ReadShine()
{
    double percent = 0.0;
    if (m_tokenizer.TokenCount() < 2 || !ReadReal(m_tokenizer.Token(1), percent))
        return;
    // Values above 100 are taken to count in thousandths.
    const double full = percent <= 100.0 ? 100.0 : 1000.0;
    m_material.SetShine(GK_Material::MaxShine() * (percent / full));
}

void CMtlReader::ReadOpacity()
{
    double opacity = 0.0;
    if (m_tokenizer.TokenCount() >= 2 && ReadReal(m_tokenizer.Token(1), opacity))
        m_material.SetTransparency(1.0 - opacity);
}

void CMtlReader::BeginMaterial()
{
    if (m_tokenizer.TokenCount() < 2)
        return;
    FinishMaterial();
    m_material.Default();
    m_material.SetName(GK_wString(std::string_view(JoinTokens(" "))));
}

void CMtlReader::FinishMaterial()
{
    if (!m_material.Name().IsEmpty())
        m_materials.Append(m_material);
}

void CMtlReader::AddTexture(GK_Texture::TYPE type, std::string_view fileName)
{
    if (m_tokenizer.TokenCount() < 2)
        return;
    GK_Texture texture;
    texture.filename = GK_wString(fileName);
    // A full name needs no completing.
    if (!m_location.CompletePath(texture.filename) &&
        !(IsFullFileName(texture.filename.View()) && HasShortParts(texture.filename.View())))
        return;
    texture.type = type;
    if (type == GK_Texture::TYPE::bump_texture)
        texture.blendConstant = 0.5;
    if (type == GK_Texture::TYPE::bitmap_texture && m_splitOutcomes != nullptr)
        AddSplitTexture(texture);
    else
        m_material.AddTexture(texture);
}

void CMtlReader::AddSplitTexture(GK_Texture& diffuse)
{
    GK_Texture alpha;
    const bool isSplit = m_splitOutcomes->Split(diffuse, alpha);
    if (!isSplit || diffuse.on)
        m_material.AddTexture(diffuse);
    if (isSplit && alpha.on)
        m_material.AddTexture(alpha);
}

/// The tokens after the keyword as one text, valid until the next call.
const std::string& CMtlReader::JoinTokens(std::string_view between)
{
    m_joined.clear();
    for (int i = 1; i < m_tokenizer.TokenCount(); ++i) {
        if (i > 1)
            m_joined += between;
        m_joined += m_tokenizer.Token(i);
    }
    return m_joined;
}
