#include "objimport/document_json.h"

#include "objimport/geometry_json.h"
#include "objimport/json_stream.h"

namespace {

void WriteName(JsonStream& json, const GK_wString& name)
{
    if (name.IsEmpty())
        json.Null();
    else
        json.Value(name.Utf8());
}

void WriteColor(JsonStream& json, std::string_view member, const GK_Color& color)
{
    json.Key(member);
    json.Tuple(color.Red(), color.Green(), color.Blue());
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
    json.Member("file", import.file);
    json.Member("result", import.result);
    json.Member("outcome", OutcomeOf(import));
    json.Member("zoomed", journal.zoomed);
    json.Member("redrawn", journal.redrawn);
    json.ListMember("prints", journal.prints, [&](const std::string& text) { json.Value(text); });
    json.ListMember("boxes", journal.boxes, [&](const ImportJournal::Box& box) {
        json.BeginObject();
        json.Member("text", box.text);
        json.Member("caption", box.caption);
        json.Member("flags", static_cast<int>(box.flags));
        json.EndObject();
    });
    json.ListMember("kernel_errors", journal.kernelErrors,
                    [&](const ImportJournal::KernelError& error) {
                        json.BeginObject();
                        json.Member("source", error.source);
                        json.Member("text", error.text);
                        json.EndObject();
                    });
    json.ListMember("refused", journal.refused, [&](const ImportJournal::Refusal& refusal) {
        json.BeginObject();
        json.Member("type", refusal.type);
        json.Member("reason", refusal.reason);
        if (refusal.number > 0)
            json.Member("number", refusal.number);
        json.EndObject();
    });
    json.EndObject();
}

void WriteLayer(JsonStream& json, const GK_Layer& layer)
{
    json.BeginObject();
    json.Key("name");
    WriteName(json, layer.name);
    json.Member("id", GK_UuidToString(layer.id));
    json.Key("parent");
    if (layer.parentId == GK_nil_uuid)
        json.Null();
    else
        json.Value(GK_UuidToString(layer.parentId));
    json.EndObject();
}

void WriteGroup(JsonStream& json, const GK_Group& group)
{
    json.BeginObject();
    json.Key("name");
    WriteName(json, group.name);
    json.EndObject();
}

void WriteTexture(JsonStream& json, const GK_Texture& texture)
{
    json.BeginObject();
    json.Member("type", TextureType(texture.type));
    json.Member("file", texture.filename.Utf8());
    json.Member("on", texture.on);
    json.Member("blend", texture.blendConstant);
    json.EndObject();
}

void WriteMaterial(JsonStream& json, const GK_Material& material)
{
    json.BeginObject();
    json.Key("name");
    WriteName(json, material.Name());
    WriteColor(json, "ambient", material.Ambient());
    WriteColor(json, "diffuse", material.Diffuse());
    WriteColor(json, "specular", material.Specular());
    WriteColor(json, "transparent", material.transparent);
    json.Member("shine", material.Shine() / GK_Material::MaxShine());
    json.Member("transparency", material.Transparency());
    json.ListMember("textures", material.Textures(),
                    [&](const GK_Texture& texture) { WriteTexture(json, texture); });
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

void WriteObject(JsonStream& json, const DocumentObject& object)
{
    const GK_MdxObjectAttributes& attributes = *object.attributes;
    const bool ownMaterial = attributes.MaterialSource() == GK::material_from_object;
    json.BeginObject();
    json.Member("type", KindOf(object.geometry));
    json.Key("name");
    WriteName(json, attributes.name);
    json.Member("layer", attributes.layerIndex);
    json.Key("groups");
    json.BeginArray();
    for (const int group : attributes.Groups())
        json.Value(group);
    json.EndArray();
    json.Member("material", attributes.materialIndex);
    json.Member("material_source", ownMaterial ? "object" : "layer");
    WriteGeometry(json, object.geometry);
    json.EndObject();
}

} // namespace

void WriteDocumentJson(TextOutput& output, std::span<const ImportRecord> imports,
                       const ConsoleDoc& doc)
{
    JsonStream json(output);
    json.BeginObject();
    WriteLines(json, "imports", imports, WriteImport);
    WriteLines(json, "layers", doc.Layers(), WriteLayer);
    WriteLines(json, "groups", doc.Groups(), WriteGroup);
    WriteLines(json, "materials", doc.Materials(), WriteMaterial);
    json.NewLine();
    json.Key("objects");
    json.BeginArray();
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        json.NewLine();
        WriteObject(json, doc.Object(i));
    }
    json.NewLine();
    json.EndArray();
    json.NewLine();
    json.EndObject();
    output.Write('\n');
}
