#include "host/geokit/nurbs_curve.h"

#include "console_host/geokit/knots.h"
#include "console_host/geokit/nurbs_checks.h"
#include "console_host/geokit/nurbs_evaluation.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>

void GK_NurbsCurve::Create(int curveDimension, bool isRational, int curveOrder, int count)
{
    dimension = curveDimension;
    rational = isRational;
    order = curveOrder;
    controlPointCount = std::max(count, 0);
    controlPointStride = dimension + (rational ? 1 : 0);
    knots.Destroy();
    controlPoints.Destroy();
    const std::int64_t size = std::int64_t{controlPointCount} * controlPointStride;
    if (size > std::numeric_limits<int>::max())
        throw std::bad_alloc();
    controlPoints.SetCount(static_cast<int>(size));
    std::fill(controlPoints.begin(), controlPoints.end(), GK_UNSET_VALUE);
}

bool GK_NurbsCurve::SetCV(int index, GK::point_style style, const double* point)
{
    const std::int64_t offset = std::int64_t{index} * controlPointStride;
    if (index < 0 || offset + controlPointStride > controlPoints.Count())
        return false;
    double* values = controlPoints.Array() + offset;
    std::copy_n(point, dimension, values);
    if (rational)
        values[dimension] = style == GK::euclidean_rational ? point[dimension] : 1.0;
    return true;
}

GK_3dPoint GK_NurbsCurve::ControlPoint(int index) const
{
    const double* values = controlPoints.Array() + std::int64_t{index} * controlPointStride;
    return {values[0], values[1], dimension > 2 ? values[2] : 0.0};
}

double GK_NurbsCurve::Weight(int index) const
{
    return rational ? controlPoints.Array()[std::int64_t{index} * controlPointStride + dimension]
                    : 1.0;
}

std::int64_t GK_NurbsCurve::KnotCount() const
{
    return std::int64_t{order} + controlPointCount - 2;
}

bool GK_NurbsCurve::SetKnot(int index, double value)
{
    if (index < 0 || index >= knots.Count())
        return false;
    knots[index] = value;
    return true;
}

int GK_NurbsCurve::Degree() const
{
    return order - 1;
}

GK_Interval GK_NurbsCurve::Domain() const
{
    return KnotDomain(knots, order, controlPointCount);
}

bool GK_NurbsCurve::SetDomain(double t0, double t1)
{
    return MapKnots(knots, Domain(), t0, t1);
}

GK_CurvePoint GK_NurbsCurve::Evaluate(double t) const
{
    if (!Domain().IsIncreasing() ||
        controlPoints.Count() < std::int64_t{controlPointCount} * controlPointStride)
        return {};
    return EvaluateInSpan(*this, FindSpan(*this, t), t);
}

void GK_NurbsCurve::Reverse()
{
    const GK_Interval domain = Domain();
    std::reverse(knots.begin(), knots.end());
    for (double& knot : knots)
        knot = MirrorParameter(domain, knot);
    const std::ptrdiff_t stride = controlPointStride;
    double* values = controlPoints.Array();
    for (int i = 0, j = controlPointCount - 1; i < j; ++i, --j)
        std::swap_ranges(values + i * stride, values + (i + 1) * stride, values + j * stride);
}

bool GK_NurbsCurve::IsValid(std::string* reason) const
{
    constexpr const char* Subject = "curve";
    const BsplineDirection direction{order, controlPointCount, {knots.begin(), knots.end()}, ""};
    if (dimension == 0)
        return Unsound(reason, "the curve has no control points");
    if (dimension != 2 && dimension != 3)
        return Unsound(reason, "the curve is neither in space nor in a plane");
    if (controlPointStride != dimension + (rational ? 1 : 0))
        return Unsound(reason, "the curve's control points have the wrong stride");
    std::int64_t soundPoints = 0;
    return CheckOrder(direction, Subject, reason) &&
           CheckControlPoints({controlPoints.begin(), controlPoints.end()}, controlPointCount,
                              dimension, rational, Subject, reason, soundPoints) &&
           CheckKnots(direction, Subject, reason);
}

std::unique_ptr<GK_Curve> GK_NurbsCurve::Duplicate() const
{
    return std::make_unique<GK_NurbsCurve>(*this);
}
