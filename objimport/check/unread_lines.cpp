#include "objimport/check/unread_lines.h"

#include "objimport/check/ignored_statements.h"
#include "objimport/check/obj_checker.h"
#include "objimport/check/raw_line.h"
#include "objimport/check/statement_counts.h"
#include "objreader/keyword.h"
#include "objreader/obj_line_tokenizer.h"
#include "objreader/statement_table.h"
#include "objreader/text_bytes.h"

#include <algorithm>

namespace {

constexpr std::size_t MostKeywords = 12;

/// Returns whether the line begins as vertices and faces do, which are always read.
bool IsPlainStart(const char* line)
{
    if (line[0] == 'v')
        return line[1] == ' ' || ((line[1] == 'n' || line[1] == 't') && line[2] == ' ');
    return line[0] == 'f' && line[1] == ' ';
}

/// Skips the next line when it is of the plain kind and joins no other. Returns false, and does
/// nothing, for all others.
bool SkipPlainLine(CObjLineTokenizer& tokenizer)
{
    if (!tokenizer.FetchLine())
        return false;
    const char* text = tokenizer.Front() + tokenizer.Cursor();
    const char* const end = tokenizer.NextRunOrEnd();
    if (!IsPlainStart(text))
        return false;
    while (text != end && !IsLineEnd(*text) && *text != '\\')
        ++text;
    if (text == end || *text == '\\')
        return false;
    tokenizer.SkipTo(static_cast<std::size_t>(AfterLine(text, end) - tokenizer.Front()));
    return true;
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
            found.keywords.emplace_back(keyword->first, keyword->second.count);
    if (rest > 0)
        found.keywords.emplace_back(std::string(), rest);
}

void NoteMaterial(UnreadLines& found, const CObjLineTokenizer& tokenizer)
{
    std::string name;
    for (int i = 1; i < tokenizer.TokenCount(); ++i)
        name.append(i > 1 ? " " : "").append(tokenizer.Token(i));
    if (!name.empty())
        found.materials.insert(std::move(name));
}

void NoteLine(const CObjLineTokenizer& tokenizer, std::size_t line, UnreadLines& found,
              StatementCounts& ignored)
{
    const char* const keyword = tokenizer.Token(0);
    if (keyword == nullptr)
        return;
    if (FindStatement(keyword) == nullptr && IsLossOfContent(tokenizer))
        ignored.Count(keyword, line);
    else if (IsKeyword(keyword, "usemtl"))
        NoteMaterial(found, tokenizer);
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
    UnreadLines found;
    found.end = end;
    StatementCounts ignored;
    CObjLineTokenizer tokenizer(stream);
    std::string raw;
    tokenizer.KeepRawLines(raw);
    std::size_t line = 1;
    while (!tokenizer.AtEnd() && (end.linesAfter == 0 || line <= end.line)) {
        if (SkipPlainLine(tokenizer)) {
            ++line;
            continue;
        }
        if (!tokenizer.ReadLine())
            break;
        NoteLine(tokenizer, line, found, ignored);
        line += CountRawLines(raw);
    }
    AppendKeywords(found, ignored);
    return found;
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
