#include "objimport/each_table.h"

#include "console_host/app/printable.h"
#include "objimport/check/ignored_statements.h"
#include "objimport/file_report.h"
#include "objimport/object_rows.h"
#include "objimport/program_texts.h"
#include "objimport/text_table.h"
#include "objimport/texture_files.h"

#include <set>

namespace {

std::size_t CountMissingTextures(const ConsoleDoc& doc)
{
    std::set<std::string> missing;
    for (const GK_Material& material : doc.Materials())
        for (const GK_Texture& texture : material.Textures())
            if (const TextureFile file = FindTextureFile(texture); !file.exists)
                missing.insert(file.path);
    return missing.size();
}

/// Returns what a file lost, in a few words.
std::string Losses(const ImportRecord& import, const ConsoleDoc& doc)
{
    std::size_t lines = import.unread.end.linesAfter;
    for (const auto& [keyword, count] : import.unread.keywords)
        lines += SaysHowToShow(keyword) ? 0 : count;
    std::string text;
    const auto add = [&text](std::size_t count, const std::string& words) {
        if (count > 0)
            text.append(text.empty() ? "" : ", ").append(words);
    };
    if (const std::size_t end = import.unread.end.statement; end > 0)
        add(end, Say(Texts::EndedAtLine, {Number(end)}));
    const ImportJournal& journal = import.journal;
    add(journal.refused.size(), Counted(journal.refused.size(), Texts::RefusedCount));
    add(lines, Counted(lines, Texts::Lines));
    const std::size_t faces = MissingFaces(import, doc);
    add(faces, Counted(faces, Texts::Faces));
    const std::size_t names = import.unread.changedNames;
    add(names, Counted(names, Texts::Names));
    const std::size_t materials = UndefinedMaterials(import, doc).size();
    add(materials, Counted(materials, Texts::Materials));
    const std::size_t textures = CountMissingTextures(doc);
    add(textures, Counted(textures, Texts::Textures));
    add(journal.prints.size(), Counted(journal.prints.size(), Texts::Messages));
    return text.empty() ? NoCell : text;
}

} // namespace

void EachTable::AddImport(const ImportRecord& import, const ConsoleDoc& doc, bool isWritten)
{
    m_rows.push_back({ShownFileName(import.file),
                      isWritten ? OutcomeText(import) : Say(Texts::NotWritten),
                      Number(static_cast<std::size_t>(import.objectCount)), Losses(import, doc)});
}

void EachTable::AddUnreadable(const InputFile& file)
{
    m_rows.push_back({ShownFileName(file.name),
                      Say(Texts::NotImported, {PrintableLine(file.whyUnreadable)}), NoCell,
                      NoCell});
}

void EachTable::Write(const Page& page) const
{
    using Column = TextTable::Column;
    constexpr auto Left = TextTable::Align::Left;
    page.Line(Counted(m_rows.size(), Texts::Files));
    TextTable table({Column{Say(Texts::FileColumn), Left, TextTable::Cut::InMiddle},
                     Column{Say(Texts::OutcomeColumn), Left, TextTable::Cut::AtEnd},
                     Column{Say(Texts::ObjectsColumn), TextTable::Align::Right},
                     Column{Say(Texts::LostColumn), Left, TextTable::Cut::AtEnd}});
    for (const std::vector<std::string>& row : m_rows)
        table.AddRow(row);
    page.Write(table);
}
