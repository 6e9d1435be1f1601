#include "objimport/text_table.h"

#include "console_host/runtime/utf8.h"

#include <algorithm>

namespace {

constexpr std::string_view Dots = "...";
constexpr int DotsWidth = 3;
constexpr int Gap = 2; ///< blanks before each column

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

std::size_t FittingLength(std::string_view utf8, int width)
{
    std::string_view rest = utf8;
    while (!rest.empty()) {
        std::string_view next = rest;
        width -= WidthOf(TakeCharacter(next));
        if (width < 0)
            break;
        rest = next;
    }
    return utf8.size() - rest.size();
}

std::string Shortened(std::string_view utf8, int width)
{
    if (FittingLength(utf8, width) == utf8.size())
        return std::string(utf8);
    return std::string(utf8.substr(0, FittingLength(utf8, width - DotsWidth))).append(Dots);
}

std::string ShortenedInMiddle(std::string_view utf8, int width)
{
    if (FittingLength(utf8, width) == utf8.size())
        return std::string(utf8);
    const int room = std::max(width - DotsWidth, 0);
    const std::size_t first = FittingLength(utf8, room / 3);
    const int last = room - DisplayWidth(utf8.substr(0, first));
    std::size_t skipped = FittingLength(utf8, DisplayWidth(utf8) - last);
    while (DisplayWidth(utf8.substr(skipped)) > last)
        skipped += FirstCharacter(utf8.substr(skipped)).size;
    return std::string(utf8.substr(0, first)).append(Dots).append(utf8.substr(skipped));
}

void TextTable::LeaveOutColumnsOf(std::string_view nothing)
{
    for (std::size_t column = m_columns.size(); column-- > 0;) {
        const auto saysNothing = [&](const auto& row) { return row[column] == nothing; };
        if (!std::all_of(m_rows.begin(), m_rows.end(), saysNothing))
            continue;
        const auto place = static_cast<std::ptrdiff_t>(column);
        m_columns.erase(m_columns.begin() + place);
        for (std::vector<std::string>& row : m_rows)
            row.erase(row.begin() + place);
    }
}

/// Returns how wide the widest text of a column is.
int TextTable::FullWidth(std::size_t column) const
{
    int width = DisplayWidth(m_columns[column].heading);
    for (const std::vector<std::string>& row : m_rows)
        width = std::max(width, DisplayWidth(row[column]));
    return width;
}

/// Returns how wide each column is: as wide as its texts, the widest of those that can be cut less
/// so until all fit.
std::vector<int> TextTable::Widths(int pageWidth) const
{
    constexpr int NarrowestCut = 6;
    std::vector<int> widths;
    int sum = 0;
    for (std::size_t column = 0; column < m_columns.size(); ++column) {
        int width = FullWidth(column);
        if (m_columns[column].cut != Cut::Never)
            width = std::min(width, std::max(pageWidth, NarrowestCut));
        widths.push_back(width);
        sum += Gap + width;
    }
    while (sum > pageWidth) {
        int* widest = nullptr;
        for (std::size_t column = 0; column < m_columns.size(); ++column)
            if (m_columns[column].cut != Cut::Never && widths[column] > NarrowestCut &&
                (widest == nullptr || widths[column] > *widest))
                widest = &widths[column];
        if (widest == nullptr)
            break;
        --*widest;
        --sum;
    }
    return widths;
}

/// Writes heading and rows, each cell as `appendCell(line, text, column)` appends it.
template <class Append>
void TextTable::WriteLines(TextOutput& output, Append appendCell) const
{
    const auto writeLine = [&](auto textOf) {
        std::string line;
        for (std::size_t column = 0; column < m_columns.size(); ++column)
            appendCell(line, textOf(column), column);
        output.Write(line.substr(0, line.find_last_not_of(' ') + 1));
        output.Write('\n');
    };
    writeLine([&](std::size_t column) { return m_columns[column].heading; });
    for (const std::vector<std::string>& row : m_rows)
        writeLine([&](std::size_t column) { return row[column]; });
}

void TextTable::Write(TextOutput& output, int width) const
{
    const std::vector<int> widths = Widths(width);
    WriteLines(output, [&](std::string& line, const std::string& text, std::size_t column) {
        const bool inMiddle = m_columns[column].cut == Cut::InMiddle;
        AppendCell(line,
                   inMiddle ? ShortenedInMiddle(text, widths[column])
                            : Shortened(text, widths[column]),
                   widths[column], m_columns[column].align);
    });
}

void TextTable::WriteWhole(TextOutput& output) const
{
    constexpr int WidestAligned = 200; // a long name must not lengthen every line
    std::vector<int> widths;
    for (std::size_t column = 0; column < m_columns.size(); ++column)
        widths.push_back(std::min(FullWidth(column), WidestAligned));
    WriteLines(output, [&](std::string& line, const std::string& text, std::size_t column) {
        AppendCell(line, text, widths[column], m_columns[column].align);
    });
}
