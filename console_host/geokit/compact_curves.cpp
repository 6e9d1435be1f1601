#include "console_host/geokit/compact_curves.h"

#include <algorithm>
#include <iterator>

// As a B-spline of degree 1 is evaluated, so that both come to the same numbers.
GK_CurvePoint LineCurve::Evaluate(double t) const
{
    const double scale = 1.0 / m_domain.Length();
    const double a = t == m_domain[1] ? 0.0 : t == m_domain[0] ? 1.0 : (m_domain[1] - t) * scale;
    const double b = t == m_domain[1] ? 1.0 : t == m_domain[0] ? 0.0 : (t - m_domain[0]) * scale;
    return {{a * m_from.x + b * m_to.x, a * m_from.y + b * m_to.y, 0.0},
            {(m_to.x - m_from.x) * scale, (m_to.y - m_from.y) * scale, 0.0}};
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
    const double values[] = {m_from.x, m_from.y, m_to.x, m_to.y};
    std::copy(std::begin(values), std::end(values), line.controlPoints.begin());
    line.knots = {m_domain[0], m_domain[1]};
    return line;
}

GK_CurvePoint IsoCurve::Evaluate(double t) const
{
    const GK_SurfacePoint point = m_direction == 0 ? m_surface->Evaluate(t, m_parameter)
                                                   : m_surface->Evaluate(m_parameter, t);
    return {point.point, m_direction == 0 ? point.du : point.dv};
}

bool IsoCurve::IsValid(std::string* reason) const
{
    return m_surface->IsValid(reason);
}

std::unique_ptr<GK_Curve> IsoCurve::Duplicate() const
{
    return std::make_unique<IsoCurve>(*this);
}

GK_NurbsCurve IsoCurve::AsBspline() const
{
    const std::unique_ptr<GK_NurbsCurve> curve = m_surface->IsoCurve(m_direction, m_parameter);
    return curve != nullptr ? *curve : GK_NurbsCurve();
}
