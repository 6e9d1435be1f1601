#include "objimport/exchange/brep_fineness.h"

#include "host/geokit/nurbs_surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

class Box
{
public:
    void Add(const GK_3dPoint& p)
    {
        m_low = {std::min(m_low.x, p.x), std::min(m_low.y, p.y), std::min(m_low.z, p.z)};
        m_high = {std::max(m_high.x, p.x), std::max(m_high.y, p.y), std::max(m_high.z, p.z)};
    }
    [[nodiscard]] const GK_3dPoint& Low() const { return m_low; }
    [[nodiscard]] const GK_3dPoint& High() const { return m_high; }
    [[nodiscard]] GK_3dPoint Middle() const { return m_low + 0.5 * (m_high - m_low); }
    [[nodiscard]] double LongestSide() const
    {
        const GK_3dVector sides = m_high - m_low;
        return std::max({sides.x, sides.y, sides.z});
    }

private:
    GK_3dPoint m_low{Infinity, Infinity, Infinity};
    GK_3dPoint m_high{-Infinity, -Infinity, -Infinity};
};

GK_Interval Overlap(const GK_Interval& a, const GK_Interval& b)
{
    const double low = std::max(a.Min(), b.Min());
    return {low, std::max(low, std::min(a.Max(), b.Max()))};
}

// The part of a face's surface in which its loops lie.
struct Window
{
    Window(const GK_Brep& brep, const GK_BrepFace& face) : surface(*brep.Surface(face.surfaceIndex))
    {
        Box box;
        for (const int loop : face.loopIndices)
            for (const int trim : brep.Loop(loop).trimIndices) {
                const GK_NurbsCurve curve = brep.Trim(trim).AsBspline();
                for (int i = 0; i < curve.controlPointCount; ++i)
                    box.Add(curve.ControlPoint(i));
            }
        domain = {Overlap({box.Low().x, box.High().x}, surface.Domain(0)),
                  Overlap({box.Low().y, box.High().y}, surface.Domain(1))};
    }

    void AddTo(Box& box) const
    {
        constexpr int Steps = 8;
        for (int i = 0; i <= Steps; ++i)
            for (int j = 0; j <= Steps; ++j)
                box.Add(surface.PointAt(domain[0].ParameterAt(1.0 * i / Steps),
                                        domain[1].ParameterAt(1.0 * j / Steps)));
    }

    const GK_Surface& surface;
    std::array<GK_Interval, 2> domain;
};

// The control points of a direction that have an effect in a window, each with the share of its
// effect that lies there.
class Reach
{
public:
    Reach(const GK_NurbsSurface& surface, int direction, const GK_Interval& window)
    {
        const GK_SimpleArray<double>& knots = surface.Knots(direction);
        const int last = knots.Count() - 1;
        m_end = surface.ControlPointCount(direction);
        for (int i = 0; i < m_end; ++i) {
            const GK_Interval effect(knots[std::max(i - 1, 0)],
                                     knots[std::min(i + surface.Degree(direction), last)]);
            const double common = Overlap(effect, window).Length();
            m_shares.push_back(common > 0.0 ? common / effect.Length() : 0.0);
        }
        while (m_begin < m_end && m_shares[static_cast<std::size_t>(m_begin)] == 0.0)
            ++m_begin;
        while (m_end > m_begin && m_shares[static_cast<std::size_t>(m_end) - 1] == 0.0)
            --m_end;
    }

    [[nodiscard]] int Begin() const { return m_begin; }
    [[nodiscard]] int End() const { return m_end; }
    [[nodiscard]] double Share(int i) const { return m_shares[static_cast<std::size_t>(i)]; }

private:
    std::vector<double> m_shares;
    int m_begin = 0;
    int m_end = 0;
};

// About how many triangles surfaces take, by the differences between their control points: a part
// that bends by a distance b takes sqrt(b / 8d) steps within a distance d.
class TriangleCount
{
public:
    void Add(const GK_NurbsSurface& surface, const std::array<GK_Interval, 2>& window)
    {
        const Reach u(surface, 0, window[0]);
        const Reach v(surface, 1, window[1]);
        for (int j = v.Begin(); j < v.End(); ++j)
            for (int i = u.Begin(); i < u.End(); ++i)
                AddPoint(surface, i, j, u.Share(i) * v.Share(j));
    }

    [[nodiscard]] double At(double distance) const
    {
        return m_points + m_bent / std::sqrt(distance) + m_bentTwice / distance;
    }
    [[nodiscard]] double Points() const { return m_points; }

private:
    static double Bend(const GK_3dPoint& before, const GK_3dPoint& p, const GK_3dPoint& after)
    {
        return ((after - p) + (-1.0) * (p - before)).Length();
    }

    void AddPoint(const GK_NurbsSurface& surface, int i, int j, double share)
    {
        const auto at = [&](int di, int dj) { return surface.ControlPoint(i + di, j + dj); };
        const bool hasLeft = i > 0;
        const bool hasRight = i + 1 < surface.ControlPointCount(0);
        const bool hasBelow = j > 0;
        const bool hasAbove = j + 1 < surface.ControlPointCount(1);
        const double u = hasLeft && hasRight ? Bend(at(-1, 0), at(0, 0), at(1, 0)) : 0.0;
        const double v = hasBelow && hasAbove ? Bend(at(0, -1), at(0, 0), at(0, 1)) : 0.0;
        const double twist = hasRight && hasAbove
                                 ? ((at(1, 1) - at(1, 0)) + (-1.0) * (at(0, 1) - at(0, 0))).Length()
                                 : 0.0;
        m_points += 2.0;
        m_bent += share * (std::sqrt(0.5 * u) + std::sqrt(0.5 * v));
        m_bentTwice += share * (0.25 * std::sqrt(u * v) + 0.5 * twist);
    }

    double m_points = 0.0;
    double m_bent = 0.0;
    double m_bentTwice = 0.0;
};

// Returns the power of 2 that scales a size to 512 to 1024: numbers stay exact.
double ScaleFor(double size)
{
    constexpr int Exponent = 10;
    int exponent = 0;
    (void)std::frexp(size, &exponent);
    return std::ldexp(1.0, Exponent - exponent);
}

double WithinCount(double tolerance, const TriangleCount& count)
{
    constexpr double Most = 1e5;
    while (count.At(tolerance) > Most + 2.0 * count.Points() && tolerance < Infinity)
        tolerance *= 1.25;
    return tolerance;
}

} // namespace

BrepFineness FinenessOf(const GK_Brep& brep, double tolerance)
{
    constexpr double Coarsest = 1e-3;
    constexpr double Finest = 2e-5;
    constexpr double LargestSize = 1e150; // squares of lengths are numbers as well
    Box box;
    TriangleCount count;
    for (int i = 0; i < brep.FaceCount(); ++i) {
        const Window window(brep, brep.Face(i));
        window.AddTo(box);
        if (const auto* nurbs = GK_NurbsSurface::Cast(&window.surface))
            count.Add(*nurbs, window.domain);
    }
    BrepFineness fineness;
    fineness.size = box.LongestSide();
    if (!(fineness.size > 1.0 / LargestSize && fineness.size < LargestSize))
        return fineness;
    fineness.placing = {box.Middle(), ScaleFor(fineness.size)};
    fineness.tolerance =
        WithinCount(std::clamp(tolerance, Finest * fineness.size, Coarsest * fineness.size), count);
    fineness.mostTriangles = 500'000 + 4 * static_cast<std::size_t>(count.Points());
    return fineness;
}
