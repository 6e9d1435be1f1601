#include "objimport/summary.h"

#include "objimport/object_rows.h"
#include "objimport/object_tables.h"
#include "objimport/program_texts.h"
#include "objimport/text_table.h"
#include "objimport/texture_files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr auto Right = TextTable::Align::Right;
constexpr auto Left = TextTable::Align::Left;
constexpr auto CutAtEnd = TextTable::Cut::AtEnd;
constexpr auto CutInMiddle = TextTable::Cut::InMiddle;

std::string ShownName(const Page& page, const GK_wString& name)
{
    return Shortened(OneLine(name.Utf8()), LongestName(page.ShowsAll()));
}

std::string Percent(double fraction)
{
    constexpr double Whole = 100.0;
    return std::to_string(std::lround(fraction * Whole)) + "%";
}

std::string ColorText(const GK_Color& color)
{
    return std::to_string(color.Red()) + "," + std::to_string(color.Green()) + "," +
           std::to_string(color.Blue());
}

void WriteMaterials(const Page& page, const GK_ClassArray<GK_Material>& materials)
{
    if (materials.IsEmpty())
        return;
    const auto count = static_cast<std::size_t>(materials.Count());
    page.Heading(Counted(count, Texts::Materials));
    TextTable table({{"#", Right},
                     {Say(Texts::NameColumn), Left, CutAtEnd},
                     {Say(Texts::DiffuseColumn)},
                     {Say(Texts::ShineColumn), Right},
                     {Say(Texts::TransparencyColumn), Right}});
    for (int i = 0; i < static_cast<int>(page.Shown(count)); ++i) {
        const GK_Material& material = materials[i];
        table.AddRow({std::to_string(i), ShownName(page, material.Name()),
                      ColorText(material.Diffuse()),
                      Percent(material.Shine() / GK_Material::MaxShine()),
                      Percent(material.Transparency())});
    }
    page.Write(table);
    page.LeftOut(count);
}

std::vector<std::string> TextureRow(const Page& page, const GK_Material& material,
                                    const GK_Texture& texture)
{
    constexpr std::array Kinds = {Texts::Bitmap, Texts::Bitmap, Texts::Bump, Texts::Transparency};
    const TextureFile file = FindTextureFile(texture);
    return {ShownName(page, material.Name()), Say(Kinds[static_cast<std::size_t>(texture.type)]),
            file.exists ? "" : Say(Texts::Missing), ShellPath(file.path)};
}

void WriteTextures(const Page& page, const GK_ClassArray<GK_Material>& materials)
{
    std::size_t count = 0;
    for (const GK_Material& material : materials)
        count += static_cast<std::size_t>(material.Textures().Count());
    if (count == 0)
        return;
    page.Heading(Counted(count, Texts::Textures));
    TextTable table({{Say(Texts::MaterialColumn), Left, CutAtEnd},
                     {Say(Texts::KindColumn)},
                     {""},
                     {Say(Texts::FileColumn), Left, CutInMiddle}});
    std::size_t left = page.Shown(count);
    for (const GK_Material& material : materials)
        for (const GK_Texture& texture : material.Textures())
            if (left > 0) {
                table.AddRow(TextureRow(page, material, texture));
                --left;
            }
    table.LeaveOutColumnsOf("");
    page.Write(table);
    page.LeftOut(count);
}

template <class Table, class NameOf>
void WriteNames(const Page& page, const CountedText& text, const Table& table, NameOf nameOf)
{
    if (table.IsEmpty())
        return;
    std::vector<std::string> names;
    for (const auto& row : table)
        names.push_back(ShownName(page, nameOf(row)));
    page.Line(Counted(names.size(), text) + ": " + page.Listed(names));
}

} // namespace

void WriteSummary(const Page& page, ConsoleDoc& doc)
{
    WriteTotals(page, doc);
    WriteObjectTables(page, doc);
    WriteMaterials(page, doc.Materials());
    WriteTextures(page, doc.Materials());
    page.Output().Write('\n');
    WriteNames(page, Texts::Layers, doc.Layers(), [](const GK_Layer& l) { return l.name; });
    WriteNames(page, Texts::Groups, doc.Groups(), [](const GK_Group& g) { return g.name; });
}
