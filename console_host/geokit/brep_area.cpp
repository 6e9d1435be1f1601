#include "console_host/geokit/brep_trims.h"

#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <vector>

namespace {

// Gathers the area of a polygon about its first point, so that loops far from the origin keep their
// digits.
class PolygonArea
{
public:
    void Add(const GK_3dPoint& point)
    {
        if (m_empty)
            m_first = m_last = point;
        m_empty = false;
        const GK_3dVector a = m_last - m_first;
        const GK_3dVector b = point - m_first;
        m_twiceArea += a.x * b.y - a.y * b.x;
        m_last = point;
    }

    [[nodiscard]] double TwiceArea() const { return m_twiceArea; }

private:
    GK_3dPoint m_first;
    GK_3dPoint m_last;
    double m_twiceArea = 0.0;
    bool m_empty = true;
};

// Enough steps per span to follow what a polynomial of the degree can do; fewer at degrees where a
// single point is slow work. Degree 1 is straight, with weights or without.
int StepsPerSpan(const GK_NurbsCurve& curve)
{
    constexpr int Most = 64;
    constexpr int Slow = 1000;
    if (curve.Degree() == 1)
        return 1;
    return curve.Degree() > Slow ? 4 : std::min(4 * curve.Degree(), Most);
}

void AddTrim(const GK_BrepTrim& trim, PolygonArea& area)
{
    const GK_NurbsCurve* curve = GK_NurbsCurve::Cast(trim.ProxyCurve());
    if (curve == nullptr)
        return;
    const GK_Interval domain = trim.Domain();
    std::vector<double> breaks{domain[0]};
    for (const double knot : curve->knots)
        if (knot > breaks.back() && knot < domain[1])
            breaks.push_back(knot);
    breaks.push_back(domain[1]);
    const int steps = StepsPerSpan(*curve);
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        const GK_Interval span(breaks[i], breaks[i + 1]);
        for (int step = 0; step < steps; ++step)
            area.Add(curve->PointAt(span.ParameterAt(static_cast<double>(step) / steps)));
    }
}

} // namespace

double SignedArea(const GK_Brep& brep, const GK_BrepLoop& loop)
{
    PolygonArea area;
    for (const int trim : loop.trimIndices)
        AddTrim(brep.Trim(trim), area);
    return area.TwiceArea();
}
