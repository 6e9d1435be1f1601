#include "objimport/check/statement_counts.h"

#include "objreader/keyword.h"

void StatementCounts::CountLines(std::string_view keyword, std::size_t firstLine, std::size_t count)
{
    constexpr std::size_t MostKeywords = 300;
    constexpr std::size_t LongestKeyword = 40;
    m_lower.clear();
    for (const char c : keyword.substr(0, LongestKeyword))
        m_lower += Lower(c);
    auto place = m_lines.find(m_lower);
    if (place == m_lines.end()) {
        if (m_lines.size() >= MostKeywords)
            m_lower.clear();
        place = m_lines.try_emplace(m_lower).first;
    }
    Lines& lines = place->second;
    if (lines.count == 0 || firstLine < lines.first) {
        lines.first = firstLine;
        lines.spelling = keyword.substr(0, LongestKeyword);
    }
    lines.count += count;
}
