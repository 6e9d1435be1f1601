#include "objimport/check_text.h"

#include "console_host/app/printable.h"
#include "objimport/program_texts.h"

#include "host/app/localize.h"
#include "host/geokit/string.h"

#include <array>
#include <charconv>

namespace {

constexpr LocalText NoteWord{L"note", 41401};
constexpr LocalText WarningWord{L"warning", 41402};
constexpr LocalText ErrorWord{L"error", 41403};
constexpr LocalText MoreOfAKind{L"%s more findings of this kind; --all shows them", 41404};
constexpr LocalText UnreadLines{L"lines that are not read: %s", 41406};
constexpr LocalText Contents{L"%s positions, %s texture coordinates, %s normals, %s faces in "
                             L"meshes, %s curves, %s surfaces",
                             41407};
constexpr LocalText Extent{L"from %s to %s", 41408};
constexpr LocalText Names{L"%s group names, %s object names, %s materials used, %s defined in %s "
                          L"libraries with %s textures",
                          41409};
constexpr LocalText FoundKind{L"%s  %s (%s)", 41410};
constexpr LocalText NothingFound{L"nothing is lost", 41411};
constexpr LocalText LeftOutOfAll{L"findings left out: %s; --all writes them", 41412};

std::string Localized(const LocalText& text)
{
    return GK_wString(KvLocalizeString(text.text, text.id)).Utf8();
}

const LocalText& LevelWord(CheckLevel level)
{
    if (level == CheckLevel::Note)
        return NoteWord;
    return level == CheckLevel::Warning ? WarningWord : ErrorWord;
}

void WriteLine(TextOutput& output, std::string_view text)
{
    output.Write(PrintableLine(text));
    output.Write('\n');
}

std::string PointText(const GK_3dPoint& point)
{
    std::string text;
    for (const double coordinate : {point.x, point.y, point.z}) {
        std::array<char, 32> digits{}; // of a number in single precision
        const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(),
                                                static_cast<float>(coordinate));
        text.append(text.empty() ? "" : " ").append(digits.data(), end);
    }
    return text;
}

std::string KeywordCounts(const StatementCounts& statements)
{
    std::string counts;
    for (const auto& [keyword, lines] : statements.ByKeyword())
        counts.append(counts.empty() ? "" : ", ")
            .append(Number(lines.count))
            .append(" ")
            .append(keyword.empty() ? "..." : keyword);
    return counts;
}

void WriteIndented(TextOutput& output, const LocalText& text,
                   const std::vector<std::string>& arguments)
{
    WriteLine(output, std::string("  ").append(InWords(text, arguments)));
}

std::vector<std::string> ShownArguments(const Phrase& phrase)
{
    std::vector<std::string> shown;
    for (const PhraseArgument& argument : phrase.arguments) {
        const auto* const count = std::get_if<std::size_t>(&argument);
        shown.push_back(count != nullptr ? Number(*count) : std::get<std::string>(argument));
    }
    return shown;
}

} // namespace

std::string InWords(const LocalText& text, const std::vector<std::string>& arguments)
{
    const std::string words = Localized(text);
    std::string result;
    std::size_t from = 0;
    for (const std::string& argument : arguments) {
        const std::size_t place = words.find("%s", from);
        if (place == std::string::npos)
            break;
        result.append(words, from, place - from).append(argument);
        from = place + 2;
    }
    return result.append(words, from);
}

std::string InWords(const Phrase& phrase)
{
    return InWords(phrase.text, ShownArguments(phrase));
}

std::string InWords(const Finding& finding)
{
    std::vector<std::string> arguments = ShownArguments(finding.what);
    if (finding.why.text.text != nullptr)
        arguments.insert(arguments.begin(), InWords(finding.why));
    return InWords(finding.what.text, arguments);
}

std::string FindingsLeftOut(std::size_t count)
{
    return InWords(LeftOutOfAll, {Number(count)});
}

void WriteFindings(TextOutput& output, const Findings& findings, std::size_t mostOfAKind)
{
    std::array<std::size_t, CheckKindCount> counts{};
    for (const Finding* finding : findings.OfGroup()) {
        if (++counts[static_cast<std::size_t>(finding->kind)] > mostOfAKind)
            continue;
        std::string line = findings.Files()[static_cast<std::size_t>(finding->file)];
        if (finding->line > 0)
            line.append(":").append(std::to_string(finding->line));
        line.append(": ").append(Localized(LevelWord(finding->level))).append(": ");
        line.append(InWords(*finding)).append(" [").append(NameOf(finding->kind)).append("]");
        WriteLine(output, line);
    }
}

void WriteCheckSummary(TextOutput& output, std::string_view file, const CheckTotals& totals,
                       const Findings& findings, std::size_t mostOfAKind)
{
    WriteLine(output, std::string(file) + ":");
    const std::string keywords = KeywordCounts(totals.statements);
    WriteLine(output, "  " + Counted(totals.lines, Texts::Lines) +
                          (keywords.empty() ? "" : ": " + keywords));
    if (totals.unread > 0)
        WriteIndented(output, UnreadLines, {Number(totals.unread)});
    WriteIndented(output, Contents,
                  {Number(totals.positions), Number(totals.texCoords), Number(totals.normals),
                   Number(totals.faces), Number(totals.curves), Number(totals.surfaces)});
    if (totals.low.x <= totals.high.x)
        WriteIndented(output, Extent, {PointText(totals.low), PointText(totals.high)});
    WriteIndented(output, Names,
                  {Number(totals.groups), Number(totals.objects), Number(totals.materialsUsed),
                   Number(totals.materialsDefined), Number(totals.libraries),
                   Number(totals.textures)});
    bool any = false;
    for (std::size_t i = 0; i < CheckKindCount; ++i) {
        const auto kind = static_cast<CheckKind>(i);
        const std::size_t count = findings.CountInGroup(kind);
        if (count == 0)
            continue;
        any = true;
        std::string line = InWords(
            FoundKind, {Number(count), Localized(DescriptionOf(kind)), std::string(NameOf(kind))});
        if (count > mostOfAKind)
            line.append("; ").append(InWords(MoreOfAKind, {Number(count - mostOfAKind)}));
        WriteLine(output, std::string("  ").append(line));
    }
    if (!any)
        WriteIndented(output, NothingFound, {});
}
