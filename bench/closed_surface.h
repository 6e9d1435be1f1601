#pragma once

#include <array>
#include <cmath>
#include <numbers>

/// A point of a closed surface.
struct SurfacePoint
{
    std::array<double, 3> position;
    std::array<double, 3> normal; ///< of unit length, outward
};

/// A ring of rows around a tube of columns. Points are counted from 0, row by row; the last row is
/// a neighbour of the first, and so are the columns.
struct ClosedSurface
{
    long long rows;
    long long columns;

    [[nodiscard]] constexpr long long PointCount() const { return rows * columns; }

    [[nodiscard]] constexpr long long Place(long long row, long long column) const
    {
        return row % rows * columns + column % columns;
    }

    /// The four points of a quad, counter-clockwise from outside.
    [[nodiscard]] constexpr std::array<long long, 4> QuadAt(long long row, long long column) const
    {
        return {Place(row, column), Place(row + 1, column), Place(row + 1, column + 1),
                Place(row, column + 1)};
    }

    [[nodiscard]] SurfacePoint PointAt(long long place) const
    {
        constexpr double RingRadius = 10.0;
        constexpr double TubeRadius = 4.0;
        const double ring = Angle(place / columns, rows);
        const double tube = Angle(place % columns, columns);
        const std::array normal{std::cos(ring) * std::cos(tube), std::sin(ring) * std::cos(tube),
                                std::sin(tube)};
        return {{RingRadius * std::cos(ring) + TubeRadius * normal[0],
                 RingRadius * std::sin(ring) + TubeRadius * normal[1], TubeRadius * normal[2]},
                normal};
    }

private:
    static double Angle(long long index, long long count)
    {
        return 2.0 * std::numbers::pi * static_cast<double>(index) / static_cast<double>(count);
    }
};
