#pragma once

#include "host/geokit/nurbs_surface.h"

#include <array>

/// How the sides of a surface's domain lie in space. Direction 0 is u, direction 1 is v.
struct SurfaceClosure
{
    /// The two sides across a direction are the same curve, so the surface closes there.
    std::array<bool, 2> closed{};

    /// The side where the direction's parameter is lowest, and highest, is a single point.
    std::array<std::array<bool, 2>, 2> pole{};

    double size = 0.0; ///< the longest extent of the control points along an axis
};

/// Returns which sides of a valid surface meet or collapse within the tolerance and within a
/// thousandth of the surface's size; rounding is allowed in any case.
SurfaceClosure ClosureOf(const GK_NurbsSurface& surface, double tolerance);
