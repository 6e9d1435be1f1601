#include "console_host/geokit/knots.h"

#include <cstdint>

GK_Interval KnotDomain(const GK_SimpleArray<double>& knots, int order, int count)
{
    if (order < 2 || count < order || knots.Count() != std::int64_t{order} + count - 2)
        return {};
    return {knots[order - 2], knots[count - 1]};
}

bool MapKnots(GK_SimpleArray<double>& knots, const GK_Interval& domain, double t0, double t1)
{
    if (!domain.IsIncreasing() || !(t0 < t1))
        return false;
    const double scale = (t1 - t0) / domain.Length();
    for (double& knot : knots) {
        if (knot == domain[1])
            knot = t1;
        else
            knot = t0 + (knot - domain[0]) * scale;
    }
    return true;
}

double MirrorParameter(const GK_Interval& domain, double t)
{
    if (t == domain[0])
        return domain[1];
    if (t == domain[1])
        return domain[0];
    return domain[0] + domain[1] - t;
}
