#pragma once

#include "host/geokit/surface.h"

#include <algorithm>
#include <array>
#include <limits>

/// How large a surface is: its domains, its longest side in space, and its mean lengths along u and
/// along v.
struct SurfaceExtent
{
    SurfaceExtent() = default;
    explicit SurfaceExtent(const GK_Surface& surface) : domain{surface.Domain(0), surface.Domain(1)}
    {
        constexpr int Steps = 16;
        constexpr double Infinity = std::numeric_limits<double>::infinity();
        std::array<double, 3> low{Infinity, Infinity, Infinity};
        std::array<double, 3> high{-Infinity, -Infinity, -Infinity};
        for (int i = 0; i < Steps * Steps; ++i) {
            const int row = i / Steps;
            const GK_SurfacePoint at =
                surface.Evaluate(domain[0].ParameterAt(1.0 * (i % Steps) / (Steps - 1)),
                                 domain[1].ParameterAt(1.0 * row / (Steps - 1)));
            const std::array<double, 3> point{at.point.x, at.point.y, at.point.z};
            for (std::size_t k = 0; k < point.size(); ++k) {
                low[k] = std::min(low[k], point[k]);
                high[k] = std::max(high[k], point[k]);
            }
            length[0] += at.du.Length() * domain[0].Length() / (Steps * Steps);
            length[1] += at.dv.Length() * domain[1].Length() / (Steps * Steps);
        }
        size = std::max({high[0] - low[0], high[1] - low[1], high[2] - low[2]});
    }

    std::array<GK_Interval, 2> domain;
    std::array<double, 2> length{};
    double size = 0.0;
};
