#include "objimport/check/mtl_checker.h"

#include "materials/mtl_statements.h"
#include "objimport/check/check_texts.h"
#include "objimport/check/ignored_statements.h"
#include "objimport/check/raw_line.h"
#include "objreader/numbers.h"

MtlChecker::MtlChecker(std::FILE* stream, const CheckPlace& place, FileFinder& finder,
                       MaterialNames& materials, NameChecks& names)
    : m_tokenizer(stream), m_place(place), m_finder(finder), m_materials(materials), m_names(names)
{
    m_tokenizer.KeepRawLines(m_raw);
}

bool MtlChecker::ReadLine()
{
    if (m_tokenizer.AtEnd() || !m_tokenizer.ReadLine())
        return false;
    m_place.line = m_nextLine;
    m_nextLine += CountRawLines(m_raw);
    return true;
}

void MtlChecker::Check()
{
    while (ReadLine()) {
        if (m_tokenizer.TokenCount() == 0)
            continue;
        m_counts.Count(m_tokenizer.Token(0), m_place.line);
        if (!CheckStatement()) {
            EndHere();
            break;
        }
    }
    if (m_tokenizer.ReadFailed())
        m_place.Report(CheckTexts::ReadBreaksOff);
    ReportIgnoredMtlStatements(m_place, m_ignored);
}

/// Returns false when the reading of the library ends with the current statement.
bool MtlChecker::CheckStatement()
{
    switch (FindMtlStatement(m_tokenizer.Token(0))) {
    case MtlStatement::NewMaterial:
        CheckName();
        return true;
    case MtlStatement::AmbientColor:
    case MtlStatement::DiffuseColor:
    case MtlStatement::SpecularColor:
    case MtlStatement::TransparentColor:
        return CheckColor();
    case MtlStatement::Shine:
    case MtlStatement::Opacity:
        CheckNumber();
        return true;
    case MtlStatement::DiffuseTexture:
    case MtlStatement::TransparencyTexture:
    case MtlStatement::BumpTexture:
        CheckTexture("", "");
        return true;
    case MtlStatement::SpacedBumpTexture:
        CheckTexture(" ", " ");
        return true;
    default:
        m_ignored.Count(m_tokenizer.Token(0), m_place.line);
        return true;
    }
}

bool MtlChecker::CheckColor()
{
    if (m_tokenizer.TokenCount() < 3)
        return false;
    const char* const first = m_tokenizer.Token(1);
    if (IsShortFor(first, "xyz") || IsShortFor(first, "spectral"))
        return true;
    if (m_tokenizer.TokenCount() != 4)
        return false;
    for (const int i : {1, 2, 3})
        if (double number = 0.0; !ReadReal(m_tokenizer.Token(i), number))
            m_place.Report(CheckTexts::NoColorNumber, m_tokenizer.Token(i));
    return true;
}

void MtlChecker::CheckNumber()
{
    double number = 0.0;
    if (m_tokenizer.TokenCount() < 2 || !ReadReal(m_tokenizer.Token(1), number))
        m_place.Report(CheckTexts::NoNumber, m_tokenizer.Token(0));
}

void MtlChecker::CheckName()
{
    if (m_tokenizer.TokenCount() < 2) {
        m_names.Check(m_place, RawRest(m_raw), {});
        return;
    }
    std::string name = m_tokenizer.Token(1);
    for (int i = 2; i < m_tokenizer.TokenCount(); ++i)
        name.append(" ").append(m_tokenizer.Token(i));
    m_materials.Define(m_place, name);
    m_names.Check(m_place, RawRest(m_raw), name);
}

/// Checks the texture whose name is the words after the keyword, with `between` after each but the
/// last and `after` at the end.
void MtlChecker::CheckTexture(const char* between, const char* after)
{
    ++m_textureCount;
    if (m_tokenizer.TokenCount() < 2) {
        m_place.Report(CheckTexts::TextureWithoutName, m_tokenizer.Token(0));
        return;
    }
    std::string taken = m_tokenizer.Token(1);
    for (int i = 2; i < m_tokenizer.TokenCount(); ++i)
        taken.append(between).append(m_tokenizer.Token(i));
    taken.append(after);
    const std::string raw = RawRest(m_raw);
    const bool isThere = m_finder.FindTexture(taken).has_value();
    if (raw.starts_with('-') && !isThere)
        m_place.Report(CheckTexts::TextureOptions, raw, taken);
    else if (Trimmed(raw) == Trimmed(taken))
        CheckTextureFile(std::string(Trimmed(taken)), isThere);
    else
        m_place.Report(isThere ? CheckTexts::TextureBecomes : CheckTexts::TextureBecomesNothing,
                       raw, taken);
}

/// Checks a name that is taken as it is, or with a blank after it, by which the file may not be
/// found.
void MtlChecker::CheckTextureFile(const std::string& name, bool isThere)
{
    const auto found = m_finder.FindTexture(name);
    if (!found)
        m_place.Report(CheckTexts::NoTexture, name);
    else if (!isThere)
        m_place.Report(CheckTexts::TextureGetsBlank, name, m_tokenizer.Token(0));
    else if (!found->sameCase)
        m_place.Report(CheckTexts::TextureFoundAs, name, found->writtenAs);
}

void MtlChecker::EndHere()
{
    const CheckPlace place = m_place;
    const std::string keyword = m_tokenizer.Token(0);
    const std::size_t firstUnread = m_nextLine;
    while (ReadLine()) {
    }
    place.Report(CheckTexts::LibraryEndsHere, keyword, m_nextLine - firstUnread);
}
