#include "tests/trimming/brep_walk.h"

#include <algorithm>

std::vector<GK_2dPoint> Outline(const GK_Brep& brep, const GK_BrepLoop& loop)
{
    constexpr int StepsPerSpan = 24;
    std::vector<GK_2dPoint> points;
    for (const int t : loop.trimIndices) {
        const GK_BrepTrim& trim = brep.Trim(t);
        const GK_Interval domain = trim.Domain();
        std::vector<double> breaks{domain.Min(), domain.Max()};
        const GK_NurbsCurve curve = trim.AsBspline();
        for (const double knot : curve.knots)
            if (knot > domain.Min() && knot < domain.Max())
                breaks.push_back(knot);
        std::sort(breaks.begin(), breaks.end());
        breaks.erase(std::unique(breaks.begin(), breaks.end()), breaks.end());
        if (domain.IsDecreasing())
            std::reverse(breaks.begin(), breaks.end());
        for (std::size_t i = 0; i + 1 < breaks.size(); ++i)
            for (int step = 0; step < StepsPerSpan; ++step) {
                const GK_3dPoint uv = trim.PointAt(
                    GK_Interval(breaks[i], breaks[i + 1]).ParameterAt(1.0 * step / StepsPerSpan));
                points.push_back({uv.x, uv.y});
            }
    }
    return points;
}

double SignedAreaOf(const std::vector<GK_2dPoint>& polygon)
{
    double area = 0.0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const GK_2dPoint& a = polygon[i];
        const GK_2dPoint& b = polygon[(i + 1) % polygon.size()];
        const GK_2dPoint& origin = polygon[0]; // near, so that digits are kept
        area += 0.5 * ((a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y));
    }
    return area;
}

bool IsInside(const GK_2dPoint& point, const std::vector<GK_2dPoint>& polygon)
{
    bool inside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const GK_2dPoint& a = polygon[i];
        const GK_2dPoint& b = polygon[(i + 1) % polygon.size()];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}
