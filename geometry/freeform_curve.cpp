#include "geometry/freeform_curve.h"

std::unique_ptr<VX_NurbsCurve> MakeCurve(CurveData& data)
{
    auto curve = std::make_unique<VX_NurbsCurve>();
    if (data.dimension == 0)
        return curve;
    curve->Create(data.dimension, data.rational, data.order, data.controlPointCount);
    const GK::point_style style = data.rational ? GK::euclidean_rational : GK::not_rational;
    const int stride = data.dimension + (data.rational ? 1 : 0);
    for (int k = 0; k < data.controlPoints.Count() / stride; ++k)
        curve->SetCV(k, style, data.controlPoints.Array() + std::ptrdiff_t{k} * stride);
    curve->knots = data.knots;
    data = {}; // nothing fails any more
    return curve;
}
