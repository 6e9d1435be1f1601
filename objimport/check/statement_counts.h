#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

/// The lines of a file by their statement.
class StatementCounts
{
public:
    struct Lines
    {
        std::size_t count = 0;
        std::size_t first = 0; ///< the first such line, from 1
        std::string spelling;  ///< the keyword as it stands there
    };

    using Keywords = std::map<std::string, Lines, std::less<>>;

    /// Counts a line. Keywords count without regard to case; of more than a few hundred different
    /// ones the rest are counted together, under an empty name.
    void Count(std::string_view keyword, std::size_t line) { CountLines(keyword, line, 1); }

    /// Counts lines of which the first is the one given.
    void CountLines(std::string_view keyword, std::size_t firstLine, std::size_t count);

    /// Returns the lines by keywords in small letters.
    [[nodiscard]] const Keywords& ByKeyword() const { return m_lines; }

private:
    Keywords m_lines;
    std::string m_lower; ///< scratch
};
