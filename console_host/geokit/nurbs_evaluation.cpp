#include "console_host/geokit/nurbs_evaluation.h"

#include "console_host/geokit/bspline_basis.h"

namespace {

int FindSpanAlong(const GK_NurbsSurface& surface, int direction, double t)
{
    const GK_SimpleArray<double>& knots = surface.Knots(direction);
    return FindSpan({knots.begin(), knots.end()}, surface.Order(direction),
                    surface.ControlPointCount(direction), t);
}

// Sets control point `i` of a curve to the sum of the control points `values(0)` and on.
template <class Values>
void SetSum(GK_NurbsCurve& curve, int i, const BasisValues& basis, int order, const Values& values)
{
    WeightedSum sum;
    for (int j = 0; j < order; ++j) {
        if (basis[j] == 1.0) { // along a clamped side the control points are exact
            curve.SetCV(i, GK::euclidean_rational, values(j));
            return;
        }
        sum.Add(basis[j], values(j), curve.dimension, curve.rational);
    }
    const GK_3dPoint place = curve.rational ? sum.Point() : GK_origin + sum.sum;
    const double point[4] = {place.x, place.y, place.z, sum.weight};
    curve.SetCV(i, GK::euclidean_rational, point);
}

} // namespace

int FindSpan(const GK_NurbsCurve& curve, double t)
{
    return FindSpan({curve.knots.begin(), curve.knots.end()}, curve.order, curve.controlPointCount,
                    t);
}

GK_CurvePoint EvaluateInSpan(const GK_NurbsCurve& curve, int span, double t)
{
    const BasisFunctions basis(curve.knots.Array() + span, curve.Degree(), t);
    WeightedSum point;
    WeightedSum derivative;
    for (int i = 0; i < curve.order; ++i) {
        const double* values =
            curve.controlPoints.Array() + std::int64_t{span + i} * curve.controlPointStride;
        point.Add(basis.Value(i), values, curve.dimension, curve.rational);
        derivative.Add(basis.Derivative(i), values, curve.dimension, curve.rational);
    }
    if (!curve.rational)
        return {GK_origin + point.sum, derivative.sum};
    const GK_3dPoint place = point.Point();
    return {place, derivative.Derivative(place, point.weight)};
}

GK_3dPoint PointInSpan(const GK_NurbsCurve& curve, int span, double t)
{
    const BasisValues basis(curve.knots.Array() + span, curve.Degree(), t);
    const double* values =
        curve.controlPoints.Array() + std::int64_t{span} * curve.controlPointStride;
    WeightedSum point;
    for (int i = 0; i < curve.order; ++i, values += curve.controlPointStride)
        point.Add(basis[i], values, curve.dimension, curve.rational);
    return curve.rational ? point.Point() : GK_origin + point.sum;
}

std::array<int, 2> FindSpans(const GK_NurbsSurface& surface, double u, double v)
{
    return {FindSpanAlong(surface, 0, u), FindSpanAlong(surface, 1, v)};
}

GK_SurfacePoint EvaluateInSpans(const GK_NurbsSurface& surface, const std::array<int, 2>& spans,
                                double u, double v)
{
    constexpr int Dimension = 3;
    const bool rational = surface.IsRational();
    const BasisFunctions basisU(surface.Knots(0).Array() + spans[0], surface.Degree(0), u);
    const BasisFunctions basisV(surface.Knots(1).Array() + spans[1], surface.Degree(1), v);
    WeightedSum point;
    WeightedSum du;
    WeightedSum dv;
    for (int j = 0; j < surface.Order(1); ++j) {
        WeightedSum row;
        WeightedSum rowDu;
        const double* values = surface.ControlPointValues(spans[0], spans[1] + j);
        for (int i = 0; i < surface.Order(0); ++i, values += surface.ControlPointStride()) {
            row.Add(basisU.Value(i), values, Dimension, rational);
            rowDu.Add(basisU.Derivative(i), values, Dimension, rational);
        }
        point.Add(basisV.Value(j), row);
        du.Add(basisV.Value(j), rowDu);
        dv.Add(basisV.Derivative(j), row);
    }
    if (!rational)
        return {GK_origin + point.sum, du.sum, dv.sum};
    const GK_3dPoint place = point.Point();
    return {place, du.Derivative(place, point.weight), dv.Derivative(place, point.weight)};
}

GK_3dPoint PointInSpans(const GK_NurbsSurface& surface, const std::array<int, 2>& spans, double u,
                        double v)
{
    const BasisValues basisU(surface.Knots(0).Array() + spans[0], surface.Degree(0), u);
    const BasisValues basisV(surface.Knots(1).Array() + spans[1], surface.Degree(1), v);
    const bool rational = surface.IsRational();
    WeightedSum point;
    for (int j = 0; j < surface.Order(1); ++j) {
        WeightedSum row;
        const double* values = surface.ControlPointValues(spans[0], spans[1] + j);
        for (int i = 0; i < surface.Order(0); ++i, values += surface.ControlPointStride())
            row.Add(basisU[i], values, 3, rational);
        point.Add(basisV[j], row);
    }
    return rational ? point.Point() : GK_origin + point.sum;
}

std::unique_ptr<GK_NurbsCurve> IsoCurveOver(const GK_NurbsSurface& surface, int direction,
                                            double parameter, const GK_Interval& part)
{
    const int across = 1 - direction;
    const int row = FindSpanAlong(surface, across, parameter);
    const int degree = surface.Degree(direction);
    const int first = FindSpanAlong(surface, direction, part.Min());
    const int last = FindSpanAlong(surface, direction, part.Max());
    const BasisValues basis(surface.Knots(across).Array() + row, surface.Degree(across), parameter);
    auto curve = std::make_unique<GK_NurbsCurve>();
    curve->Create(3, surface.IsRational(), degree + 1, last - first + degree + 1);
    curve->knots.Reserve(last - first + 2 * degree);
    curve->knots.Append(last - first + 2 * degree, surface.Knots(direction).Array() + first);
    for (int i = 0; i < curve->controlPointCount; ++i)
        SetSum(*curve, i, basis, surface.Order(across), [&](int j) {
            return direction == 0 ? surface.ControlPointValues(first + i, row + j)
                                  : surface.ControlPointValues(row + j, first + i);
        });
    return curve;
}
