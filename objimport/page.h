#pragma once

#include "objimport/text_output.h"

#include <cstddef>
#include <string>
#include <vector>

class TextTable;

/// What a summary is written on: how wide it is, whether it shows colours, and whether long lists
/// are cut.
class Page
{
public:
    /// How many rows of a long list are shown.
    static constexpr std::size_t ShownRows = 20;

    /// Columns of a page that is not a terminal.
    static constexpr int UsualWidth = 80;

    explicit Page(TextOutput& output, int width = UsualWidth, bool colours = false,
                  bool all = false)
        : m_output(output), m_width(width), m_colours(colours), m_all(all)
    {
    }

    /// Returns a page for what goes to a stream: as wide as its terminal.
    static Page On(TextOutput& output, std::FILE* stream, bool all);

    [[nodiscard]] TextOutput& Output() const { return m_output; }
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] bool ShowsAll() const { return m_all; }

    /// Returns how many of so many rows are shown.
    [[nodiscard]] std::size_t Shown(std::size_t rows) const;

    /// Writes a line; one that is too long continues on the next line, after four blanks.
    void Line(const std::string& text) const;

    /// The same in the colour of warnings.
    void Warning(const std::string& text) const;

    /// Writes the heading of a table, after an empty line.
    void Heading(const std::string& text) const;

    /// Writes a table, within the page's width unless the page shows all.
    void Write(const TextTable& table) const;

    /// Says after a list of so many rows how many of them are not shown, when any are.
    void LeftOut(std::size_t rows) const;

    /// Returns the names in one line, the first of them only when there are many.
    [[nodiscard]] std::string Listed(const std::vector<std::string>& names) const;

private:
    TextOutput& m_output;
    int m_width;
    bool m_colours;
    bool m_all;
};

/// Returns one line of printable text, whatever stands in `text`.
std::string OneLine(std::string_view text);
