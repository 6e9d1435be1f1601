#include "tests/whole/report.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;

/// Returns six digits, or three after the point of a large number: enough to see a difference, few
/// enough to read. What is next to nothing is nothing: a sum that cancels out may leave some noise.
std::string NumberText(const Json& number)
{
    if (number.is_null())
        return "null";
    std::array<char, 400> text{};
    const double value = number.get<double>();
    const char* format = std::abs(value) < 1e6 ? "%.6g" : "%.3f";
    std::snprintf(text.data(), text.size(), format, std::abs(value) < 1e-12 ? 0.0 : value);
    return text.data();
}

/// Returns a list of numbers, separated by blanks; a list of lists in parentheses.
std::string ListText(const Json& list)
{
    std::string text;
    for (const Json& entry : list) {
        if (!text.empty())
            text += ' ';
        text += entry.is_array() ? "(" + ListText(entry) + ")" : NumberText(entry);
    }
    return text;
}

/// Returns a message in one line.
std::string Quoted(const Json& text)
{
    return text.dump(-1, ' ', false, Json::error_handler_t::replace);
}

class Writer
{
public:
    explicit Writer(const Json& document) : m_document(document) {}

    std::string Write()
    {
        for (const Json& import : m_document["imports"])
            WriteImport(import);
        WriteTables();
        for (const Json& object : m_document["objects"])
            WriteObject(object);
        return m_text;
    }

private:
    void Line(const std::string& line) { m_text += line + "\n"; }

    void WriteImport(const Json& import)
    {
        std::string line = "import " + import["file"].get<std::string>() + ": ";
        line += import["result"].get<bool>() ? "true" : "false";
        if (import["zoomed"].get<bool>())
            line += ", zoomed";
        if (!import["redrawn"].get<bool>())
            line += ", not redrawn";
        Line(line);
        for (const Json& print : import["prints"])
            Line("  print " + Quoted(print));
        for (const Json& box : import["boxes"])
            Line("  box " + Quoted(box["text"]) + " " + Quoted(box["caption"]) + " " +
                 NumberText(box["flags"]));
        for (const Json& error : import["kernel_errors"])
            Line("  kernel error " + error["source"].get<std::string>() + " " +
                 Quoted(error["text"]));
        for (const Json& refusal : import["refused"])
            Line("  refused " + refusal["type"].get<std::string>() + " " +
                 std::to_string(refusal.value("number", 0)) + " " + Quoted(refusal["reason"]));
    }

    void WriteTables()
    {
        for (const Json& layer : m_document["layers"])
            if (layer["name"] != "Default")
                Line("layer " + Quoted(layer["name"]) +
                     (layer["parent"].is_null() ? "" : ", not on top"));
        for (const Json& group : m_document["groups"])
            Line("group " + Quoted(group["name"]));
        for (const Json& material : m_document["materials"])
            WriteMaterial(material);
    }

    void WriteMaterial(const Json& material)
    {
        std::string line = "material " + Quoted(material["name"]);
        for (const char* color : {"ambient", "diffuse", "specular", "transparent"})
            line += std::string(", ") + color + " " + ListText(material[color]);
        line += ", shine " + NumberText(material["shine"]);
        line += ", transparency " + NumberText(material["transparency"]);
        Line(line);
        for (const Json& texture : material["textures"])
            Line("  " + texture["type"].get<std::string>() + " " + Quoted(texture["file"]));
    }

    void WriteObject(const Json& object)
    {
        const auto type = object["type"].get<std::string>();
        Line(type + AttributesText(object));
        if (type == "mesh")
            WriteMesh(object);
        else if (type == "point")
            Line("  at " + ListText(object["point"]));
        else if (type == "point_cloud")
            WriteList("at", object["points"]);
        else if (type == "curve")
            WriteCurve(object);
        else if (type == "brep")
            WriteBrep(object);
    }

    std::string AttributesText(const Json& object)
    {
        std::string text;
        if (!object["name"].is_null())
            text += " " + Quoted(object["name"]);
        if (object["layer"] != 0)
            text += ", layer " + NameText("layers", object["layer"]);
        for (const Json& group : object["groups"])
            text += ", group " + NameText("groups", group);
        if (object["material_source"] == "object")
            text += ", material " + NameText("materials", object["material"]);
        return text;
    }

    std::string NameText(const char* table, const Json& index)
    {
        return Quoted(m_document[table].at(index.get<std::size_t>())["name"]);
    }

    void WriteList(const char* what, const Json& list)
    {
        for (const Json& entry : list)
            Line(std::string("  ") + what + " " + ListText(entry));
    }

    void WriteMesh(const Json& mesh)
    {
        for (std::size_t i = 0; i < mesh["vertices"].size(); ++i) {
            std::string line = "  v " + ListText(mesh["vertices"][i]);
            line += PerVertexText(mesh, "normals", "  n ", i);
            line += PerVertexText(mesh, "texture_coordinates", "  t ", i);
            line += PerVertexText(mesh, "colors", "  c ", i);
            Line(line);
        }
        for (const Json& face : mesh["faces"]) {
            const bool triangle = face[2] == face[3];
            Line("  f " + ListText(triangle ? Json{face[0], face[1], face[2]} : face));
        }
        for (const Json& ngon : mesh["ngons"])
            Line("  ngon " + ListText(ngon["vertices"]) + ", faces " + ListText(ngon["faces"]));
        if (mesh["closed"].get<bool>())
            Line("  closed");
    }

    static std::string PerVertexText(const Json& mesh, const char* list, const char* what,
                                     std::size_t vertex)
    {
        return mesh[list].empty() ? "" : what + ListText(mesh[list].at(vertex));
    }

    void WriteCurve(const Json& curve)
    {
        Line("  dimension " + NumberText(curve["dimension"]) + ", order " +
             NumberText(curve["order"]));
        WriteList("at", curve["points"]);
        if (!curve["weights"].empty())
            Line("  weights " + ListText(curve["weights"]));
        Line("  knots " + ListText(curve["knots"]));
    }

    void WriteBrep(const Json& brep)
    {
        for (const Json& surface : brep["surfaces"])
            Line("  surface order " + ListText(surface["order"]) + ", counts " +
                 ListText(surface["counts"]) + ", knots " + ListText(surface["knots"]));
        WriteList("vertex", brep["vertices"]);
        for (const Json& edge : brep["edges"])
            Line("  edge " + ListText(edge["vertices"]));
        for (const Json& face : brep["faces"])
            for (const Json& loop : face["loops"]) {
                std::string line = "  loop " + loop["type"].get<std::string>() + ", edges";
                for (const Json& trim : loop["trims"])
                    line += (trim["reversed"].get<bool>() ? " -" : " ") + NumberText(trim["edge"]);
                Line(line);
            }
    }

    const Json& m_document;
    std::string m_text;
};

} // namespace

std::string Report(std::FILE* document)
{
    const Json json = Json::parse(document);
    return Writer(json).Write();
}
