#include "tests/trimming/brep_walk.h"

#include "tests/trimming/brep_indices.h"
#include "tests/trimming/surface_extent.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace {

constexpr int Samples = 16; // along a trim

template <class... Parts>
std::string Text(const Parts&... parts)
{
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

// Where along a curve (0 to 1) it comes nearest to a point, and how near.
struct Nearest
{
    double fraction;
    double distance;
};

Nearest NearestOn(const GK_Curve& curve, const GK_3dPoint& point)
{
    constexpr int Steps = 128;
    const auto distance = [&](double fraction) {
        return curve.PointAt(curve.Domain().ParameterAt(fraction)).DistanceTo(point);
    };
    Nearest nearest{0.0, distance(0.0)};
    for (int i = 1; i <= Steps; ++i)
        if (const double d = distance(1.0 * i / Steps); d < nearest.distance)
            nearest = {1.0 * i / Steps, d};
    double step = 1.0 / Steps;
    for (int halving = 0; halving < 24; ++halving) {
        step *= 0.5;
        for (const double fraction : {nearest.fraction - step, nearest.fraction + step})
            if (fraction >= 0.0 && fraction <= 1.0 && distance(fraction) < nearest.distance)
                nearest = {fraction, distance(fraction)};
    }
    return nearest;
}

// Shares of the way along a trim, several for each span of its edge, from 0 to 1.
std::vector<double> FractionsAlong(const GK_BrepEdge& edge)
{
    constexpr int PerSpan = 6;
    const GK_Interval domain = edge.Domain();
    std::vector<double> breaks{0.0};
    const GK_NurbsCurve curve = edge.AsBspline();
    for (const double knot : curve.knots)
        if (const double share = (knot - domain[0]) / domain.Length();
            share > breaks.back() && share < 1.0)
            breaks.push_back(share);
    breaks.push_back(1.0);
    std::vector<double> fractions{0.0};
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i)
        for (int k = 1; k <= PerSpan; ++k)
            fractions.push_back(
                GK_Interval(breaks[i], breaks[i + 1]).ParameterAt(1.0 * k / PerSpan));
    return fractions;
}

class Walk
{
public:
    Walk(const GK_Brep& brep, double tolerance) : m_brep(brep), m_tolerance(tolerance) {}

    std::vector<std::string> Run()
    {
        m_faults = IndexFaultsOf(m_brep);
        if (m_faults.empty())
            for (int i = 0; i < m_brep.FaceCount(); ++i)
                CheckFace(m_brep.Face(i));
        return std::move(m_faults);
    }

private:
    void CheckFace(const GK_BrepFace& face);
    void CheckNesting(const GK_BrepFace& face);
    void CheckLoop(const GK_BrepLoop& loop);
    void CheckMeeting(const GK_BrepTrim& trim, const GK_BrepTrim& next);
    void CheckTrim(const GK_BrepTrim& trim);
    void CheckCollapsed(const GK_BrepTrim& trim);
    void CheckEdge(const GK_BrepTrim& trim, const GK_BrepEdge& edge);
    void CheckAlongEdge(const GK_BrepTrim& trim, const GK_BrepEdge& edge);
    void CheckVertex(const GK_BrepTrim& trim, std::size_t end);
    void CheckSeam(const GK_BrepTrim& trim, const GK_BrepEdge& edge);

    template <class... Parts>
    void Fault(const Parts&... parts)
    {
        m_faults.push_back(Text(parts...));
    }

    [[nodiscard]] GK_3dPoint Place(const GK_BrepTrim& trim, double fraction) const
    {
        const GK_3dPoint uv = trim.PointAt(trim.Domain().ParameterAt(fraction));
        return m_surface->PointAt(uv.x, uv.y);
    }

    // Returns how far an edge may lie from its trim: the tolerance, but never a bent shape.
    [[nodiscard]] double EdgeSlack() const
    {
        return std::min(m_tolerance, 1e-3 * m_extent.size) + 3e-6 * m_extent.size;
    }

    // Returns how far trims may end apart, or outside the domain, in a direction of the parameter
    // plane.
    [[nodiscard]] double PlaneSlack(int direction) const
    {
        constexpr double RoundedDigits = 1e-5;
        constexpr double Most = 0.05;
        const auto d = static_cast<std::size_t>(direction);
        return m_extent.domain[d].Length() *
               std::clamp(m_tolerance / m_extent.length[d], RoundedDigits, Most);
    }

    const GK_Brep& m_brep;
    double m_tolerance;
    const GK_Surface* m_surface = nullptr; // of the current face
    SurfaceExtent m_extent;
    std::vector<std::string> m_faults;
};

