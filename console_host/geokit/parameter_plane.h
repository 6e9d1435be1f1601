#pragma once

#include "console_host/geokit/surface_closure.h"

#include "host/geokit/point.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>

/// A place of a parameter plane: u, v.
using Uv = std::array<double, 2>;

/// The box around places.
struct UvBox
{
    static constexpr double Infinity = std::numeric_limits<double>::infinity();

    Uv low{Infinity, Infinity};
    Uv high{-Infinity, -Infinity};

    void Add(const Uv& place)
    {
        for (const std::size_t d : {0U, 1U}) {
            low[d] = std::min(low[d], place[d]);
            high[d] = std::max(high[d], place[d]);
        }
    }

    /// Returns the longest side.
    [[nodiscard]] double Extent() const { return std::max(high[0] - low[0], high[1] - low[1]); }

    [[nodiscard]] bool Overlaps(const UvBox& other) const
    {
        return low[0] <= other.high[0] && other.low[0] <= high[0] && low[1] <= other.high[1] &&
               other.low[1] <= high[1];
    }
};

/// The sides of a surface's domain in the order in which they run round it counter-clockwise, from
/// the corner where both parameters are lowest.
enum class Side : int
{
    South, ///< v lowest, u rising
    East,  ///< u highest, v rising
    North, ///< v highest, u falling
    West   ///< u lowest, v falling
};

constexpr std::array<Side, 4> AllSides{Side::South, Side::East, Side::North, Side::West};

/// Returns the direction whose parameter is constant on a side: 0 for u, 1 for v.
constexpr std::size_t Across(Side side)
{
    return side == Side::South || side == Side::North ? 1 : 0;
}

/// Returns whether the parameter that is constant on a side is the highest there.
constexpr bool IsHigh(Side side)
{
    return side == Side::East || side == Side::North;
}

/// Returns the side on which a direction's parameter is lowest or highest.
constexpr Side SideAt(std::size_t direction, bool high)
{
    if (direction == 0)
        return high ? Side::East : Side::West;
    return high ? Side::North : Side::South;
}

/// Returns the opposite side.
constexpr Side Opposite(Side side)
{
    return AllSides[(static_cast<std::size_t>(side) + 2) % AllSides.size()];
}

/// The parameter plane of a surface, with what the surface says about its sides: which of them are
/// one seam and which are poles, within the tolerance of a repair.
class ParameterPlane
{
public:
    /// The surface must be valid and outlive the plane.
    ParameterPlane(const GK_NurbsSurface& surface, double tolerance);

    [[nodiscard]] double Tolerance() const { return m_tolerance; }

    /// Returns the surface's size in space.
    [[nodiscard]] double Size() const { return m_closure.size; }

    /// Returns the tolerance, or a thousandth of the surface's size where that is less.
    [[nodiscard]] double Closeness() const { return std::min(m_tolerance, 1e-3 * m_closure.size); }

    [[nodiscard]] double Low(std::size_t direction) const { return m_low[direction]; }
    [[nodiscard]] double High(std::size_t direction) const { return m_high[direction]; }
    [[nodiscard]] double Length(std::size_t direction) const
    {
        return m_high[direction] - m_low[direction];
    }

    /// Returns the distance to a side below which a place counts as on it.
    [[nodiscard]] double Slack(std::size_t direction) const { return m_slack[direction]; }

    [[nodiscard]] bool IsClosed(std::size_t direction) const { return m_closure.closed[direction]; }
    [[nodiscard]] bool IsSeam(Side side) const { return IsClosed(Across(side)); }
    [[nodiscard]] bool IsPole(Side side) const
    {
        return m_closure.pole[Across(side)][IsHigh(side) ? 1 : 0];
    }

    /// Returns the parameter that is constant on a side.
    [[nodiscard]] double Value(Side side) const
    {
        return IsHigh(side) ? High(Across(side)) : Low(Across(side));
    }

    /// Returns the corner where a side begins.
    [[nodiscard]] Uv Corner(Side side) const;

    /// Returns the whole periods that bring `to` nearest to `from`; 0 where the surface is not
    /// closed.
    [[nodiscard]] Uv PeriodsBetween(const Uv& from, const Uv& to) const;

    /// Returns the place within the domain that a place beyond a seam means.
    [[nodiscard]] Uv Wrapped(const Uv& place) const;

    /// Returns the point of the surface, beyond a seam too.
    [[nodiscard]] GK_3dPoint PointAt(const Uv& place) const;

    /// Returns a place in shares of the domain: 0 to 1 within it.
    [[nodiscard]] Uv Normalized(const Uv& place) const;

    /// Returns the distance of two places, in shares of the domain.
    [[nodiscard]] double Distance(const Uv& a, const Uv& b) const;

    /// Returns whether the places differ by no more than the rounding of files that print six
    /// digits.
    [[nodiscard]] bool Coincide(const Uv& a, const Uv& b) const;

    /// Returns the pole that both places are on, if any.
    [[nodiscard]] std::optional<Side> CommonPole(const Uv& a, const Uv& b) const;

    /// Returns whether the places coincide, or are on one pole, or lie within the tolerance in
    /// space together with the straight line between them.
    [[nodiscard]] bool Meet(const Uv& a, const Uv& b) const;

private:
    const GK_NurbsSurface& m_surface;
    double m_tolerance;
    SurfaceClosure m_closure;
    Uv m_low{};
    Uv m_high{};
    Uv m_slack{};
    Uv m_rounding{};
};

inline Uv operator+(const Uv& a, const Uv& b)
{
    return {a[0] + b[0], a[1] + b[1]};
}

inline Uv operator-(const Uv& a, const Uv& b)
{
    return {a[0] - b[0], a[1] - b[1]};
}
