#include "host/vxkit/triangulate.h"

#include "console_host/vxkit/triangulate_planar.h"

#include <algorithm>
#include <vector>

namespace {

/// Returns whether all corners turn left by more than the tolerance explains, and in all by one
/// full turn.
bool IsClearlyConvex(std::span<const PlanarPoint> points, double tolerance)
{
    int reversals = 0;
    PlanarPoint a = points[points.size() - 2];
    PlanarPoint b = points.back();
    const auto goesUp = [](const PlanarPoint& from, const PlanarPoint& to) {
        return from.x != to.x ? from.x < to.x : from.y < to.y;
    };
    bool wasUp = goesUp(a, b);
    for (const PlanarPoint& c : points) {
        const double area = (b.x - a.x) * (c.y - b.y) - (b.y - a.y) * (c.x - b.x);
        if (!(area > 0.0 && area * area > tolerance * tolerance * SquaredDistance(a, c)))
            return false;
        const bool isUp = goesUp(b, c);
        reversals += isUp != wasUp ? 1 : 0;
        wasUp = isUp;
        a = b;
        b = c;
    }
    return reversals == 2;
}

/// Cuts off every second corner, then every second one of those left, and so on.
void TriangulateConvex(int count, TriangleWriter& triangles)
{
    for (int step = 1; !triangles.IsFull(); step *= 2)
        for (int i = 0; i + step < count; i += 2 * step) {
            const int third = i + 2 * step;
            if (third < count)
                triangles.Add(i, i + step, third);
            else if (i > 0)
                triangles.Add(i, i + step, 0);
        }
}

enum class Outcome
{
    Wrong,
    Narrow,
    Good
};

/// Returns Wrong when a triangle turns to the right, Narrow when the height of one is within the
/// tolerance.
Outcome Judge(std::span<const PlanarPoint> points, double tolerance, std::span<const int> triangles)
{
    Outcome outcome = Outcome::Good;
    for (std::size_t i = 0; i < triangles.size(); i += 3) {
        const PlanarPoint& a = points[static_cast<std::size_t>(triangles[i])];
        const PlanarPoint& b = points[static_cast<std::size_t>(triangles[i + 1])];
        const PlanarPoint& c = points[static_cast<std::size_t>(triangles[i + 2])];
        const double area = Orientation(a, b, c);
        if (area < 0.0)
            return Outcome::Wrong;
        const double longest =
            std::max({SquaredDistance(a, b), SquaredDistance(b, c), SquaredDistance(c, a)});
        if (area * area <= tolerance * tolerance * longest)
            outcome = Outcome::Narrow;
    }
    return outcome;
}

/// Cuts a polygon of many corners. Returns false when sides cross.
bool TriangulateMany(std::span<const PlanarPoint> points, double tolerance,
                     std::span<int> triangles)
{
    TriangleWriter out(triangles.data(), static_cast<int>(triangles.size() / 3));
    if (!TriangulateBySweep(points, out))
        return false;
    const Outcome outcome = Judge(points, tolerance, triangles);
    if (outcome == Outcome::Narrow)
        ImproveTriangles(points, triangles);
    return outcome != Outcome::Wrong;
}

bool TriangulatePlanar(std::span<const PlanarPoint> points, double tolerance,
                       std::span<int> triangles)
{
    constexpr std::size_t FewCorners = 12;
    const std::size_t count = points.size();
    TriangleWriter out(triangles.data(), static_cast<int>(triangles.size() / 3));
    if (IsClearlyConvex(points, tolerance)) {
        TriangulateConvex(static_cast<int>(count), out);
        return true;
    }
    if (count > FewCorners && TriangulateMany(points, tolerance, triangles))
        return true;
    return count <= EarClipper::MaxCorners && EarClipper(points, tolerance).Run(out);
}

} // namespace

bool VX_Triangulate3dPolygon(int pointCount, int pointDimension, const double* points,
                             int pointStride, int* triangles)
{
    if (pointCount < 3 || pointDimension != 3 || pointStride < 3)
        return false;
    const auto count = static_cast<std::size_t>(pointCount);
    std::array<PlanarPoint, EarClipper::MaxCorners> few;
    std::vector<PlanarPoint> many;
    std::span<PlanarPoint> projected(few);
    if (count <= few.size()) {
        projected = projected.first(count);
    } else {
        many.resize(count);
        projected = many;
    }
    const double tolerance = ProjectPolygon(points, pointStride, projected);
    return tolerance >= 0.0 &&
           TriangulatePlanar(projected, tolerance, {triangles, (count - 2) * 3});
}
