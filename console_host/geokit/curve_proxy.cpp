#include "host/geokit/curve_proxy.h"

#include "console_host/geokit/knots.h"
#include "console_host/geokit/nurbs_checks.h"
#include "console_host/geokit/point_box.h"

#include "host/geokit/nurbs_curve.h"

bool GK_Curve::IsClosed() const
{
    constexpr double Rounding = 1e-12;
    const GK_3dPoint start = PointAtStart();
    return start.DistanceTo(PointAtEnd()) <= Rounding * LargestCoordinate(start);
}

void GK_CurveProxy::SetProxyCurve(const GK_Curve* curve)
{
    m_curve = curve;
    m_domain = curve == nullptr ? GK_Interval() : curve->Domain();
}

int GK_CurveProxy::Dimension() const
{
    return m_curve == nullptr ? 0 : m_curve->Dimension();
}

int GK_CurveProxy::Degree() const
{
    return m_curve == nullptr ? 0 : m_curve->Degree();
}

void GK_CurveProxy::SetDomain(const GK_Interval& domain)
{
    m_domain = m_curve == nullptr ? domain : CutToDomain(domain, m_curve->Domain());
}

GK_CurvePoint GK_CurveProxy::Evaluate(double t) const
{
    return m_curve == nullptr ? GK_CurvePoint() : m_curve->Evaluate(t);
}

bool GK_CurveProxy::IsValid(std::string* reason) const
{
    if (m_curve == nullptr)
        return Unsound(reason, "the curve is missing");
    if (!m_curve->IsValid(reason))
        return false;
    if (m_domain.Length() == 0.0)
        return Unsound(reason, "the part of the curve is empty");
    const GK_Interval whole = m_curve->Domain();
    if (!(m_domain.Min() >= whole.Min() && m_domain.Max() <= whole.Max()))
        return Unsound(reason, "the part reaches out of the curve's domain");
    return true;
}

std::unique_ptr<GK_Curve> GK_CurveProxy::Duplicate() const
{
    return std::make_unique<GK_CurveProxy>(*this);
}

GK_NurbsCurve GK_CurveProxy::AsBspline() const
{
    return m_curve == nullptr ? GK_NurbsCurve() : m_curve->AsBspline();
}
