#pragma once

#include "objimport/text_output.h"

#include <string>
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

    struct Column
    {
        std::string heading;
        Align align = Align::Left;
    };

    explicit TextTable(std::vector<Column> columns) : m_columns(std::move(columns)) {}

    /// A row of as many cells as there are columns, in UTF-8.
    void AddRow(std::vector<std::string> cells) { m_rows.push_back(std::move(cells)); }

    /// Writes heading and rows, each line behind two blanks.
    void Write(TextOutput& output) const;

private:
    std::vector<Column> m_columns;
    std::vector<std::vector<std::string>> m_rows;
};

/// How many columns of a terminal a text takes.
int DisplayWidth(std::string_view utf8);

/// The text, cut with "..." at its end when it takes more columns than `width`.
std::string Shortened(std::string_view utf8, int width);
