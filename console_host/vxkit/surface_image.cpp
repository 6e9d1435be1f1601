#include "console_host/vxkit/surface_image.h"

#include "console_host/geokit/nurbs_evaluation.h"

#include <algorithm>
#include <cmath>
#include <limits>

GK_3dPoint SurfaceImage::PointAt(double t) const
{
    const GK_3dPoint uv = m_curve.PointAt(t);
    return m_surface.PointAt(uv.x, uv.y);
}

GK_CurvePoint SurfaceImage::Evaluate(double t, double inside) const
{
    const int span = FindSpan(m_curve, inside);
    const GK_3dPoint near = EvaluateInSpan(m_curve, span, inside).point;
    const GK_CurvePoint uv = EvaluateInSpan(m_curve, span, t);
    const GK_SurfacePoint image =
        EvaluateInSpans(m_surface, FindSpans(m_surface, near.x, near.y), uv.point.x, uv.point.y);
    return {image.point, uv.derivative.x * image.du + uv.derivative.y * image.dv};
}

int SurfaceImage::Degree() const
{
    const std::int64_t degree =
        std::int64_t{m_curve.Degree()} * (m_surface.Degree(0) + m_surface.Degree(1));
    const bool rational = m_curve.rational || m_surface.IsRational();
    constexpr std::int64_t Most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(Most, rational ? 2 * degree : degree));
}

double SurfaceImage::Cost() const
{
    const double curve = m_curve.order;
    const double u = m_surface.Order(0);
    const double v = m_surface.Order(1);
    return curve * curve + u * u + v * v + u * v;
}

std::vector<double> SurfaceImage::Breaks(const GK_Interval& interval, std::size_t most) const
{
    std::vector<double> spans{interval[0]};
    for (const double knot : m_curve.knots)
        if (knot > spans.back() && knot < interval[1])
            spans.push_back(knot);
    spans.push_back(interval[1]);
    std::vector<double> breaks = spans;
    for (std::size_t i = 0; i + 1 < spans.size() && breaks.size() <= most; ++i)
        AddCrossings({spans[i], spans[i + 1]}, most, breaks);
    std::sort(breaks.begin(), breaks.end());
    // Crossings of u and v knots at one place differ by rounding.
    const double near = 1e-12 * interval.Length();
    std::vector<double> apart{interval[0]};
    for (const double t : breaks)
        if (t - apart.back() > near && interval[1] - t > near)
            apart.push_back(t);
    apart.push_back(interval[1]);
    if (breaks.size() > most)
        apart.clear();
    return apart;
}

// Looks between points close enough that the curve is likely to go one way only between them.
void SurfaceImage::AddCrossings(const GK_Interval& span, std::size_t most,
                                std::vector<double>& breaks) const
{
    constexpr int MostSteps = 64;
    const int steps = m_curve.Degree() == 1 ? 1 : std::min(2 * m_curve.Degree(), MostSteps);
    for (int i = 0; i < steps; ++i) {
        const double t0 = span.ParameterAt(static_cast<double>(i) / steps);
        const double t1 = span.ParameterAt(static_cast<double>(i + 1) / steps);
        for (const int direction : {0, 1})
            AddCrossings(direction, t0, t1, most, breaks);
    }
}

void SurfaceImage::AddCrossings(int direction, double t0, double t1, std::size_t most,
                                std::vector<double>& breaks) const
{
    const double x0 = Parameter(direction, t0);
    const double x1 = Parameter(direction, t1);
    const GK_SimpleArray<double>& knots = m_surface.Knots(direction);
    const double low = std::min(x0, x1);
    const double high = std::max(x0, x1);
    const double* knot = std::lower_bound(knots.begin(), knots.end(), low);
    while (knot != knots.end() && *knot <= high && breaks.size() <= most) {
        if (low < high)
            breaks.push_back(FindCrossing(direction, t0, t1, *knot));
        knot = std::upper_bound(knot, knots.end(), *knot);
    }
}

double SurfaceImage::Parameter(int direction, double t) const
{
    const GK_3dPoint uv = m_curve.PointAt(t);
    return direction == 0 ? uv.x : uv.y;
}

// Where the curve meets a knot that lies between its values at t0 and t1: the false-position method
// with the Illinois rule (M. Dowell and P. Jarratt, 1971).
double SurfaceImage::FindCrossing(int direction, double t0, double t1, double knot) const
{
    constexpr int MostSteps = 60;
    double f0 = Parameter(direction, t0) - knot;
    double f1 = Parameter(direction, t1) - knot;
    const double enough = 4.0 * std::numeric_limits<double>::epsilon() *
                          (std::abs(knot) + std::max(std::abs(f0), std::abs(f1)));
    for (int step = 0; step < MostSteps; ++step) {
        if (std::abs(f0) <= enough)
            return t0;
        if (std::abs(f1) <= enough)
            return t1;
        const double t = t1 - f1 * ((t1 - t0) / (f1 - f0));
        const double f = Parameter(direction, t) - knot;
        if ((f > 0.0) != (f1 > 0.0)) {
            t0 = t1;
            f0 = f1;
        } else {
            f0 *= 0.5;
        }
        t1 = t;
        f1 = f;
    }
    return t1;
}
