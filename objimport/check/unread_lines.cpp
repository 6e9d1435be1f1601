#include "objimport/check/unread_lines.h"

#include "objimport/check/ignored_statements.h"
#include "objimport/check/material_names.h"
#include "objimport/check/obj_checker.h"
#include "objimport/check/raw_line.h"
#include "objimport/check/statement_counts.h"
#include "objreader/obj_line_tokenizer.h"
#include "objreader/statement_table.h"
#include "objreader/text_bytes.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t MostKeywords = 12;

/// Returns whether the line begins as vertices and faces do, which are always read.
bool IsPlainStart(const char* line)
{
    if (line[0] == 'v')
        return line[1] == ' ' || ((line[1] == 'n' || line[1] == 't') && line[2] == ' ');
    return line[0] == 'f' && line[1] == ' ';
}

/// Appends the keywords in the order of their first lines.
void AppendKeywords(UnreadLines& found, const StatementCounts& ignored)
{
    std::vector<const StatementCounts::Keywords::value_type*> order;
    for (const auto& keyword : ignored.ByKeyword())
        order.push_back(&keyword);
    std::sort(order.begin(), order.end(),
              [](const auto* a, const auto* b) { return a->second.first < b->second.first; });
    std::size_t rest = 0;
    for (const auto* keyword : order)
        if (keyword->first.empty() || found.keywords.size() == MostKeywords)
            rest += keyword->second.count;
        else
            found.keywords.emplace_back(keyword->second.spelling, keyword->second.count);
    if (rest > 0)
        found.keywords.emplace_back(std::string(), rest);
}

std::string JoinedWords(const CObjLineTokenizer& tokenizer)
{
    std::string words;
    for (int i = 1; i < tokenizer.TokenCount(); ++i)
        words.append(i > 1 ? " " : "").append(tokenizer.Token(i));
    return words;
}

/// Returns whether all words of a line are read as they stand in the file.
bool IsReadUnchanged(std::string_view raw)
{
    char before = '\0';
    for (const char byte : raw) {
        const bool isPlain = byte >= ' ' && byte <= '~' && byte != '\\';
        if ((!isPlain && byte != '\n') || (byte == ' ' && before == ' '))
            return false;
        before = byte;
    }
    return true;
}

/// Counts the names that an import changes, each once.
class ChangedNames
{
public:
    /// Checks the name in a line with a statement, which stands in the file as `raw`.
    void Check(const CObjLineTokenizer& tokenizer, const Statement& statement,
               const std::string& raw)
    {
        const bool isGroup = statement.keyword[0] == 'g';
        const bool isName = isGroup || statement.keyword == "o" || statement.keyword == "usemtl" ||
                            statement.keyword == "mtllib";
        if (!isName || IsReadUnchanged(raw))
            return;
        const std::string rest = RawRest(raw);
        m_names.Check({m_findings}, isGroup ? WithSingleSpaces(rest) : rest,
                      JoinedWords(tokenizer));
    }

    [[nodiscard]] std::size_t Count() const { return m_findings.CountOf(CheckKind::NameChanged); }

private:
    Findings m_findings{0};
    NameChecks m_names;
};

/// Reads the lines of a file for what an import ignores or changes.
class UnreadLinesFinder
{
public:
    explicit UnreadLinesFinder(std::FILE* stream) : m_tokenizer(stream)
    {
        m_tokenizer.KeepRawLines(m_raw);
    }

    UnreadLines Find(const EarlyEnd& end);

private:
    bool SkipPlainLine();
    void NoteLine();

    CObjLineTokenizer m_tokenizer;
    std::string m_raw; ///< the current line as it stands in the file
    std::size_t m_line = 1;
    UnreadLines m_found;
    StatementCounts m_ignored;
    ChangedNames m_changedNames;
};

/// Skips the next line when it is of the plain kind and joins no other. Returns false, and does
/// nothing, for all others.
bool UnreadLinesFinder::SkipPlainLine()
{
    if (!m_tokenizer.FetchLine())
        return false;
    const char* const line = m_tokenizer.Front() + m_tokenizer.Cursor();
    const char* const end = m_tokenizer.NextRunOrEnd();
    if (!IsPlainStart(line))
        return false;
    const char* text = line;
    while (text != end && !IsLineEnd(*text) && *text != '\\')
        ++text;
    if (text == end || *text == '\\')
        return false;
    m_found.faces += line[0] == 'f' ? 1U : 0U;
    m_tokenizer.SkipTo(static_cast<std::size_t>(AfterLine(text, end) - m_tokenizer.Front()));
    return true;
}

void UnreadLinesFinder::NoteLine()
{
    const char* const keyword = m_tokenizer.Token(0);
    if (keyword == nullptr)
        return;
    const Statement* const statement = FindStatement(keyword);
    if (statement == nullptr) {
        if (IsLossOfContent(m_tokenizer))
            m_ignored.Count(keyword, m_line);
        return;
    }
    m_found.faces += statement->keyword == "f" ? 1U : 0U;
    m_changedNames.Check(m_tokenizer, *statement, m_raw);
    if (statement->keyword == "usemtl" && m_tokenizer.TokenCount() > 1)
        m_found.materials.insert(JoinedWords(m_tokenizer));
}

UnreadLines UnreadLinesFinder::Find(const EarlyEnd& end)
{
    m_found.end = end;
    while (!m_tokenizer.AtEnd() && (end.linesAfter == 0 || m_line <= end.line)) {
        if (SkipPlainLine()) {
            ++m_line;
            continue;
        }
        if (!m_tokenizer.ReadLine())
            break;
        NoteLine();
        m_line += CountRawLines(m_raw);
    }
    AppendKeywords(m_found, m_ignored);
    m_found.changedNames = m_changedNames.Count();
    return std::move(m_found);
}

/// Finds no file, so that none is read.
class NoFiles final : public FileFinder
{
public:
    std::optional<FoundFile> FindLibrary(const std::string&) override { return std::nullopt; }
    std::optional<FoundFile> FindTexture(const std::string&) override { return std::nullopt; }
};

} // namespace

UnreadLines FindUnreadLines(std::FILE* stream, const EarlyEnd& end)
{
    return UnreadLinesFinder(stream).Find(end);
}

EarlyEnd FindEarlyEnd(std::FILE* stream)
{
    constexpr double Tolerance = 0.001; // of other findings
    Findings findings(1);
    NoFiles finder;
    ObjChecker checker(stream, findings, findings.AddFile({}), finder, Tolerance);
    const CheckTotals totals = checker.Check();
    EarlyEnd end{totals.lines, totals.unread};
    for (const Finding& finding : findings.Kept())
        if (finding.kind == CheckKind::EndsParse) {
            end.statement = finding.line;
            end.why = finding.why;
        }
    return end;
}
