#include "tests/trimming/brep_walk.h"

#include "host/geokit/nurbs_surface.h"

#include <algorithm>
#include <array>
#include <cmath>

// The area element |Su x Sv| is integrated over u from the lowest u to the boundary, and that along
// the boundary over v (Green's theorem).

namespace {

struct Node
{
    double place; // of 0 to 1
    double weight;
};

constexpr std::array<Node, 5> Gauss5{{{0.046910077030668004, 0.118463442528094544},
                                      {0.230765344947158454, 0.239314335249683234},
                                      {0.5, 0.284444444444444444},
                                      {0.769234655052841546, 0.239314335249683234},
                                      {0.953089922969331996, 0.118463442528094544}}};

template <class Knots>
std::vector<double> Breaks(const Knots& knots, double low, double high)
{
    std::vector<double> breaks{low};
    for (const double knot : knots)
        if (knot > breaks.back() && knot < high)
            breaks.push_back(knot);
    breaks.push_back(high);
    return breaks;
}

class FaceArea
{
public:
    explicit FaceArea(const GK_NurbsSurface& surface)
        : m_surface(surface), m_u(surface.Domain(0)), m_v(surface.Domain(1)),
          m_scale(std::abs(Strip(m_u[1], 0.5 * (m_v[0] + m_v[1])) * m_v.Length()))
    {
    }

    [[nodiscard]] double AlongTrim(const GK_BrepTrim& trim) const
    {
        const GK_NurbsCurve curve = trim.AsBspline();
        const GK_Interval domain = trim.Domain();
        double area = 0.0;
        std::vector<double> breaks = Breaks(curve.knots, domain.Min(), domain.Max());
        AddCrossings(curve, breaks);
        for (std::size_t i = 0; i + 1 < breaks.size(); ++i)
            area += AlongPart(curve, breaks[i], breaks[i + 1], Sum(curve, breaks[i], breaks[i + 1]),
                              MostHalvings);
        return domain.IsIncreasing() ? area : -area;
    }

private:
    static constexpr int MostHalvings = 12;

    // Adds where the curve crosses knots of the surface in v, where the area element may jump: too
    // near to an end for a rule of five nodes to see, a jump would go unnoticed.
    void AddCrossings(const GK_NurbsCurve& curve, std::vector<double>& breaks) const
    {
        std::vector<double> crossings;
        for (std::size_t i = 0; i + 1 < breaks.size(); ++i)
            for (const double knot : m_surface.Knots(1)) {
                double low = breaks[i];
                double high = breaks[i + 1];
                const bool above = curve.PointAt(low).y > knot;
                if (above == (curve.PointAt(high).y > knot))
                    continue;
                for (double t = 0.5 * (low + high); low < t && t < high; t = 0.5 * (low + high))
                    ((curve.PointAt(t).y > knot) == above ? low : high) = t;
                crossings.push_back(low);
            }
        breaks.insert(breaks.end(), crossings.begin(), crossings.end());
        std::sort(breaks.begin(), breaks.end());
    }

    // Returns the area element summed over u up to a boundary.
    [[nodiscard]] double Strip(double u, double v) const
    {
        const double high = std::clamp(u, m_u[0], m_u[1]);
        const double inner = std::clamp(v, m_v[0], m_v[1]);
        const std::vector<double> breaks = Breaks(m_surface.Knots(0), m_u[0], high);
        double sum = 0.0;
        for (std::size_t i = 0; i + 1 < breaks.size(); ++i)
            sum += Across(breaks[i], 0.5 * (breaks[i] + breaks[i + 1]), inner) +
                   Across(0.5 * (breaks[i] + breaks[i + 1]), breaks[i + 1], inner);
        return sum;
    }

    [[nodiscard]] double Across(double u0, double u1, double v) const
    {
        double sum = 0.0;
        for (const Node& node : Gauss5) {
            const GK_SurfacePoint at = m_surface.Evaluate(u0 + node.place * (u1 - u0), v);
            sum += node.weight * GK_CrossProduct(at.du, at.dv).Length();
        }
        return sum * (u1 - u0);
    }

    [[nodiscard]] double Sum(const GK_NurbsCurve& curve, double t0, double t1) const
    {
        double sum = 0.0;
        for (const Node& node : Gauss5) {
            const GK_CurvePoint at = curve.Evaluate(t0 + node.place * (t1 - t0));
            if (at.derivative.y != 0.0)
                sum += node.weight * Strip(at.point.x, at.point.y) * at.derivative.y;
        }
        return sum * (t1 - t0);
    }

    [[nodiscard]] double AlongPart(const GK_NurbsCurve& curve, double t0, double t1, double whole,
                                   int halvings) const
    {
        constexpr double Accuracy = 1e-10;
        const double middle = 0.5 * (t0 + t1);
        const double first = Sum(curve, t0, middle);
        const double second = Sum(curve, middle, t1);
        if (halvings == 0 || std::abs(first + second - whole) <= Accuracy * m_scale)
            return first + second;
        return AlongPart(curve, t0, middle, first, halvings - 1) +
               AlongPart(curve, middle, t1, second, halvings - 1);
    }

    const GK_NurbsSurface& m_surface;
    GK_Interval m_u;
    GK_Interval m_v;
    double m_scale;
};

} // namespace

double AreaOf(const GK_Brep& brep)
{
    double area = 0.0;
    for (int f = 0; f < brep.FaceCount(); ++f) {
        const auto* surface = GK_NurbsSurface::Cast(brep.Surface(brep.Face(f).surfaceIndex));
        if (surface == nullptr)
            continue;
        const FaceArea face(*surface);
        for (const int loop : brep.Face(f).loopIndices)
            for (const int trim : brep.Loop(loop).trimIndices)
                area += face.AlongTrim(brep.Trim(trim));
    }
    return area;
}
