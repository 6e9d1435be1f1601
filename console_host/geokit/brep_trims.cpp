#include "console_host/geokit/brep_trims.h"

#include "console_host/geokit/knots.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

GK_3dPoint Image(const GK_Surface& surface, const GK_3dPoint& uv)
{
    return surface.PointAt(uv.x, uv.y);
}

// Double precision places a point no better than this.
double Rounding(const GK_3dPoint& point)
{
    constexpr double Units = 64.0;
    const double size = std::max({std::abs(point.x), std::abs(point.y), std::abs(point.z)});
    return Units * std::numeric_limits<double>::epsilon() * size;
}

// The same way along the same points with an increasing domain, on a curve turned round.
void TurnCurveRound(GK_Brep& brep, GK_BrepTrim& trim)
{
    GK_Curve& curve = *brep.TrimCurve(trim.curveIndex);
    const GK_Interval domain = trim.Domain();
    const GK_Interval whole = curve.Domain();
    curve.Reverse();
    trim.SetDomain(MirrorParameter(whole, domain[0]), MirrorParameter(whole, domain[1]));
}

void TakeVertices(const GK_Brep& brep, GK_BrepTrim& trim)
{
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    trim.vertexIndex = edge.vertexIndex;
    if (trim.reversed)
        std::swap(trim.vertexIndex[0], trim.vertexIndex[1]);
}

} // namespace

const GK_Surface& TrimSurface(const GK_Brep& brep, const GK_BrepTrim& trim)
{
    return *brep.Surface(brep.Face(brep.Loop(trim.loopIndex).faceIndex).surfaceIndex);
}

TrimEnds EndsOf(const GK_Brep& brep, const GK_BrepTrim& trim)
{
    TrimEnds ends;
    ends.uv = {trim.PointAtStart(), trim.PointAtEnd()};
    if (trim.edgeIndex < 0) {
        const GK_Surface& surface = TrimSurface(brep, trim);
        ends.point = {Image(surface, ends.uv[0]), Image(surface, ends.uv[1])};
        return ends;
    }
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    ends.point = {edge.PointAtStart(), edge.PointAtEnd()};
    if (trim.reversed)
        std::swap(ends.point[0], ends.point[1]);
    return ends;
}

bool EndsMeet(const GK_Surface& surface, const TrimEnds& a, std::size_t endOfA, const TrimEnds& b,
              std::size_t endOfB, double tolerance)
{
    const GK_3dPoint& point = a.point[endOfA];
    const double near = std::max(tolerance, Rounding(point));
    if (!(point.DistanceTo(b.point[endOfB]) <= near))
        return false;
    const GK_3dPoint& from = a.uv[endOfA];
    const GK_3dPoint& to = b.uv[endOfB];
    if (from == to)
        return true;
    constexpr std::array<double, 3> Fractions{0.25, 0.5, 0.75};
    return std::all_of(Fractions.begin(), Fractions.end(), [&](double fraction) {
        const GK_3dPoint between = Image(surface, from + fraction * (to - from));
        return point.DistanceTo(between) <= 2.0 * near;
    });
}

void SeparateTrimCurves(GK_Brep& brep)
{
    std::vector<char> used(static_cast<std::size_t>(brep.TrimCurveCount()), 0);
    for (int i = 0; i < brep.TrimCount(); ++i) {
        GK_BrepTrim& trim = brep.Trim(i);
        char& taken = used[static_cast<std::size_t>(trim.curveIndex)];
        if (taken != 0) {
            const GK_Interval domain = trim.Domain();
            trim.curveIndex = brep.AddTrimCurve(brep.TrimCurve(trim.curveIndex)->Duplicate());
            trim.SetProxyCurve(brep.TrimCurve(trim.curveIndex));
            trim.SetDomain(domain);
        }
        taken = 1;
    }
}

void AgreeWithEdge(GK_Brep& brep, GK_BrepTrim& trim)
{
    if (trim.Domain().IsDecreasing())
        TurnCurveRound(brep, trim);
    if (trim.edgeIndex < 0)
        return;
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    const GK_Surface& surface = TrimSurface(brep, trim);
    double along = 0.0;
    double against = 0.0;
    // The inner two tell the direction of a closed edge.
    for (const double fraction : {0.0, 0.25, 0.75, 1.0}) {
        const GK_3dPoint point = Image(surface, trim.PointAt(trim.Domain().ParameterAt(fraction)));
        along += point.DistanceTo(edge.PointAt(edge.Domain().ParameterAt(fraction)));
        against += point.DistanceTo(edge.PointAt(edge.Domain().ParameterAt(1.0 - fraction)));
    }
    if (along != against)
        trim.reversed = against < along;
    TakeVertices(brep, trim);
}

void FlipTrim(GK_Brep& brep, GK_BrepTrim& trim)
{
    trim.Reverse();
    TurnCurveRound(brep, trim);
    std::swap(trim.vertexIndex[0], trim.vertexIndex[1]);
    if (trim.edgeIndex >= 0)
        trim.reversed = !trim.reversed;
}