void Walk::CheckFace(const GK_BrepFace& face)
{
    m_surface = m_brep.Surface(face.surfaceIndex);
    m_extent = SurfaceExtent(*m_surface);
    for (const int loop : face.loopIndices)
        CheckLoop(m_brep.Loop(loop));
    CheckNesting(face);
}

void Walk::CheckNesting(const GK_BrepFace& face)
{
    constexpr double OnTheBoundary = 0.02; // this share of points may be on the other side
    std::vector<GK_2dPoint> outer;
    int outers = 0;
    for (const int loop : face.loopIndices) {
        if (m_brep.Loop(loop).type != GK_BrepLoop::outer)
            continue;
        outer = Outline(m_brep, m_brep.Loop(loop));
        ++outers;
    }
    if (outers != 1)
        return Fault("face ", face.faceIndex, " has ", outers, " outer loops");
    for (const int loop : face.loopIndices) {
        if (m_brep.Loop(loop).type == GK_BrepLoop::outer)
            continue;
        const std::vector<GK_2dPoint> inner = Outline(m_brep, m_brep.Loop(loop));
        const auto outside = std::count_if(inner.begin(), inner.end(),
                                           [&](const auto& p) { return !IsInside(p, outer); });
        if (static_cast<double>(outside) > OnTheBoundary * static_cast<double>(inner.size()))
            Fault("inner loop ", loop, " is not inside the outer loop of face ", face.faceIndex);
    }
}

void Walk::CheckLoop(const GK_BrepLoop& loop)
{
    const int count = loop.trimIndices.Count();
    for (int i = 0; i < count; ++i) {
        const GK_BrepTrim& trim = m_brep.Trim(loop.trimIndices[i]);
        CheckTrim(trim);
        CheckMeeting(trim, m_brep.Trim(loop.trimIndices[(i + 1) % count]));
    }
    const double area = SignedAreaOf(Outline(m_brep, loop));
    if (loop.type == GK_BrepLoop::outer ? !(area > 0.0) : !(area < 0.0))
        Fault("loop ", loop.loopIndex, " runs the wrong way round");
}

void Walk::CheckMeeting(const GK_BrepTrim& trim, const GK_BrepTrim& next)
{
    const GK_3dPoint end = trim.PointAtEnd();
    const GK_3dPoint start = next.PointAtStart();
    if (std::abs(end.x - start.x) > PlaneSlack(0) || std::abs(end.y - start.y) > PlaneSlack(1))
        Fault("trim ", trim.trimIndex, " ends at (", end.x, ", ", end.y, "), trim ", next.trimIndex,
              " starts at (", start.x, ", ", start.y, ")");
    if (trim.vertexIndex[1] != next.vertexIndex[0])
        Fault("trims ", trim.trimIndex, " and ", next.trimIndex, " share no vertex");
}

void Walk::CheckTrim(const GK_BrepTrim& trim)
{
    if (!trim.Domain().IsIncreasing())
        Fault("the domain of trim ", trim.trimIndex, " does not increase");
    for (int i = 0; i <= Samples; ++i) {
        const GK_3dPoint uv = trim.PointAt(trim.Domain().ParameterAt(1.0 * i / Samples));
        for (const int direction : {0, 1}) {
            const double t = direction == 0 ? uv.x : uv.y;
            const GK_Interval& domain = m_extent.domain[static_cast<std::size_t>(direction)];
            const double slack = PlaneSlack(direction);
            if (!(t >= domain[0] - slack && t <= domain[1] + slack))
                return Fault("trim ", trim.trimIndex, " leaves the domain at (", uv.x, ", ", uv.y,
                             ")");
        }
    }
    if (trim.edgeIndex < 0)
        CheckCollapsed(trim);
    else
        CheckEdge(trim, m_brep.Edge(trim.edgeIndex));
    CheckVertex(trim, 0);
    CheckVertex(trim, 1);
}

void Walk::CheckCollapsed(const GK_BrepTrim& trim)
{
    if (trim.vertexIndex[0] != trim.vertexIndex[1])
        Fault("trim ", trim.trimIndex, " has no edge but two vertices");
    for (int i = 0; i <= Samples; ++i)
        if (Place(trim, 1.0 * i / Samples).DistanceTo(Place(trim, 0.0)) > EdgeSlack())
            return Fault("trim ", trim.trimIndex, " has no edge but does not stay at a point");
}

