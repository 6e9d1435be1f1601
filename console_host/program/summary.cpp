#include "console_host/program/summary.h"

#include "console_host/app/printable.h"
#include "console_host/program/object_tables.h"
#include "console_host/program/text_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace {

constexpr int LongestText = 60;
constexpr auto Right = TextTable::Align::Right;

/// One line of text, whatever stands in it.
std::string OneLine(const std::string& text, int width = LongestText)
{
    std::string line = Printable(text);
    while (!line.empty() && line.back() == '\n')
        line.pop_back();
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
    return Shortened(line, width);
}

std::string Percent(double fraction)
{
    return std::to_string(std::lround(fraction * 100.0)) + "%";
}

std::string ColorText(const GK_Color& color)
{
    return std::to_string(color.Red()) + "," + std::to_string(color.Green()) + "," +
           std::to_string(color.Blue());
}

void WriteLine(TextOutput& output, const std::string& line)
{
    output.Write(line);
    output.Write('\n');
}

void WriteHeading(TextOutput& output, const std::string& heading)
{
    output.Write('\n');
    WriteLine(output, heading);
}

/// The texts of a list that has many alike: each once, in order of coming, with how often it came.
void WriteOften(TextOutput& output, const std::vector<std::string>& texts)
{
    std::map<std::string, std::size_t> counts;
    std::vector<const std::string*> order;
    for (const std::string& text : texts)
        if (++counts[text] == 1)
            order.push_back(&text);
    for (std::size_t i = 0; i < std::min<std::size_t>(order.size(), ShownRows); ++i) {
        const std::size_t count = counts[*order[i]];
        constexpr int Width = 120;
        WriteLine(output, "  " + OneLine(*order[i], Width) +
                              (count > 1 ? " (" + Number(count) + " times)" : ""));
    }
    WriteLeftOut(output, order.size());
}

std::string OutcomeText(const ImportRecord& import)
{
    const std::string outcome = OutcomeOf(import);
    if (outcome == "out of memory")
        return import.result ? "out of memory; imported in part"
                             : "out of memory; the import failed";
    return outcome == "failed" ? "the import failed" : outcome;
}

void WriteRefused(TextOutput& output, std::span<const ImportRecord> imports)
{
    std::vector<std::string> texts;
    for (const ImportRecord& import : imports)
        for (const ImportJournal::Refusal& refusal : import.journal.refused)
            texts.push_back(refusal.type + ": " + refusal.reason);
    if (texts.empty())
        return;
    WriteHeading(output, "refused: " + Number(texts.size()));
    WriteOften(output, texts);
}

void WriteKernelErrors(TextOutput& output, std::span<const ImportRecord> imports)
{
    std::vector<std::string> texts;
    for (const ImportRecord& import : imports)
        for (const ImportJournal::KernelError& error : import.journal.kernelErrors)
            texts.push_back(error.source + ": " + error.text);
    if (texts.empty())
        return;
    WriteHeading(output, "inconsistencies: " + Number(texts.size()));
    WriteOften(output, texts);
}

std::string TextureText(const GK_Texture& texture)
{
    constexpr std::array<const char*, 4> Words = {"", "bitmap ", "bump ", "transparency "};
    return Words[static_cast<std::size_t>(texture.type)] + OneLine(texture.filename.Utf8());
}

void WriteMaterials(TextOutput& output, const GK_ClassArray<GK_Material>& materials)
{
    if (materials.IsEmpty())
        return;
    const auto count = static_cast<std::size_t>(materials.Count());
    WriteHeading(output, Counted(count, "material", "materials"));
    TextTable table({{"#", Right},
                     {"name"},
                     {"diffuse"},
                     {"shine", Right},
                     {"transparency", Right},
                     {"textures"}});
    for (int i = 0; i < std::min(materials.Count(), ShownRows); ++i) {
        const GK_Material& material = materials[i];
        table.AddRow(
            {std::to_string(i), OneLine(material.Name().Utf8()), ColorText(material.Diffuse()),
             Percent(material.Shine() / GK_Material::MaxShine()), Percent(material.Transparency()),
             FirstFew(material.Textures(), TextureText)});
    }
    table.Write(output);
    WriteLeftOut(output, count);
}

template <class Table, class NameOf>
void WriteNames(TextOutput& output, const char* one, const char* many, const Table& table,
                NameOf nameOf)
{
    if (table.IsEmpty())
        return;
    std::string line = Counted(static_cast<std::size_t>(table.Count()), one, many) + ":";
    for (int i = 0; i < std::min(table.Count(), ShownRows); ++i)
        line.append(i > 0 ? ", " : " ").append(OneLine(nameOf(table[i]).Utf8()));
    if (table.Count() > ShownRows)
        line.append(" ... and ")
            .append(Number(static_cast<std::size_t>(table.Count() - ShownRows)))
            .append(" more");
    WriteLine(output, line);
}

std::string Totals(const ConsoleDoc& doc)
{
    struct Total
    {
        std::size_t index;
        const char* one;
        const char* many;
    };
    constexpr Total Kinds[] = {{1, "mesh", "meshes"},
                               {2, "curve", "curves"},
                               {3, "point", "points"},
                               {4, "point cloud", "point clouds"},
                               {5, "brep", "breps"}};
    std::array<std::size_t, std::variant_size_v<AnyGeometry>> counts{};
    std::size_t vertices = 0;
    std::size_t faces = 0;
    for (int i = 0; i < doc.ObjectCount(); ++i) {
        const AnyGeometry geometry = doc.Object(i).geometry;
        ++counts[geometry.index()];
        if (const auto* mesh = std::get_if<const GK_Mesh*>(&geometry)) {
            vertices += static_cast<std::size_t>((*mesh)->VertexCount());
            faces += static_cast<std::size_t>((*mesh)->FaceCount());
        }
    }
    std::string text = Counted(static_cast<std::size_t>(doc.ObjectCount()), "object", "objects");
    const char* before = ": ";
    for (const Total& kind : Kinds)
        if (counts[kind.index] > 0) {
            text.append(before).append(Counted(counts[kind.index], kind.one, kind.many));
            before = ", ";
        }
    if (counts[1] > 0)
        text.append("; in meshes ")
            .append(Counted(vertices, "vertex", "vertices"))
            .append(" and ")
            .append(Counted(faces, "face", "faces"));
    return text;
}

} // namespace

void WriteSummary(TextOutput& output, std::span<const ImportRecord> imports, const ConsoleDoc& doc)
{
    for (const ImportRecord& import : imports)
        WriteLine(output, PrintableLine(import.file) + ": " + OutcomeText(import));
    WriteLine(output, Totals(doc));
    WriteObjectTables(output, doc);
    WriteMaterials(output, doc.Materials());
    WriteRefused(output, imports);
    WriteKernelErrors(output, imports);
    output.Write('\n');
    WriteNames(output, "layer", "layers", doc.Layers(), [](const GK_Layer& l) { return l.name; });
    WriteNames(output, "group", "groups", doc.Groups(), [](const GK_Group& g) { return g.name; });
}
