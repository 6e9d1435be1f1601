#include "objimport/exchange/brep_geometry.h"

#include "objimport/exchange/exchange_texts.h"

#include "host/geokit/nurbs_surface.h"

#include <Geom2d_BSplineCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColStd_Array2OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_Array1OfPnt2d.hxx>
#include <TColgp_Array2OfPnt.hxx>
#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Knots as the library counts them: each once with its multiplicity, and the superfluous ends.
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

    // Returns whether control points stand at both ends, as readers of other makers expect.
    [[nodiscard]] bool AreClamped(int degree) const
    {
        return multiplicities.front() == degree + 1 && multiplicities.back() == degree + 1;
    }

    std::vector<double> values;
    std::vector<int> multiplicities;
};

gp_Pnt LibraryPoint(const GK_3dPoint& point, const Placing& placing)
{
    const GK_3dPoint p = placing.Placed(point);
    return {p.x, p.y, p.z};
}

void CheckDegree(int degree)
{
    if (degree > Geom_BSplineCurve::MaxDegree())
        throw std::runtime_error(
            Say(ExchangeTexts::DegreeTooHigh,
                {std::to_string(degree), std::to_string(Geom_BSplineCurve::MaxDegree())}));
}

void CheckCurve(const GK_NurbsCurve& curve)
{
    if (!curve.IsValid())
        throw std::runtime_error(Say(ExchangeTexts::CurveUnsound));
    CheckDegree(curve.Degree());
}

TColStd_Array1OfReal Weights(const GK_NurbsCurve& curve)
{
    TColStd_Array1OfReal weights(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i)
        weights.SetValue(i + 1, curve.Weight(i));
    return weights;
}

template <class Curve>
void CutTo(Curve& curve, bool isClamped, double low, double high)
{
    const double first = std::max(low, curve.FirstParameter());
    const double last = std::min(high, curve.LastParameter());
    if (!isClamped || first > curve.FirstParameter() || last < curve.LastParameter())
        curve.Segment(first, last);
}

// Moves the knots linearly; the ends become exactly those of the domain.
void MoveKnots(Geom2d_BSplineCurve& curve, const GK_Interval& domain)
{
    TColStd_Array1OfReal values(1, curve.NbKnots());
    curve.Knots(values);
    const double first = values.First();
    const double factor = domain.Length() / (values.Last() - first);
    for (int i = values.Lower(); i <= values.Upper(); ++i)
        values.SetValue(i, i == values.Upper() ? domain[1]
                                               : domain[0] + factor * (values.Value(i) - first));
    curve.SetKnots(values);
}

} // namespace

Handle(Geom_BSplineCurve)
    LibraryCurve(const GK_NurbsCurve& curve, const GK_Interval& domain, const Placing& placing)
{
    CheckCurve(curve);
    TColgp_Array1OfPnt points(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i)
        points.SetValue(i + 1, LibraryPoint(curve.ControlPoint(i), placing));
    const Knots knots(curve.knots);
    Handle(Geom_BSplineCurve) result = new Geom_BSplineCurve(
        points, Weights(curve), knots.Values(), knots.Multiplicities(), curve.Degree());
    CutTo(*result, knots.AreClamped(curve.Degree()), domain.Min(), domain.Max());
    return result;
}

Handle(Geom2d_BSplineCurve) LibraryTrimCurve(const GK_BrepTrim& trim, const GK_Interval& domain)
{
    const GK_NurbsCurve curve = trim.AsBspline();
    CheckCurve(curve);
    TColgp_Array1OfPnt2d points(1, curve.controlPointCount);
    for (int i = 0; i < curve.controlPointCount; ++i)
        points.SetValue(i + 1, gp_Pnt2d(curve.ControlPoint(i).x, curve.ControlPoint(i).y));
    const Knots knots(curve.knots);
    Handle(Geom2d_BSplineCurve) result = new Geom2d_BSplineCurve(
        points, Weights(curve), knots.Values(), knots.Multiplicities(), curve.Degree());
    CutTo(*result, knots.AreClamped(curve.Degree()), trim.Domain().Min(), trim.Domain().Max());
    if (trim.reversed != trim.Domain().IsDecreasing())
        result->Reverse();
    MoveKnots(*result, domain);
    return result;
}

Handle(Geom_BSplineSurface) LibrarySurface(const GK_Surface& surface, const Placing& placing)
{
    const auto* nurbs = GK_NurbsSurface::Cast(&surface);
    if (nurbs == nullptr || !nurbs->IsValid())
        throw std::runtime_error(Say(ExchangeTexts::SurfaceUnsound));
    CheckDegree(std::max(nurbs->Degree(0), nurbs->Degree(1)));
    const int rows = nurbs->ControlPointCount(0);
    const int columns = nurbs->ControlPointCount(1);
    TColgp_Array2OfPnt points(1, rows, 1, columns);
    TColStd_Array2OfReal weights(1, rows, 1, columns);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j) {
            points.SetValue(i + 1, j + 1, LibraryPoint(nurbs->ControlPoint(i, j), placing));
            weights.SetValue(i + 1, j + 1, nurbs->Weight(i, j));
        }
    const Knots u(nurbs->Knots(0));
    const Knots v(nurbs->Knots(1));
    Handle(Geom_BSplineSurface) result =
        new Geom_BSplineSurface(points, weights, u.Values(), v.Values(), u.Multiplicities(),
                                v.Multiplicities(), nurbs->Degree(0), nurbs->Degree(1));
    if (!u.AreClamped(nurbs->Degree(0)) || !v.AreClamped(nurbs->Degree(1)))
        result->Segment(nurbs->Domain(0)[0], nurbs->Domain(0)[1], nurbs->Domain(1)[0],
                        nurbs->Domain(1)[1]);
    return result;
}
