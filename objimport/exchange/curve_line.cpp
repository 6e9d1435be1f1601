#include "objimport/exchange/curve_line.h"

#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

/// Returns the diagonal of the box around the control points.
double SizeOf(const GK_NurbsCurve& bspline)
{
    GK_3dPoint low = bspline.ControlPoint(0);
    GK_3dPoint high = low;
    for (int i = 1; i < bspline.controlPointCount; ++i) {
        const GK_3dPoint point = bspline.ControlPoint(i);
        low = {std::min(low.x, point.x), std::min(low.y, point.y), std::min(low.z, point.z)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y), std::max(high.z, point.z)};
    }
    return low.DistanceTo(high);
}

/// Returns how far a point lies from the line between two others, or from the nearer end.
double DistanceFromChord(const GK_3dPoint& point, const GK_3dPoint& start, const GK_3dPoint& end)
{
    const GK_3dVector chord = end - start;
    const GK_3dVector offset = point - start;
    const double square = GK_DotProduct(chord, chord);
    if (!(square > 0.0))
        return offset.Length();
    const double along = std::clamp(GK_DotProduct(offset, chord) / square, 0.0, 1.0);
    return point.DistanceTo(start + along * chord);
}

class LineMaker
{
public:
    LineMaker(const GK_Curve& curve, double tolerance, std::size_t most)
        : m_curve(curve), m_tolerance(tolerance), m_most(most)
    {
    }

    /// Continues to a parameter, straight or by as many points in between as it takes.
    void GoOn(double t, bool straight)
    {
        const Place place = At(t);
        if (!straight && !m_line.points.empty())
            Follow(m_last, place, 0);
        m_line.points.push_back(place.point);
        m_last = place;
    }

    CurveLine TakeLine() { return std::move(m_line); }

private:
    struct Place
    {
        double t = 0.0;
        GK_3dPoint point;
    };

    [[nodiscard]] Place At(double t) const { return {t, m_curve.PointAt(t)}; }

    /// Appends the points between two places.
    void Follow(const Place& from, const Place& to, int depth)
    {
        constexpr int Deepest = 16;
        const double step = (to.t - from.t) / 4.0;
        const Place middle = At(from.t + 2.0 * step);
        const auto isNear = [&](const GK_3dPoint& point) {
            return DistanceFromChord(point, from.point, to.point) <= m_tolerance;
        };
        // A curve that turns both ways can meet the chord in the middle.
        if (isNear(middle.point) && isNear(m_curve.PointAt(from.t + step)) &&
            isNear(m_curve.PointAt(to.t - step)))
            return;
        if (depth == Deepest || m_line.points.size() >= m_most) {
            m_line.isCoarse = true;
            return;
        }
        Follow(from, middle, depth + 1);
        m_line.points.push_back(middle.point);
        Follow(middle, to, depth + 1);
    }

    const GK_Curve& m_curve;
    double m_tolerance;
    std::size_t m_most;
    CurveLine m_line;
    Place m_last;
};

/// Returns parameters in ascending order, from the domain's start to its end, between which the
/// curve is smooth, or nearly so where it is a part of another curve.
std::vector<double> PiecesOf(const GK_Curve& curve, const GK_NurbsCurve& bspline)
{
    const double start = curve.Domain()[0];
    const double end = curve.Domain()[1];
    std::vector<double> pieces = {start};
    if (GK_NurbsCurve::Cast(&curve) != nullptr) {
        for (const double knot : bspline.knots)
            if (knot > pieces.back() && knot < end)
                pieces.push_back(knot);
    } else {
        const int count = std::max(8, bspline.controlPointCount);
        for (int i = 1; i < count; ++i)
            pieces.push_back(start + (end - start) * i / count);
    }
    pieces.push_back(end);
    return pieces;
}

} // namespace

CurveLine LineOfCurve(const GK_Curve& curve, double tolerance)
{
    constexpr std::size_t Most = 65536;
    constexpr std::size_t MostToPiece = 64;
    constexpr double OfSize = 1e-3;
    constexpr double LeastOfSize = 1e-9; // rounding is not far below

    const GK_NurbsCurve bspline = curve.AsBspline();
    if (bspline.controlPointCount == 0)
        return {};
    const double size = SizeOf(bspline);
    const double wanted = std::min(tolerance, OfSize * size);
    const std::vector<double> pieces = PiecesOf(curve, bspline);
    LineMaker maker(curve, std::max(wanted, LeastOfSize * size),
                    Most + MostToPiece * pieces.size());
    for (const double t : pieces)
        maker.GoOn(t, curve.Degree() == 1);
    return maker.TakeLine();
}
