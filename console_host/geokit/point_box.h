#pragma once

#include "host/geokit/point.h"

#include <algorithm>
#include <cmath>
#include <limits>

/// Returns the largest coordinate, its sign aside.
inline double LargestCoordinate(const GK_3dPoint& point)
{
    return std::max({std::abs(point.x), std::abs(point.y), std::abs(point.z)});
}

template <class Point>
bool IsFinite(const Point& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

/// The box around points.
struct PointBox
{
    static constexpr double Infinity = std::numeric_limits<double>::infinity();

    GK_3dPoint low{Infinity, Infinity, Infinity};
    GK_3dPoint high{-Infinity, -Infinity, -Infinity};

    void Add(const GK_3dPoint& point)
    {
        low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
    }

    [[nodiscard]] bool IsEmpty() const { return low.x > high.x; }

    /// Points at exactly one place have their middle exactly there.
    [[nodiscard]] GK_3dPoint Middle() const { return low + 0.5 * (high - low); }
};
