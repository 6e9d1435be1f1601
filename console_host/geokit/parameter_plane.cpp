#include "console_host/geokit/parameter_plane.h"

#include "console_host/geokit/point_box.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Returns how well double precision can place a point.
double Rounding(const GK_3dPoint& point)
{
    constexpr double Units = 64.0;
    return Units * std::numeric_limits<double>::epsilon() * LargestCoordinate(point);
}

// Returns by how much two numbers that are meant to be equal may differ when files print them with
// six digits: one unit of the last, at numbers up to `largest`.
double RoundingOfFiles(double largest)
{
    constexpr double Digits = 6.0;
    return 1.001 * std::pow(10.0, std::ceil(std::log10(largest)) - Digits);
}

} // namespace

ParameterPlane::ParameterPlane(const GK_NurbsSurface& surface, double tolerance)
    : m_surface(surface), m_tolerance(tolerance), m_closure(ClosureOf(surface, tolerance))
{
    constexpr double ShareOfDomain = 1.5e-6;
    for (const std::size_t d : {0U, 1U}) {
        const GK_Interval domain = surface.Domain(static_cast<int>(d));
        m_low[d] = domain[0];
        m_high[d] = domain[1];
        m_slack[d] = ShareOfDomain * Length(d);
        m_rounding[d] = std::max(
            m_slack[d], RoundingOfFiles(std::max(std::abs(m_low[d]), std::abs(m_high[d]))));
    }
}

Uv ParameterPlane::Corner(Side side) const
{
    const Side before = AllSides[(static_cast<std::size_t>(side) + 3) % AllSides.size()];
    Uv corner{};
    corner[Across(side)] = Value(side);
    corner[Across(before)] = Value(before);
    return corner;
}

Uv ParameterPlane::PeriodsBetween(const Uv& from, const Uv& to) const
{
    Uv periods{};
    for (const std::size_t d : {0U, 1U})
        if (IsClosed(d))
            periods[d] = std::round((from[d] - to[d]) / Length(d)) * Length(d);
    return periods;
}

Uv ParameterPlane::Wrapped(const Uv& place) const
{
    Uv wrapped = place;
    for (const std::size_t d : {0U, 1U})
        if (IsClosed(d) && !(place[d] >= Low(d) && place[d] <= High(d)))
            wrapped[d] -= std::floor((place[d] - Low(d)) / Length(d)) * Length(d);
    return wrapped;
}

GK_3dPoint ParameterPlane::PointAt(const Uv& place) const
{
    const Uv wrapped = Wrapped(place);
    return m_surface.PointAt(wrapped[0], wrapped[1]);
}

Uv ParameterPlane::Normalized(const Uv& place) const
{
    return {(place[0] - Low(0)) / Length(0), (place[1] - Low(1)) / Length(1)};
}

double ParameterPlane::Distance(const Uv& a, const Uv& b) const
{
    return std::hypot((a[0] - b[0]) / Length(0), (a[1] - b[1]) / Length(1));
}

bool ParameterPlane::Coincide(const Uv& a, const Uv& b) const
{
    return std::abs(a[0] - b[0]) <= m_rounding[0] && std::abs(a[1] - b[1]) <= m_rounding[1];
}

std::optional<Side> ParameterPlane::CommonPole(const Uv& a, const Uv& b) const
{
    for (const Side side : AllSides) {
        const std::size_t d = Across(side);
        if (IsPole(side) && std::abs(a[d] - Value(side)) <= Slack(d) &&
            std::abs(b[d] - Value(side)) <= Slack(d))
            return side;
    }
    return std::nullopt;
}

bool ParameterPlane::Meet(const Uv& a, const Uv& b) const
{
    if (Coincide(a, b) || CommonPole(a, b))
        return true;
    const GK_3dPoint point = PointAt(a);
    const double near = std::max(m_tolerance, Rounding(point));
    if (!(point.DistanceTo(PointAt(b)) <= near))
        return false;
    constexpr std::array<double, 3> Fractions{0.25, 0.5, 0.75};
    return std::all_of(Fractions.begin(), Fractions.end(), [&](double fraction) {
        const Uv between{a[0] + fraction * (b[0] - a[0]), a[1] + fraction * (b[1] - a[1])};
        return point.DistanceTo(PointAt(between)) <= 2.0 * near;
    });
}
