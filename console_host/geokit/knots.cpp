#include "console_host/geokit/knots.h"

#include <cstdint>

GK_Interval KnotDomain(std::span<const double> knots, int order, int count)
{
    if (order < 2 || count < order ||
        static_cast<std::int64_t>(knots.size()) != std::int64_t{order} + count - 2)
        return {};
    return {knots[static_cast<std::size_t>(order) - 2], knots[static_cast<std::size_t>(count) - 1]};
}

bool MapKnots(std::span<double> knots, const GK_Interval& domain, double t0, double t1)
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

GK_Interval CutToDomain(const GK_Interval& part, const GK_Interval& domain)
{
    constexpr double RoundingOfFiles = 1e-4;
    const double slack = RoundingOfFiles * domain.Length();
    const auto cut = [&](double t) {
        if (t > domain[1] && t - domain[1] < slack)
            return domain[1];
        return t < domain[0] && domain[0] - t < slack ? domain[0] : t;
    };
    return {cut(part[0]), cut(part[1])};
}

double MirrorParameter(const GK_Interval& domain, double t)
{
    if (t == domain[0])
        return domain[1];
    if (t == domain[1])
        return domain[0];
    return domain[0] + domain[1] - t;
}
