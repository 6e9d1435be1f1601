#include "host/geokit/nurbs_curve.h"

#include "console_host/geokit/knots.h"
#include "console_host/geokit/nurbs_checks.h"
#include "console_host/geokit/nurbs_evaluation.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <span>
#include <utility>

namespace {

std::size_t Size(const GK_SharedArray<double>& values)
{
    return static_cast<std::size_t>(values.Count());
}

std::span<const double> KnotsOf(const GK_NurbsCurve& curve)
{
    return {curve.knots.Array(), Size(curve.knots)};
}

// Return what the control points and knots of a curve of valid order are checked against, as
// numbers other than 0.
std::uint64_t MarkOfPoints(const GK_NurbsCurve& curve)
{
    const std::uint64_t kind = curve.rational ? 8 : 4;
    return static_cast<std::uint64_t>(curve.controlPointCount) * 16 + kind +
           static_cast<std::uint64_t>(curve.dimension);
}

std::uint64_t MarkOfKnots(const GK_NurbsCurve& curve)
{
    return static_cast<std::uint64_t>(curve.controlPointCount) * 64 +
           static_cast<std::uint64_t>(curve.order);
}

} // namespace

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
    GK_SimpleArray<double> unset;
    unset.SetCount(static_cast<int>(size));
    std::fill(unset.begin(), unset.end(), GK_UNSET_VALUE);
    controlPoints = std::move(unset);
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

bool GK_NurbsCurve::SetKnot(int index, double value)
{
    if (index < 0 || index >= knots.Count())
        return false;
    knots[index] = value;
    return true;
}

GK_Interval GK_NurbsCurve::Domain() const
{
    return KnotDomain(KnotsOf(*this), order, controlPointCount);
}

bool GK_NurbsCurve::SetDomain(double t0, double t1)
{
    const GK_Interval domain = Domain();
    return domain.IsIncreasing() && MapKnots({knots.begin(), knots.end()}, domain, t0, t1);
}

GK_CurvePoint GK_NurbsCurve::Evaluate(double t) const
{
    if (order > GK_MOST_ORDER || !Domain().IsIncreasing() ||
        controlPoints.Count() < std::int64_t{controlPointCount} * controlPointStride)
        return {};
    return EvaluateInSpan(*this, FindSpan(*this, t), t);
}

void GK_NurbsCurve::Reverse()
{
    const GK_Interval domain = Domain();
    const std::span<double> ownKnots(knots.begin(), knots.end());
    std::reverse(ownKnots.begin(), ownKnots.end());
    for (double& knot : ownKnots)
        knot = MirrorParameter(domain, knot);
    const std::ptrdiff_t stride = controlPointStride;
    double* values = controlPoints.Array();
    for (int i = 0, j = controlPointCount - 1; i < j; ++i, --j)
        std::swap_ranges(values + i * stride, values + (i + 1) * stride, values + j * stride);
}

bool GK_NurbsCurve::IsValid(std::string* reason) const
{
    constexpr const char* Subject = "curve";
    const BsplineDirection direction{order, controlPointCount, KnotsOf(*this), ""};
    if (dimension == 0)
        return Unsound(reason, "the curve has no control points");
    if (dimension != 2 && dimension != 3)
        return Unsound(reason, "the curve is neither in space nor in a plane");
    if (controlPointStride != dimension + (rational ? 1 : 0))
        return Unsound(reason, "the curve's control points have the wrong stride");
    if (!CheckOrder(direction, Subject, reason))
        return false;
    // Copies share what was checked: a large curve that many trims use is checked once.
    if (controlPoints.Mark() != MarkOfPoints(*this)) {
        std::int64_t soundPoints = 0;
        if (!CheckControlPoints({controlPoints.Array(), Size(controlPoints)}, controlPointCount,
                                dimension, rational, Subject, reason, soundPoints))
            return false;
        controlPoints.SetMark(MarkOfPoints(*this));
    }
    if (knots.Mark() != MarkOfKnots(*this)) {
        if (!CheckKnots(direction, Subject, reason))
            return false;
        knots.SetMark(MarkOfKnots(*this));
    }
    return true;
}

std::unique_ptr<GK_Curve> GK_NurbsCurve::Duplicate() const
{
    return std::make_unique<GK_NurbsCurve>(*this);
}
