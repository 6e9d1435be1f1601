#include "objimport/text_table.h"

#include "console_host/runtime/utf8.h"

#include <algorithm>

namespace {

struct Range
{
    char32_t first;
    char32_t last;
};

/// Marks that stand on the letter before them, and signs without width.
constexpr Range Combining[] = {{0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},
                               {0x610, 0x61A},   {0x64B, 0x65F},   {0x200B, 0x200F},
                               {0x202A, 0x202E}, {0x20D0, 0x20F0}, {0xFE00, 0xFE0F}};

/// East Asian letters and pictures, which are two columns wide.
constexpr Range Wide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0xA4CF},
                          {0xA960, 0xA97F},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
                          {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},
                          {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

template <std::size_t Count>
bool IsWithin(char32_t code, const Range (&ranges)[Count])
{
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const Range& range) {
        return code >= range.first && code <= range.last;
    });
}

/// Takes one character off a text.
char32_t TakeCharacter(std::string_view& utf8)
{
    const Utf8Character first = FirstCharacter(utf8);
    utf8.remove_prefix(first.size);
    return first.code;
}

int WidthOf(char32_t code)
{
    if (IsWithin(code, Combining))
        return 0;
    return IsWithin(code, Wide) ? 2 : 1;
}

void AppendCell(std::string& line, const std::string& cell, int width, TextTable::Align align)
{
    const std::string blanks(static_cast<std::size_t>(std::max(width - DisplayWidth(cell), 0)),
                             ' ');
    line.append("  ");
    if (align == TextTable::Align::Right)
        line.append(blanks).append(cell);
    else
        line.append(cell).append(blanks);
}

} // namespace

int DisplayWidth(std::string_view utf8)
{
    int width = 0;
    while (!utf8.empty())
        width += WidthOf(TakeCharacter(utf8));
    return width;
}

std::string Shortened(std::string_view utf8, int width)
{
    constexpr std::string_view Dots = "...";
    const std::string_view whole = utf8;
    std::size_t kept = 0;
    int used = 0;
    while (!utf8.empty()) {
        used += WidthOf(TakeCharacter(utf8));
        if (used <= width - static_cast<int>(Dots.size()))
            kept = whole.size() - utf8.size();
        if (used > width)
            return std::string(whole.substr(0, kept)).append(Dots);
    }
    return std::string(whole);
}

void TextTable::Write(TextOutput& output) const
{
    std::vector<int> widths;
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        int width = DisplayWidth(m_columns[column].heading);
        for (const std::vector<std::string>& row : m_rows)
            width = std::max(width, DisplayWidth(row[column]));
        widths.push_back(width);
    }
    const auto writeLine = [&](auto cellOf) {
        std::string line;
        for (std::size_t column = 0; column < m_columns.size(); ++column)
            AppendCell(line, cellOf(column), widths[column], m_columns[column].align);
        output.Write(line.substr(0, line.find_last_not_of(' ') + 1));
        output.Write('\n');
    };
    writeLine([&](std::size_t column) { return m_columns[column].heading; });
    for (const std::vector<std::string>& row : m_rows)
        writeLine([&](std::size_t column) { return row[column]; });
}
