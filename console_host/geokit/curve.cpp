#include "host/geokit/curve.h"

#include <algorithm>
#include <cmath>

bool GK_Curve::IsClosed() const
{
    constexpr double Rounding = 1e-12;
    const GK_3dPoint start = PointAtStart();
    const GK_3dPoint end = PointAtEnd();
    const double size = std::max({std::abs(start.x), std::abs(start.y), std::abs(start.z)});
    return start.DistanceTo(end) <= Rounding * size;
}
