#include "objimport/check/unread_lines.h"

#include "objreader/keyword.h"
#include "objreader/obj_line_tokenizer.h"
#include "objreader/statement_table.h"
#include "objreader/text_bytes.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t MostKeywords = 12;
constexpr std::size_t LongestKeyword = 24;

/// Whether lines with this keyword are read; "end" only says what the next statement says as well.
bool IsRead(const char* keyword)
{
    return FindStatement(keyword) != nullptr || IsKeyword(keyword, "end");
}

/// Whether the line begins as vertices and faces do, which are always read.
bool IsPlainStart(const char* line)
{
    if (line[0] == 'v')
        return line[1] == ' ' || ((line[1] == 'n' || line[1] == 't') && line[2] == ' ');
    return line[0] == 'f' && line[1] == ' ';
}

/// Steps over the next line when it is of the plain kind and joins no other. False, and nothing
/// done, for all others.
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

void CountKeyword(UnreadLines& found, std::string_view keyword)
{
    auto& keywords = found.keywords;
    keyword = keyword.substr(0, LongestKeyword);
    auto place = std::find_if(keywords.begin(), keywords.end(),
                              [&](const auto& known) { return known.first == keyword; });
    if (place == keywords.end() && keywords.size() >= MostKeywords)
        place = std::find_if(keywords.begin(), keywords.end(),
                             [](const auto& known) { return known.first.empty(); });
    if (place == keywords.end())
        place = keywords.insert(
            place, {keywords.size() < MostKeywords ? std::string(keyword) : std::string(), 0});
    ++place->second;
}

void NoteMaterial(UnreadLines& found, const CObjLineTokenizer& tokenizer)
{
    std::string name;
    for (int i = 1; i < tokenizer.TokenCount(); ++i)
        name.append(i > 1 ? " " : "").append(tokenizer.Token(i));
    if (!name.empty())
        found.materials.insert(std::move(name));
}

} // namespace

UnreadLines FindUnreadLines(std::FILE* stream)
{
    UnreadLines found;
    CObjLineTokenizer tokenizer(stream);
    while (!tokenizer.AtEnd()) {
        if (SkipPlainLine(tokenizer))
            continue;
        if (!tokenizer.ReadLine())
            break;
        const char* const keyword = tokenizer.Token(0);
        if (keyword == nullptr)
            continue;
        if (!IsRead(keyword))
            CountKeyword(found, keyword);
        else if (IsKeyword(keyword, "usemtl"))
            NoteMaterial(found, tokenizer);
    }
    return found;
}
