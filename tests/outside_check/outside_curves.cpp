#include "tests/outside_check/outside_shape.h"

#include "host/geokit/nurbs_surface.h"

#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColStd_Array2OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_Array1OfPnt2d.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <stdexcept>
#include <vector>

namespace {

// Knots as the other library counts them: each once with its multiplicity, and the superfluous
// ends.
struct Knots
{
    template <class Array>
    explicit Knots(const Array& knots)
    {
        for (const double knot : knots) {
            if (values.empty() || values.back() != knot) {
                values.push_back(knot);
                multiplicities.push_back(0);
            }
            ++multiplicities.back();
        }
        ++multiplicities.front();
        ++multiplicities.back();
    }

    [[nodiscard]] TColStd_Array1OfReal Values() const
    {
        return {values.front(), 1, static_cast<int>(values.size())};
    }
    [[nodiscard]] TColStd_Array1OfInteger Multiplicities() const
    {
        return {multiplicities.front(), 1, static_cast<int>(values.size())};
    }

    std::vector<double> values;
    std::vector<int> multiplicities;
};

GK_NurbsCurve CurveOf(const GK_CurveProxy& proxy)
{
    GK_NurbsCurve curve = proxy.AsBspline();
    if (!curve.IsValid())
        throw std::runtime_error("a trim or an edge has no sound curve");
    return curve;
}

TColStd_Array1OfReal Weights(const GK_NurbsCurve& curve)
{
    TColStd_Array1OfReal weights(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i)
        weights.SetValue(i + 1, curve.Weight(i));
    return weights;
}

} // namespace

Handle(Geom_BSplineCurve) OutsideCurve(const GK_BrepEdge& edge, double scale)
{
    const GK_NurbsCurve curve = CurveOf(edge);
    TColgp_Array1OfPnt points(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i) {
        const GK_3dPoint p = curve.ControlPoint(i);
        points.SetValue(i + 1, gp_Pnt(scale * p.x, scale * p.y, scale * p.z));
    }
    const Knots knots(curve.knots);
    Handle(Geom_BSplineCurve) result = new Geom_BSplineCurve(
        points, Weights(curve), knots.Values(), knots.Multiplicities(), curve.Degree());
    return result;
}

Handle(Geom2d_BSplineCurve) OutsideTrimCurve(const GK_BrepTrim& trim, const GK_Interval& domain)
{
    const GK_NurbsCurve curve = CurveOf(trim);
    TColgp_Array1OfPnt2d points(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i)
        points.SetValue(i + 1, gp_Pnt2d(curve.ControlPoint(i).x, curve.ControlPoint(i).y));
    const Knots knots(curve.knots);
    Handle(Geom2d_BSplineCurve) result = new Geom2d_BSplineCurve(
        points, Weights(curve), knots.Values(), knots.Multiplicities(), curve.Degree());
    result->Segment(std::max(trim.Domain().Min(), result->FirstParameter()),
                    std::min(trim.Domain().Max(), result->LastParameter()));
    if (trim.reversed != trim.Domain().IsDecreasing())
        result->Reverse();
    TColStd_Array1OfReal values(1, result->NbKnots());
    result->Knots(values);
    const double first = values.First();
    const double factor = domain.Length() / (values.Last() - first);
    for (int i = values.Lower(); i <= values.Upper(); ++i)
        values.SetValue(i, i == values.Upper() ? domain[1]
                                               : domain[0] + factor * (values.Value(i) - first));
    result->SetKnots(values);
    return result;
}

Handle(Geom_BSplineSurface) OutsideSurface(const GK_Surface& surface, double scale)
{
    const auto* nurbs = GK_NurbsSurface::Cast(&surface);
    if (nurbs == nullptr)
        throw std::runtime_error("a surface is not a B-spline");
    const int rows = nurbs->ControlPointCount(0);
    const int columns = nurbs->ControlPointCount(1);
    TColgp_Array2OfPnt points(1, rows, 1, columns);
    TColStd_Array2OfReal weights(1, rows, 1, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j) {
            const GK_3dPoint p = nurbs->ControlPoint(i, j);
            points.SetValue(i + 1, j + 1, gp_Pnt(scale * p.x, scale * p.y, scale * p.z));
            weights.SetValue(i + 1, j + 1, nurbs->Weight(i, j));
        }
    const Knots u(nurbs->Knots(0));
    const Knots v(nurbs->Knots(1));
    Handle(Geom_BSplineSurface) result =
        new Geom_BSplineSurface(points, weights, u.Values(), v.Values(), u.Multiplicities(),
                                v.Multiplicities(), nurbs->Degree(0), nurbs->Degree(1));
    return result;
}
