#include "objimport/exchange/linear_color.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace {

using Table = std::array<double, 256>;

/// Returns the transfer function of sRGB for each channel value.
Table MakeTable()
{
    Table table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double value = static_cast<double>(i) / 255.0;
        table[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    }
    return table;
}

} // namespace

double LinearChannel(int channel)
{
    static const Table Channels = MakeTable();
    return Channels[static_cast<std::size_t>(channel)];
}
