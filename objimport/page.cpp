#include "objimport/page.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/terminal.h"
#include "objimport/program_texts.h"
#include "objimport/text_table.h"

#include <algorithm>

namespace {

constexpr std::string_view WarningColour = "\x1B[33m";
constexpr std::string_view NoColour = "\x1B[0m";
constexpr int NarrowestPage = 40;
constexpr std::string_view Indent = "    ";

/// Returns how many bytes of the text go into one line: up to a blank when it is too long.
std::size_t LineLength(std::string_view text, int width)
{
    const std::size_t fitting = FittingLength(text, width);
    if (fitting == text.size() || text[fitting] == ' ')
        return fitting;
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t blank = text.rfind(' ', fitting);
    const bool isBetween = blank != std::string_view::npos && blank > first;
    return isBetween ? blank : std::min(text.find(' ', std::max(fitting, first)), text.size());
}

} // namespace

Page Page::On(TextOutput& output, std::FILE* stream, bool all)
{
    const int width = TerminalWidth(stream);
    return Page(output, width > 0 ? std::max(width, NarrowestPage) : UsualWidth,
                ShowsColours(stream), all);
}

std::size_t Page::Shown(std::size_t rows) const
{
    return m_all ? rows : std::min(rows, ShownRows);
}

void Page::Line(const std::string& text) const
{
    std::string_view rest = text;
    int width = m_width;
    for (;;) {
        const std::size_t length = LineLength(rest, width);
        m_output.Write(rest.substr(0, length));
        m_output.Write('\n');
        rest.remove_prefix(std::min(length + 1, rest.size()));
        if (rest.empty())
            return;
        m_output.Write(Indent);
        width = m_width - static_cast<int>(Indent.size());
    }
}

void Page::Warning(const std::string& text) const
{
    if (m_colours)
        m_output.Write(WarningColour);
    Line(text);
    if (m_colours)
        m_output.Write(NoColour);
}

void Page::Heading(const std::string& text) const
{
    m_output.Write('\n');
    Line(text);
}

void Page::Write(const TextTable& table) const
{
    if (m_all)
        table.WriteWhole(m_output);
    else
        table.Write(m_output, m_width);
}

void Page::LeftOut(std::size_t rows) const
{
    if (const std::size_t shown = Shown(rows); shown < rows)
        Line("  " + Say(Texts::LeftOutOfTable, {Number(rows - shown)}));
}

std::string Page::Listed(const std::vector<std::string>& names) const
{
    const std::size_t shown = Shown(names.size());
    std::string text;
    for (std::size_t i = 0; i < shown; ++i)
        text.append(i > 0 ? ", " : "").append(OneLine(names[i]));
    if (shown < names.size())
        text.append(" ").append(Say(Texts::LeftOut, {Number(names.size() - shown)}));
    return text;
}

std::string OneLine(std::string_view text)
{
    std::string line = Printable(text);
    while (!line.empty() && line.back() == '\n')
        line.pop_back();
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
    return line;
}
