#pragma once

#include "console_host/app/document.h"
#include "objimport/text_table.h"

#include <cstddef>
#include <string>
#include <vector>

/// What a cell shows when there is nothing to show.
inline constexpr const char* NoCell = "-";

/// Returns how many columns of a name are shown at most, so that one that very many objects have
/// does not fill the memory.
constexpr int LongestName(bool all)
{
    return all ? 500 : 200;
}

/// Returns the columns of the table for a kind of geometry, by its place in AnyGeometry.
std::vector<TextTable::Column> ObjectColumns(std::size_t kind);

/// Returns an object's cells in these columns; `all`: with names as long as LongestName allows.
std::vector<std::string> ObjectRow(const ConsoleDoc& doc, int index, bool all);

/// Returns a coordinate with all the digits that it has: as few as read back as the same number,
/// which is one of single precision where it can be.
std::string Coordinate(double value);

/// Returns how far it is from one coordinate to another, with at most six digits and no more
/// decimals than the coordinates have.
std::string Extent(double from, double to);
