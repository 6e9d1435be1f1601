#include "objimport/file_report.h"

#include "console_host/app/printable.h"
#include "objimport/check_text.h"
#include "objimport/host_reasons.h"
#include "objimport/input_file.h"
#include "objimport/mesh_faces.h"
#include "objimport/often_texts.h"
#include "objimport/program_texts.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>

namespace {

std::string KindText(std::string_view type)
{
    constexpr std::pair<std::string_view, ProgramText> Kinds[] = {
        {"mesh", Texts::Mesh},         {"curve", Texts::Curve}, {"point", Texts::Point},
        {"point_cloud", Texts::Cloud}, {"brep", Texts::Brep},   {"loop", Texts::Loop},
        {"image", Texts::Image},       {"host", Texts::Host},   {"pushup", Texts::Pushup}};
    for (const auto& [word, text] : Kinds)
        if (word == type)
            return Say(text);
    return OneLine(type);
}

std::string ReasonInWords(std::string_view kind, std::string_view reason)
{
    return KindText(kind) + ": " + LocalReason(OneLine(reason));
}

void WriteRefused(const Page& page, const ImportJournal& journal)
{
    if (journal.refused.empty())
        return;
    page.Warning("  " + Say(Texts::Refused, {Number(journal.refused.size())}));
    OftenTexts texts(page.Shown(journal.refused.size()));
    auto name = journal.refusedNames.begin();
    for (std::size_t i = 0; i < journal.refused.size(); ++i) {
        const ImportJournal::Refusal& refusal = journal.refused[i];
        const bool isNamed = name != journal.refusedNames.end() && name->first == i;
        texts.Add(refusal.type, refusal.reason, refusal.number,
                  refusal.type == "loop" ? Texts::BrepNumberMark : Texts::NumberMark,
                  isNamed ? std::string_view((name++)->second) : std::string_view());
    }
    texts.Write(page, ReasonInWords);
}

void WriteInconsistencies(const Page& page, const ImportJournal& journal)
{
    if (journal.kernelErrors.empty())
        return;
    std::size_t count = 0;
    OftenTexts texts(page.Shown(journal.kernelErrors.size()));
    for (const ImportJournal::KernelError& error : journal.kernelErrors) {
        const auto times = static_cast<std::size_t>(error.times);
        texts.Add(error.source, error.text, times);
        count += times;
    }
    page.Warning("  " + Say(Texts::Inconsistencies, {Number(count)}));
    texts.Write(page, ReasonInWords);
}

/// Writes where and why reading ended before the end of the file.
void WriteEarlyEnd(const Page& page, const EarlyEnd& end)
{
    if (end.statement == 0)
        return;
    std::string text =
        Say(Texts::ReadingEnded, {Number(end.statement), PrintableLine(InWords(end.why))});
    if (end.linesAfter > 0)
        text.append("; ").append(Counted(end.linesAfter, Texts::LinesNotRead));
    page.Warning("  " + text);
}

void WriteNotRead(const Page& page, const UnreadLines& unread)
{
    if (unread.keywords.empty())
        return;
    std::string list;
    for (const auto& [keyword, count] : unread.keywords)
        list.append(list.empty() ? "" : ", ")
            .append(Say(Texts::LinesOf, {Counted(count, Texts::Lines),
                                         keyword.empty() ? "..." : PrintableLine(keyword)}));
    page.Warning("  " + Say(Texts::NotRead, {list}));
}

void WriteCount(const Page& page, std::size_t count, const CountedText& text)
{
    if (count > 0)
        page.Warning("  " + Counted(count, text));
}

void WriteUndefined(const Page& page, const std::vector<std::string>& names)
{
    if (!names.empty())
        page.Warning("  " + Say(Texts::UndefinedMaterials,
                                {Counted(names.size(), Texts::Materials), page.Listed(names)}));
}

} // namespace

std::string OutcomeText(const ImportRecord& import)
{
    if (import.journal.outOfMemory)
        return Say(import.result ? Texts::ImportedInPart : Texts::OutOfMemory);
    if (import.result)
        return Say(Texts::Imported);
    return Say(import.journal.cancelled ? Texts::Cancelled : Texts::Failed);
}

std::vector<std::string> UndefinedMaterials(const ImportRecord& import, const ConsoleDoc& doc)
{
    std::set<std::string> wanted;
    for (const std::string& name : import.unread.materials)
        wanted.insert(GK_wString(std::string_view(name)).Utf8());
    for (int i = 0; i < doc.Materials().Count() && !wanted.empty(); ++i)
        wanted.erase(doc.Materials()[i].Name().Utf8());
    return {wanted.begin(), wanted.end()};
}

std::size_t MissingFaces(const ImportRecord& import, const ConsoleDoc& doc)
{
    std::size_t faces = 0;
    for (int i = 0; i < import.objectCount; ++i) {
        const AnyGeometry geometry = doc.Object(import.firstObject + i).geometry;
        if (const auto* mesh = std::get_if<const GK_Mesh*>(&geometry))
            faces += CountFaces(**mesh).All();
    }
    return import.unread.faces - std::min(faces, import.unread.faces);
}

void WriteFileReport(const Page& page, const ImportRecord& import, const ConsoleDoc& doc)
{
    const std::string line = ShownFileName(import.file) + ": " + OutcomeText(import) + ", " +
                             Counted(static_cast<std::size_t>(import.objectCount), Texts::Objects);
    if (import.result && !import.journal.outOfMemory)
        page.Line(line);
    else
        page.Warning(line);
    WriteRefused(page, import.journal);
    WriteInconsistencies(page, import.journal);
    if (import.unread.notText) {
        page.Warning("  " + PrintableLine(InWords(*import.unread.notText)));
        return;
    }
    WriteEarlyEnd(page, import.unread.end);
    WriteNotRead(page, import.unread);
    const std::size_t missingFaces = MissingFaces(import, doc);
    WriteCount(page, missingFaces, Texts::FacesMissing);
    WriteCount(page, import.unread.changedNames, Texts::NamesChanged);
    WriteUndefined(page, UndefinedMaterials(import, doc));
    const bool isSaid = import.journal.cancelled || import.journal.outOfMemory || missingFaces > 0;
    if (!isSaid && (!import.result || import.objectCount == 0))
        page.Warning("  " + Say(Texts::CheckSaysWhy));
}
