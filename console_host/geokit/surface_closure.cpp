#include "console_host/geokit/surface_closure.h"

#include "console_host/geokit/point_box.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Returns the longest extent of the control points along an axis.
double SizeOf(const GK_NurbsSurface& surface)
{
    PointBox box;
    for (int j = 0; j < surface.ControlPointCount(1); ++j)
        for (int i = 0; i < surface.ControlPointCount(0); ++i)
            box.Add(surface.ControlPoint(i, j));
    return std::max({box.high.x - box.low.x, box.high.y - box.low.y, box.high.z - box.low.z});
}

bool IsPoint(const GK_NurbsCurve& side, double gap)
{
    const GK_3dPoint first = side.ControlPoint(0);
    for (int i = 1; i < side.controlPointCount; ++i)
        if (first.DistanceTo(side.ControlPoint(i)) > gap)
            return false;
    return true;
}

// Returns whether two lines of one surface are the same: they have the same knots, so control
// points and weights that differ little make curves that do.
bool AreSame(const GK_NurbsCurve& a, const GK_NurbsCurve& b, double gap, double size)
{
    const double scale = b.Weight(0) / a.Weight(0);
    for (int i = 0; i < a.controlPointCount; ++i) {
        const double weight = b.Weight(i);
        const double apart = a.ControlPoint(i).DistanceTo(b.ControlPoint(i)) +
                             size * std::abs(a.Weight(i) * scale - weight) / weight;
        if (!(apart <= gap))
            return false;
    }
    return true;
}

} // namespace

SurfaceClosure ClosureOf(const GK_NurbsSurface& surface, double tolerance)
{
    constexpr double ShareOfSize = 1e-3;
    constexpr double Rounding = 1e-9; // sides that differ by less are meant to be the same
    SurfaceClosure closure;
    closure.size = SizeOf(surface);
    const double gap =
        std::max(std::min(tolerance, ShareOfSize * closure.size), Rounding * closure.size);
    for (const int direction : {0, 1}) {
        const auto at = static_cast<std::size_t>(direction);
        const GK_Interval domain = surface.Domain(direction);
        const auto low = surface.IsoCurve(1 - direction, domain[0]);
        const auto high = surface.IsoCurve(1 - direction, domain[1]);
        closure.pole[at] = {IsPoint(*low, gap), IsPoint(*high, gap)};
        const bool bothPoles = closure.pole[at][0] && closure.pole[at][1];
        closure.closed[at] = !bothPoles && AreSame(*low, *high, gap, closure.size);
    }
    return closure;
}
