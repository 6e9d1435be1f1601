#include "objimport/summary.h"

#include "console_host/app/printable.h"
#include "objimport/object_tables.h"
#include "objimport/text_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

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

// A text that comes up once or more, and of what.
struct OftenText
{
    std::string text;
    std::string label; // of the numbers
    std::size_t count = 0;
    std::vector<int> numbers; // the first few
};

class OftenTexts
{
public:
    // `number` is 0 when the text is of nothing that has one.
    void Add(const std::string& text, int number = 0, const char* label = "no. ")
    {
        constexpr std::size_t MostNumbers = 5;
        ++m_count;
        auto place = m_places.find(text);
        if (place == m_places.end()) {
            if (m_texts.size() == std::size_t{ShownRows}) { // one file can ask for very many
                ++m_leftOut;
                return;
            }
            place = m_places.emplace(text, m_texts.size()).first;
            m_texts.push_back({text, label, 0, {}});
        }
        OftenText& often = m_texts[place->second];
        ++often.count;
        if (number > 0 && often.numbers.size() < MostNumbers)
            often.numbers.push_back(number);
    }

    [[nodiscard]] std::size_t Count() const { return m_count; }

    // Writes the first of the texts, each once, in the order in which they first came up.
    void Write(TextOutput& output) const;

private:
    std::vector<OftenText> m_texts;
    std::map<std::string, std::size_t> m_places;
    std::size_t m_count = 0;
    std::size_t m_leftOut = 0; // texts that came up when there were enough
};

// " (7 times: no. 1, 2, 5, 8, 9, ...)"
std::string HowOften(const OftenText& often)
{
    std::string text = often.count > 1 ? Number(often.count) + " times" : "";
    std::string before = text.empty() ? often.label : ": " + often.label;
    for (const int number : often.numbers)
        text += std::exchange(before, ", ") + std::to_string(number);
    if (!often.numbers.empty() && often.count > often.numbers.size())
        text += ", ...";
    return text.empty() ? "" : " (" + text + ")";
}

void OftenTexts::Write(TextOutput& output) const
{
    constexpr int Width = 120;
    for (const OftenText& often : m_texts)
        WriteLine(output, "  " + OneLine(often.text, Width) + HowOften(often));
    WriteLeftOut(output, m_texts.size() + m_leftOut);
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
    OftenTexts texts;
    for (const ImportRecord& import : imports)
        for (const ImportJournal::Refusal& refusal : import.journal.refused)
            texts.Add(refusal.type + ": " + refusal.reason, refusal.number,
                      refusal.type == "loop" ? "brep no. " : "no. ");
    if (texts.Count() == 0)
        return;
    WriteHeading(output, "refused: " + Number(texts.Count()));
    texts.Write(output);
}

void WriteKernelErrors(TextOutput& output, std::span<const ImportRecord> imports)
{
    OftenTexts texts;
    for (const ImportRecord& import : imports)
        for (const ImportJournal::KernelError& error : import.journal.kernelErrors)
            for (int i = 0; i < error.times; ++i)
                texts.Add(error.source + ": " + error.text);
    if (texts.Count() == 0)
        return;
    WriteHeading(output, "inconsistencies: " + Number(texts.Count()));
    texts.Write(output);
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
