#include "geometry/freeform_objects.h"

std::unique_ptr<VX_NurbsCurve> MakeCurve(CurveData& data)
{
    auto curve = std::make_unique<VX_NurbsCurve>();
    if (data.dimension == 0)
        return curve;
    curve->dimension = data.dimension;
    curve->rational = data.rational;
    curve->order = data.order;
    curve->controlPointCount = data.controlPointCount;
    curve->controlPointStride = data.dimension + (data.rational ? 1 : 0);
    const std::int64_t size = std::int64_t{data.controlPointCount} * curve->controlPointStride;
    while (data.controlPoints.Count() < size)
        data.controlPoints.Append(GK_UNSET_VALUE);
    curve->controlPoints = std::move(data.controlPoints);
    curve->knots = std::move(data.knots);
    return curve;
}
