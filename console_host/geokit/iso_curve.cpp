#include "console_host/geokit/iso_curve.h"

#include "console_host/geokit/knots.h"

#include <utility>

IsoCurve::IsoCurve(std::shared_ptr<const GK_Surface> surface, int direction, double parameter)
    : m_surface(std::move(surface)), m_parameter(parameter), m_direction(direction)
{
}

bool IsoCurve::SetDomain(double, double)
{
    return false;
}

GK_CurvePoint IsoCurve::Evaluate(double t) const
{
    const double along = m_reversed ? MirrorParameter(Domain(), t) : t;
    const GK_SurfacePoint point = m_direction == 0 ? m_surface->Evaluate(along, m_parameter)
                                                   : m_surface->Evaluate(m_parameter, along);
    const GK_3dVector& derivative = m_direction == 0 ? point.du : point.dv;
    return {point.point, m_reversed ? -1.0 * derivative : derivative};
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
    if (curve == nullptr)
        return {};
    if (m_reversed)
        curve->Reverse();
    return *curve;
}
