#include "console_host/geokit/line_curve.h"

#include "host/geokit/nurbs_curve.h"

#include <utility>

LineCurve::LineCurve(const GK_3dPoint& from, const GK_3dPoint& to, const GK_Interval& domain)
    : m_from{from.x, from.y}, m_to{to.x, to.y}, m_domain(domain)
{
}

bool LineCurve::SetDomain(double t0, double t1)
{
    if (!(t0 < t1))
        return false;
    m_domain = {t0, t1};
    return true;
}

// As a B-spline of degree 1 is evaluated, so that both come to the same numbers.
GK_CurvePoint LineCurve::Evaluate(double t) const
{
    const double scale = 1.0 / m_domain.Length();
    const double a = t == m_domain[1] ? 0.0 : t == m_domain[0] ? 1.0 : (m_domain[1] - t) * scale;
    const double b = t == m_domain[1] ? 1.0 : t == m_domain[0] ? 0.0 : (t - m_domain[0]) * scale;
    return {{a * m_from.u + b * m_to.u, a * m_from.v + b * m_to.v, 0.0},
            {(m_to.u - m_from.u) * scale, (m_to.v - m_from.v) * scale, 0.0}};
}

void LineCurve::Reverse()
{
    std::swap(m_from, m_to);
}

bool LineCurve::IsValid(std::string* reason) const
{
    return AsBspline().IsValid(reason);
}

std::unique_ptr<GK_Curve> LineCurve::Duplicate() const
{
    return std::make_unique<LineCurve>(*this);
}

GK_NurbsCurve LineCurve::AsBspline() const
{
    GK_NurbsCurve line;
    line.Create(2, false, 2, 2);
    line.knots = {m_domain[0], m_domain[1]};
    const double from[2] = {m_from.u, m_from.v};
    const double to[2] = {m_to.u, m_to.v};
    line.SetCV(0, GK::not_rational, from);
    line.SetCV(1, GK::not_rational, to);
    return line;
}
