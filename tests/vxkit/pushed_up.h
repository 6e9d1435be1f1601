#pragma once

#include "tests/geokit/nurbs_shapes.h"

#include <algorithm>

// Returns the largest distance of the pushed-up curve from the surface at the 2D curve's point,
// over 1,000 parameters.
inline double Deviation(const GK_Curve& curve, const GK_NurbsSurface& surface,
                        const GK_Curve& curve2d, const GK_Interval& interval)
{
    double deviation = 0.0;
    for (int i = 0; i <= 1000; ++i) {
        const double t = interval.ParameterAt(i / 1000.0);
        const GK_3dPoint uv = curve2d.PointAt(t);
        deviation = std::max(deviation, curve.PointAt(t).DistanceTo(surface.PointAt(uv.x, uv.y)));
    }
    return deviation;
}

inline const GK_NurbsCurve& AsNurbs(const std::unique_ptr<GK_Curve>& curve)
{
    return *GK_NurbsCurve::Cast(curve.get());
}
