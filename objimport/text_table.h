#pragma once

#include "objimport/text_output.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A table of text with aligned columns.
class TextTable
{
public:
    enum class Align
    {
        Left,
        Right
    };

    /// What becomes of the texts of a column for which the page is too narrow.
    enum class Cut
    {
        Never,
        AtEnd,
        InMiddle ///< as suits paths, whose ends say most
    };

    struct Column
    {
        std::string heading;
        Align align = Align::Left;
        Cut cut = Cut::Never;
    };

    explicit TextTable(std::vector<Column> columns) : m_columns(std::move(columns)) {}

    /// Adds a row of as many cells as there are columns, in UTF-8.
    void AddRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }

    /// Takes out the columns that show nothing but `nothing` in every row.
    void LeaveOutColumnsOf(std::string_view nothing);

    /// Writes heading and rows, each line after two blanks, within a width as far as columns can be
    /// cut.
    void Write(TextOutput& output, int width) const;

    /// Writes heading and rows with nothing cut. Beside very long texts columns are not aligned.
    void WriteWhole(TextOutput& output) const;

private:
    [[nodiscard]] int FullWidth(std::size_t column) const;
    [[nodiscard]] std::vector<int> Widths(int pageWidth) const;

    template <class Append>
    void WriteLines(TextOutput& output, Append appendCell) const;

    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

/// Returns how many columns of a terminal a text takes.
int DisplayWidth(std::string_view utf8);

/// Returns how many bytes of a text, whole characters, take no more columns than `width`.
std::size_t FittingLength(std::string_view utf8, int width);

/// Returns the text, cut with "..." at its end when it takes more columns than `width`.
std::string Shortened(std::string_view utf8, int width);

/// Returns the same, cut in the middle.
std::string ShortenedInMiddle(std::string_view utf8, int width);