void Walk::CheckEdge(const GK_BrepTrim& trim, const GK_BrepEdge& edge)
{
    double reach = 0.0;
    for (int i = 1; i <= Samples; ++i)
        reach = std::max(reach, edge.PointAt(edge.Domain().ParameterAt(1.0 * i / Samples))
                                    .DistanceTo(edge.PointAtStart()));
    if (!(reach > 1e-9 * m_extent.size))
        Fault("edge ", edge.edgeIndex, " is a point");
    CheckAlongEdge(trim, edge);
    CheckSeam(trim, edge);
}

void Walk::CheckAlongEdge(const GK_BrepTrim& trim, const GK_BrepEdge& edge)
{
    double worst = 0.0;
    double before = 0.0;
    bool forward = true;
    for (const double fraction : FractionsAlong(edge)) {
        const double same = trim.reversed ? 1.0 - fraction : fraction;
        const GK_3dPoint place = Place(trim, fraction);
        const double distance = edge.PointAt(edge.Domain().ParameterAt(same)).DistanceTo(place);
        const Nearest nearest =
            distance <= EdgeSlack() ? Nearest{same, distance} : NearestOn(edge, place);
        worst = std::max(worst, nearest.distance);
        const double along = trim.reversed ? 1.0 - nearest.fraction : nearest.fraction;
        if (fraction > 0.0 && fraction < 1.0) { // the ends of a closed edge are both nearest
            forward = forward && along >= before - 1e-3;
            before = along;
        }
    }
    if (!(worst <= EdgeSlack()))
        Fault("edge ", edge.edgeIndex, " lies ", worst, " from the surface along trim ",
              trim.trimIndex, " (allowed ", EdgeSlack(), ")");
    else if (!forward)
        Fault("trim ", trim.trimIndex, " does not run along edge ", edge.edgeIndex,
              trim.reversed ? " backwards" : " forwards");
}

void Walk::CheckVertex(const GK_BrepTrim& trim, std::size_t end)
{
    const GK_BrepVertex& vertex = m_brep.Vertex(trim.vertexIndex[end]);
    const double most = EdgeSlack() + 1e-5 * m_extent.size;
    const double slack = vertex.tolerance == GK_UNSET_VALUE ? most : vertex.tolerance + EdgeSlack();
    const double fromTrim = vertex.point.DistanceTo(Place(trim, end == 0 ? 0.0 : 1.0));
    if (!(fromTrim <= std::min(slack, most)))
        Fault("trim ", trim.trimIndex, end == 0 ? " starts " : " ends ", fromTrim, " from vertex ",
              vertex.vertexIndex);
    if (trim.edgeIndex < 0)
        return;
    const GK_BrepEdge& edge = m_brep.Edge(trim.edgeIndex);
    const std::size_t edgeEnd = trim.reversed ? 1 - end : end;
    if (edge.vertexIndex[edgeEnd] != trim.vertexIndex[end])
        Fault("trim ", trim.trimIndex, " and edge ", edge.edgeIndex, " disagree on a vertex");
    const double fromEdge =
        vertex.point.DistanceTo(edgeEnd == 0 ? edge.PointAtStart() : edge.PointAtEnd());
    if (!(fromEdge <= std::min(slack, most)))
        Fault("edge ", edge.edgeIndex, edgeEnd == 0 ? " starts " : " ends ", fromEdge,
              " from vertex ", vertex.vertexIndex);
}

// Two trims of one face on one edge: the two sides of a seam.
void Walk::CheckSeam(const GK_BrepTrim& trim, const GK_BrepEdge& edge)
{
    for (const int index : edge.trimIndices) {
        const GK_BrepTrim& other = m_brep.Trim(index);
        if (index == trim.trimIndex ||
            m_brep.Loop(other.loopIndex).faceIndex != m_brep.Loop(trim.loopIndex).faceIndex)
            continue;
        if (other.reversed == trim.reversed)
            Fault("trims ", trim.trimIndex, " and ", index, " run the same way along edge ",
                  edge.edgeIndex);
        const GK_3dPoint a = trim.PointAtStart();
        const GK_3dPoint b = other.PointAtEnd();
        const double across[] = {std::abs(a.x - b.x) - m_extent.domain[0].Length(),
                                 std::abs(a.y - b.y) - m_extent.domain[1].Length()};
        if (std::abs(across[0]) > PlaneSlack(0) && std::abs(across[1]) > PlaneSlack(1))
            Fault("trims ", trim.trimIndex, " and ", index, " share edge ", edge.edgeIndex,
                  " but are not the sides of a seam");
    }
}

} // namespace

std::vector<std::string> FaultsOf(const GK_Brep& brep, double tolerance)
{
    return Walk(brep, tolerance).Run();
}
