#include "console_host/program/document_json.h"

#include "console_host/program/geometry_json.h"
#include "console_host/program/json_stream.h"

namespace {

using Json = nlohmann::ordered_json;

Json NameOrNull(const GK_wString& name)
{
    return name.IsEmpty() ? Json() : Json(name.Utf8());
}

Json ColorJson(const GK_Color& color)
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

Json ImportJson(const ImportRecord& import)
{
    const ImportJournal& journal = import.journal;
    Json boxes = Json::array();
    for (const ImportJournal::Box& box : journal.boxes)
        boxes.push_back({{"text", box.text}, {"caption", box.caption}, {"flags", box.flags}});
    Json errors = Json::array();
    for (const ImportJournal::KernelError& error : journal.kernelErrors)
        errors.push_back({{"source", error.source}, {"text", error.text}});
    Json refused = Json::array();
    for (const ImportJournal::Refusal& refusal : journal.refused)
        refused.push_back({{"type", refusal.type}, {"reason", refusal.reason}});
    return {{"file", import.file},
            {"result", import.result},
            {"zoomed", journal.zoomed},
            {"redrawn", journal.redrawn},
            {"prints", journal.prints},
            {"boxes", std::move(boxes)},
            {"kernel_errors", std::move(errors)},
            {"refused", std::move(refused)}};
}

Json LayerJson(const GK_Layer& layer)
{
    const bool top = layer.parentId == GK_nil_uuid;
    return {{"name", NameOrNull(layer.name)},
            {"id", GK_UuidToString(layer.id)},
            {"parent", top ? Json() : Json(GK_UuidToString(layer.parentId))}};
}

Json GroupJson(const GK_Group& group)
{
    return {{"name", NameOrNull(group.name)}};
}

Json MaterialJson(const GK_Material& material)
{
    Json textures = Json::array();
    for (const GK_Texture& texture : material.Textures())
        textures.push_back({{"type", TextureType(texture.type)},
                            {"file", texture.filename.Utf8()},
                            {"on", texture.on},
                            {"blend", texture.blendConstant}});
    return {{"name", NameOrNull(material.Name())},
            {"ambient", ColorJson(material.Ambient())},
            {"diffuse", ColorJson(material.Diffuse())},
            {"specular", ColorJson(material.Specular())},
            {"transparent", ColorJson(material.transparent)},
            {"shine", material.Shine() / GK_Material::MaxShine()},
            {"transparency", material.Transparency()},
            {"textures", std::move(textures)}};
}

/// Writes a member that is a list, one element to a line.
template <class List, class ToJson>
void WriteList(JsonStream& json, std::string_view name, const List& list, ToJson toJson)
{
    json.NewLine();
    json.Key(name);
    json.BeginArray();
    for (const auto& element : list) {
        json.NewLine();
        json.Value(toJson(element));
    }
    json.NewLine();
    json.EndArray();
}

void WriteObject(JsonStream& json, const DocumentObject& object)
{
    const GK_MdxObjectAttributes& attributes = *object.attributes;
    const bool ownMaterial = attributes.MaterialSource() == GK::material_from_object;
    json.BeginObject();
    json.Member("type", Json(TypeOf(object.geometry)));
    json.Member("name", NameOrNull(attributes.name));
    json.Member("layer", attributes.layerIndex);
    json.Key("groups");
    json.BeginArray();
    for (const int group : attributes.Groups())
        json.Value(group);
    json.EndArray();
    json.Member("material", attributes.materialIndex);
    json.Member("material_source", Json(ownMaterial ? "object" : "layer"));
    WriteGeometry(json, object.geometry);
    json.EndObject();
}

} // namespace

void WriteDocumentJson(TextOutput& output, std::span<const ImportRecord> imports,
                       const ConsoleDoc& doc)
{
    JsonStream json(output);
    json.BeginObject();
    WriteList(json, "imports", imports, ImportJson);
    WriteList(json, "layers", doc.Layers(), LayerJson);
    WriteList(json, "groups", doc.Groups(), GroupJson);
    WriteList(json, "materials", doc.Materials(), MaterialJson);
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
