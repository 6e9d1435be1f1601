#include "host/geokit/nurbs_surface.h"

#include "console_host/geokit/knots.h"
#include "console_host/geokit/nurbs_checks.h"
#include "console_host/geokit/nurbs_evaluation.h"

#include <algorithm>
#include <limits>

namespace {

constexpr const char* Subject = "surface";

BsplineDirection DirectionOf(const GK_NurbsSurface& surface, int direction)
{
    const GK_SimpleArray<double>& knots = surface.Knots(direction);
    return {surface.Order(direction),
            surface.ControlPointCount(direction),
            {knots.begin(), knots.end()},
            direction == 0 ? " in u" : " in v"};
}

} // namespace

void GK_NurbsSurface::Create(bool rational, int orderU, int orderV)
{
    *this = GK_NurbsSurface();
    m_rational = rational;
    m_order = {orderU, orderV};
}

void GK_NurbsSurface::Changes()
{
    m_validity = Validity::Unknown;
    m_derivedData.Set(nullptr);
}

void GK_NurbsSurface::KnotsChange(int direction)
{
    Changes();
    m_knotValidity[Index(direction)] = Validity::Unknown;
}

void GK_NurbsSurface::SetControlPointCount(int direction, int count)
{
    KnotsChange(direction);
    m_count[Index(direction)] = count;
}

void GK_NurbsSurface::ReserveCVCapacity(int count)
{
    const int before = m_controlPoints.Count();
    if (count <= before)
        return;
    Changes();
    m_controlPoints.SetCount(count);
    std::fill(m_controlPoints.begin() + before, m_controlPoints.end(), GK_UNSET_VALUE);
}

const double* GK_NurbsSurface::ControlPointValues(int i, int j) const
{
    return m_controlPoints.Array() + (std::int64_t{j} * m_count[0] + i) * ControlPointStride();
}

bool GK_NurbsSurface::SetCV(int i, int j, GK::point_style style, const double* point)
{
    if (i < 0 || i >= m_count[0] || j < 0 || j >= m_count[1])
        return false;
    const std::int64_t position = std::int64_t{j} * m_count[0] + i;
    if (position >= ControlPointCapacity())
        return false;
    Changes();
    m_soundPoints = std::min(m_soundPoints, position);
    double* values = m_controlPoints.Array() + position * ControlPointStride();
    std::copy_n(point, 3, values);
    if (m_rational)
        values[3] = style == GK::euclidean_rational ? point[3] : 1.0;
    return true;
}

GK_3dPoint GK_NurbsSurface::ControlPoint(int i, int j) const
{
    const double* values = ControlPointValues(i, j);
    return {values[0], values[1], values[2]};
}

double GK_NurbsSurface::Weight(int i, int j) const
{
    return m_rational ? ControlPointValues(i, j)[3] : 1.0;
}

void GK_NurbsSurface::SetKnots(int direction, GK_SimpleArray<double> knots)
{
    KnotsChange(direction);
    m_knots[Index(direction)] = std::move(knots);
}

GK_Interval GK_NurbsSurface::Domain(int direction) const
{
    const GK_SimpleArray<double>& knots = Knots(direction);
    return KnotDomain({knots.begin(), knots.end()}, Order(direction), ControlPointCount(direction));
}

bool GK_NurbsSurface::SetDomain(int direction, double t0, double t1)
{
    KnotsChange(direction);
    GK_SimpleArray<double>& knots = m_knots[Index(direction)];
    return MapKnots({knots.begin(), knots.end()}, Domain(direction), t0, t1);
}

GK_SurfacePoint GK_NurbsSurface::Evaluate(double u, double v) const
{
    if (!IsValid())
        return {};
    return EvaluateInSpans(*this, FindSpans(*this, u, v), u, v);
}

std::unique_ptr<GK_NurbsCurve> GK_NurbsSurface::IsoCurve(int direction, double parameter) const
{
    if (!IsValid())
        return nullptr;
    return IsoCurveOver(*this, direction, parameter, Domain(direction));
}

bool GK_NurbsSurface::IsValid(std::string* reason) const
{
    if (m_validity == Validity::Unknown || (m_validity == Validity::Invalid && reason != nullptr))
        m_validity = Check(reason) ? Validity::Valid : Validity::Invalid;
    return m_validity == Validity::Valid;
}

bool GK_NurbsSurface::Check(std::string* reason) const
{
    for (const int d : {0, 1}) {
        const BsplineDirection direction = DirectionOf(*this, d);
        if (Order(d) > 1 && Knots(d).IsEmpty() && ControlPointCount(d) == 0)
            return Unsound(reason, std::string("the surface has no knots") + direction.direction);
        if (!CheckOrder(direction, Subject, reason))
            return false;
    }
    const std::int64_t needed = std::int64_t{m_count[0]} * m_count[1];
    return CheckControlPoints({m_controlPoints.begin(), m_controlPoints.end()}, needed, 3,
                              m_rational, Subject, reason, m_soundPoints) &&
           CheckKnotsOf(0, reason) && CheckKnotsOf(1, reason);
}

bool GK_NurbsSurface::CheckKnotsOf(int direction, std::string* reason) const
{
    Validity& validity = m_knotValidity[Index(direction)];
    if (validity == Validity::Unknown || (validity == Validity::Invalid && reason != nullptr))
        validity = CheckKnots(DirectionOf(*this, direction), Subject, reason) ? Validity::Valid
                                                                              : Validity::Invalid;
    return validity == Validity::Valid;
}
