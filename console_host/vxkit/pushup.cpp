#include "console_host/geokit/nurbs_evaluation.h"
#include "console_host/vxkit/curve_restriction.h"
#include "console_host/vxkit/image_fit.h"

#include "host/geokit/curve_proxy.h"
#include "host/vxkit/nurbs_surface.h"

#include <algorithm>
#include <cmath>

namespace {

// The B-spline that a curve is, or is a part of; null when it is neither.
const GK_NurbsCurve* UnderlyingCurve(const GK_Curve& curve)
{
    if (const auto* proxy = dynamic_cast<const GK_CurveProxy*>(&curve))
        return GK_NurbsCurve::Cast(proxy->ProxyCurve());
    return GK_NurbsCurve::Cast(&curve);
}

bool LiesWithin(const GK_Interval& part, const GK_Interval& whole)
{
    // Files round their numbers, so ends that are meant to be equal may differ a little.
    constexpr double RoundingOfFiles = 1e-6;
    const double slack = RoundingOfFiles * whole.Length();
    return part[0] >= whole[0] - slack && part[1] <= whole[1] + slack;
}

// Along a line of constant u or v the image is a part of a curve of the surface, exactly. Null when
// the curve is no such line.
std::unique_ptr<GK_Curve> ExactImage(const GK_NurbsCurve& line, const GK_NurbsSurface& surface,
                                     const GK_Interval& interval)
{
    constexpr double MostWork = 1e8;
    if (line.order != 2 || line.controlPointCount != 2 || line.rational)
        return nullptr;
    const GK_3dPoint from = line.PointAt(interval[0]);
    const GK_3dPoint to = line.PointAt(interval[1]);
    const GK_3dPoint a = line.ControlPoint(0);
    const GK_3dPoint b = line.ControlPoint(1);
    if ((a.x == b.x) == (a.y == b.y))
        return nullptr;
    const int direction = a.y == b.y ? 0 : 1;
    const double start = direction == 0 ? from.x : from.y;
    const double end = direction == 0 ? to.x : to.y;
    const double order = surface.Order(direction);
    if (start == end || order * order * surface.ControlPointCount(direction) > MostWork)
        return nullptr;
    const auto whole = IsoCurveOver(surface, direction, direction == 0 ? a.y : a.x, {start, end});
    auto part = RestrictCurve(*whole, std::min(start, end), std::max(start, end));
    if (start > end)
        part->Reverse();
    return part->SetDomain(interval[0], interval[1]) && part->IsValid() ? std::move(part) : nullptr;
}

} // namespace

std::unique_ptr<GK_Curve> VX_NurbsSurface::Pushup(const GK_Curve& curve2d, double tolerance,
                                                  const GK_Interval* subdomain) const
{
    const GK_NurbsCurve* curve = UnderlyingCurve(curve2d);
    if (curve == nullptr || curve->dimension != 2 || !curve->IsValid() || !IsValid())
        return nullptr;
    const GK_Interval part = subdomain != nullptr ? *subdomain : curve2d.Domain();
    const GK_Interval interval(part.Min(), part.Max());
    if (!interval.IsIncreasing() || !LiesWithin(interval, curve->Domain()))
        return nullptr;
    if (auto exact = ExactImage(*curve, *this, interval))
        return exact;
    return FitImage(SurfaceImage(*curve, *this), interval, tolerance);
}
