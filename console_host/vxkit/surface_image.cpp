#include "console_host/vxkit/surface_image.h"

#include "console_host/geokit/nurbs_evaluation.h"
#include "console_host/geokit/point_box.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Returns whether a parameter lies inside a span, given as the knots where it begins and ends.
bool IsInside(const double* span, double t)
{
    return span[0] <= t && t < span[1];
}

} // namespace

SurfaceImage::SurfaceImage(const GK_NurbsCurve& curve, const GK_NurbsSurface& surface,
                           const std::array<bool, 2>& closed)
    : m_curve(curve), m_surface(surface), m_lines{KnotLines(surface, 0, closed[0]),
                                                  KnotLines(surface, 1, closed[1])}
{
}

GK_3dPoint SurfaceImage::OnSurface(const GK_3dPoint& uv) const
{
    return {m_lines[0].OnSurface(uv.x), m_lines[1].OnSurface(uv.y), 0.0};
}

GK_3dPoint SurfaceImage::PointAt(double t)
{
    if (!IsInside(m_curve.knots.Array() + m_curveSpan + m_curve.Degree() - 1, t))
        m_curveSpan = FindSpan(m_curve, t);
    const GK_3dPoint uv = OnSurface(PointInSpan(m_curve, m_curveSpan, t));
    const auto isInside = [&](int direction, int span, double parameter) {
        const int before = m_surface.Degree(direction) - 1;
        return IsInside(m_surface.Knots(direction).Array() + span + before, parameter);
    };
    if (!isInside(0, m_spans[0], uv.x) || !isInside(1, m_spans[1], uv.y))
        m_spans = FindSpans(m_surface, uv.x, uv.y);
    return PointInSpans(m_surface, m_spans, uv.x, uv.y);
}

GK_CurvePoint SurfaceImage::Evaluate(double t, double inside) const
{
    const int span = FindSpan(m_curve, inside);
    const GK_3dPoint near = PointInSpan(m_curve, span, inside);
    const GK_3dPoint nearOnSurface = OnSurface(near);
    const GK_CurvePoint uv = EvaluateInSpan(m_curve, span, t);
    const GK_SurfacePoint image =
        EvaluateInSpans(m_surface, FindSpans(m_surface, nearOnSurface.x, nearOnSurface.y),
                        uv.point.x - m_lines[0].Periods(near.x) * m_lines[0].Period(),
                        uv.point.y - m_lines[1].Periods(near.y) * m_lines[1].Period());
    return {image.point, uv.derivative.x * image.du + uv.derivative.y * image.dv};
}

double SurfaceImage::Rounding(double t) const
{
    constexpr double Units = 64.0 * std::numeric_limits<double>::epsilon();
    const int curveSpan = FindSpan(m_curve, t);
    double parameters = 0.0;
    for (int i = 0; i < m_curve.order; ++i)
        parameters = std::max(parameters, LargestCoordinate(m_curve.ControlPoint(curveSpan + i)));
    const GK_3dPoint uv = OnSurface(PointInSpan(m_curve, curveSpan, t));
    const std::array<int, 2> spans = FindSpans(m_surface, uv.x, uv.y);
    double coordinates = 0.0;
    for (int j = 0; j < m_surface.Order(1); ++j)
        for (int i = 0; i < m_surface.Order(0); ++i)
            coordinates = std::max(
                coordinates, LargestCoordinate(m_surface.ControlPoint(spans[0] + i, spans[1] + j)));
    const GK_SurfacePoint image = EvaluateInSpans(m_surface, spans, uv.x, uv.y);
    return Units * (coordinates + parameters * (image.du.Length() + image.dv.Length()) / 16.0);
}

std::vector<double> SurfaceImage::Breaks(const GK_Interval& interval, std::size_t most) const
{
    const double* spanEnds = m_curve.knots.Array() + m_curve.Degree();
    const int last = m_curve.controlPointCount - m_curve.order;
    const auto* knot = std::upper_bound(m_curve.knots.begin(), m_curve.knots.end(), interval[0]);
    const auto* lastKnot = std::lower_bound(knot, m_curve.knots.end(), interval[1]);
    if (static_cast<std::size_t>(lastKnot - knot) >
        most * static_cast<std::size_t>(m_curve.Degree()))
        return {};
    std::vector<double> breaks{interval[0]};
    double t = interval[0];
    for (int span = FindSpan(m_curve, t); t < interval[1] && breaks.size() <= most;) {
        while (span < last && spanEnds[span] <= t)
            ++span;
        const double end = span < last ? std::min(spanEnds[span], interval[1]) : interval[1];
        for (const int direction : {0, 1})
            FindCrossings(m_curve, span, {t, end}, direction,
                          m_lines[static_cast<std::size_t>(direction)], most, breaks);
        breaks.push_back(end);
        t = end;
    }
    if (breaks.size() > most)
        return {};
    std::sort(breaks.begin(), breaks.end());
    // Crossings of u and v lines at one place differ by rounding.
    const double near = 1e-12 * interval.Length();
    std::vector<double> apart{interval[0]};
    for (const double at : breaks)
        if (at - apart.back() > near && interval[1] - at > near)
            apart.push_back(at);
    apart.push_back(interval[1]);
    return apart;
}

int SurfaceImage::Degree() const
{
    const int degree = m_curve.Degree() * (m_surface.Degree(0) + m_surface.Degree(1));
    return m_curve.rational || m_surface.IsRational() ? 2 * degree : degree;
}

double SurfaceImage::Cost() const
{
    constexpr double Usual = 64.0;
    const double curve = m_curve.order;
    const double u = m_surface.Order(0);
    const double v = m_surface.Order(1);
    return std::max(1.0, (curve * curve + u * u + v * v + u * v) / Usual);
}
