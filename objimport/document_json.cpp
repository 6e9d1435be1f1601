#include "objimport/document_json.h"

#include "objimport/geometry_json.h"
#include "objimport/indices.h"
#include "objimport/json_stream.h"
#include "objimport/texture_files.h"

#include <array>

namespace {

/// Returns a name; none when it is empty.
std::optional<std::string> TextOf(const GK_wString& name)
{
    return name.IsEmpty() ? std::nullopt : std::optional(name.Utf8());
}

std::optional<std::string> TextOf(const GK_UUID& id)
{
    return id == GK_nil_uuid ? std::nullopt : std::optional(GK_UuidToString(id));
}

std::array<int, 3> ChannelsOf(const GK_Color& color)
{
    return {color.Red(), color.Green(), color.Blue()};
}

const char* TextureType(GK_Texture::TYPE type)
{
    switch (type) {
    case GK_Texture::TYPE::bitmap_texture:
        return "bitmap";
    case GK_Texture::TYPE::bump_texture:
        return "bump";
    case GK_Texture::TYPE::transparency_texture:
        return "transparency";
    default:
        return "none";
    }
}

void WriteImport(JsonStream& json, const ImportRecord& import)
{
    const ImportJournal& journal = import.journal;
    json.BeginObject();
    json.Members("file", import.file, "result", import.result, "outcome", OutcomeOf(import),
                 "zoomed", journal.zoomed, "redrawn", journal.redrawn);
    json.ListMember("prints", journal.prints, [&](const std::string& text) { json.Value(text); });
    json.ListMember("boxes", journal.boxes, [&](const ImportJournal::Box& box) {
        json.Object("text", box.text, "caption", box.caption, "flags", static_cast<int>(box.flags));
    });
    json.ListMember("kernel_errors", journal.kernelErrors,
                    [&](const ImportJournal::KernelError& error) {
                        for (int i = 0; i < error.times; ++i)
                            json.Object("source", error.source, "text", error.text);
                    });
    std::size_t place = 0;
    json.ListMember("refused", journal.refused, [&](const ImportJournal::Refusal& refusal) {
        json.BeginObject();
        json.Members("type", refusal.type, "reason", refusal.reason);
        if (refusal.number > 0)
            json.Members("number", refusal.number);
        if (const auto name = journal.refusedNames.find(place++);
            name != journal.refusedNames.end())
            json.Members("name", name->second);
        json.EndObject();
    });
    json.EndObject();
}

void WriteLayer(JsonStream& json, const GK_Layer& layer)
{
    json.Object("name", TextOf(layer.name), "id", GK_UuidToString(layer.id), "parent",
                TextOf(layer.parentId));
}

void WriteGroup(JsonStream& json, const GK_Group& group)
{
    json.Object("name", TextOf(group.name));
}

void WriteMaterial(JsonStream& json, const GK_Material& material)
{
    json.BeginObject();
    json.Members("name", TextOf(material.Name()), "ambient", ChannelsOf(material.Ambient()),
                 "diffuse", ChannelsOf(material.Diffuse()), "specular",
                 ChannelsOf(material.Specular()), "transparent", ChannelsOf(material.transparent),
                 "shine", material.Shine() / GK_Material::MaxShine(), "transparency",
                 material.Transparency());
    json.ListMember("textures", material.Textures(), [&](const GK_Texture& texture) {
        const TextureFile file = FindTextureFile(texture);
        json.Object("type", TextureType(texture.type), "file", texture.filename.Utf8(), "on",
                    texture.on, "blend", texture.blendConstant, "exists", file.exists, "path",
                    file.path);
    });
    json.EndObject();
}

/// Writes a member that is a list, one element to a line.
template <class List, class Write>
void WriteLines(JsonStream& json, std::string_view name, const List& list, Write write)
{
    json.NewLine();
    json.Key(name);
    json.BeginArray();
    for (const auto& element : list) {
        json.NewLine();
        write(json, element);
    }
    json.NewLine();
    json.EndArray();
}

/// Finds out which import an object came from; objects are asked for in their order.
class ImportOfObject
{
public:
    explicit ImportOfObject(std::span<const ImportRecord> imports) : m_imports(imports) {}

    int operator()(int object)
    {
        while (m_next < m_imports.size() && m_imports[m_next].firstObject <= object)
            ++m_next;
        return static_cast<int>(m_next) - 1;
    }

private:
    std::span<const ImportRecord> m_imports;
    std::size_t m_next = 0; ///< the first import of which no object was asked for yet
};

void WriteObject(JsonStream& json, const DocumentObject& object, int import)
{
    const GK_MdxObjectAttributes& attributes = *object.attributes;
    const bool ownMaterial = attributes.MaterialSource() == GK::material_from_object;
    json.BeginObject();
    json.Members("type", KindOf(object.geometry), "name", TextOf(attributes.name), "layer",
                 attributes.layerIndex, "groups", attributes.Groups(), "material",
                 attributes.materialIndex, "material_source", ownMaterial ? "object" : "layer",
                 "import", import);
    WriteGeometry(json, object.geometry);
    json.EndObject();
}

} // namespace

void WriteDocumentJson(TextOutput& output, std::span<const ImportRecord> imports,
                       const ConsoleDoc& doc)
{
    constexpr int Form = 1; // counts up when a member changes its meaning
    JsonStream json(output);
    json.BeginObject();
    json.NewLine();
    json.Members("form", Form);
    WriteLines(json, "imports", imports, WriteImport);
    WriteLines(json, "layers", doc.Layers(), WriteLayer);
    WriteLines(json, "groups", doc.Groups(), WriteGroup);
    WriteLines(json, "materials", doc.Materials(), WriteMaterial);
    ImportOfObject importOf(imports);
    WriteLines(json, "objects", Indices(doc.ObjectCount()),
               [&](JsonStream& to, int i) { WriteObject(to, doc.Object(i), importOf(i)); });
    json.NewLine();
    json.EndObject();
    output.Write('\n');
}
