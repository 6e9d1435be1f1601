#include "console_host/vxkit/sweep_polygon.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

double Dot(const PlanarPoint& a, const PlanarPoint& b)
{
    return a.x * b.x + a.y * b.y;
}

PlanarPoint Difference(const PlanarPoint& a, const PlanarPoint& b)
{
    return {a.x - b.x, a.y - b.y};
}

/// From the top down, and from the left to the right.
bool LiesBefore(const PlanarPoint& a, const PlanarPoint& b)
{
    return a.y != b.y ? a.y > b.y : a.x < b.x;
}

} // namespace

SweepPolygon::SweepPolygon(std::span<const PlanarPoint> points)
    : m_points(points), m_previous(points.size()), m_next(points.size())
{
    std::iota(m_previous.begin() + 1, m_previous.end(), 0);
    m_previous.front() = static_cast<int>(points.size()) - 1;
    std::iota(m_next.begin(), m_next.end() - 1, 1);
    m_next.back() = 0;
}

bool SweepPolygon::IsRepetition(int i) const
{
    const PlanarPoint& a = Point(Previous(i));
    const PlanarPoint& b = Point(i);
    const PlanarPoint& c = Point(Next(i));
    if (a == b || b == c)
        return true;
    return Dot(Difference(a, b), Difference(c, b)) > 0.0 && Orientation(a, b, c) == 0.0;
}

int SweepPolygon::RemoveRepetitions(TriangleWriter& triangles)
{
    int count = static_cast<int>(m_points.size());
    int i = m_first;
    // So many corners in a row, up to corner i, are known to stay.
    int known = 0;
    while (count > 3 && known < count) {
        const int previous = Previous(i);
        const int next = Next(i);
        if (!IsRepetition(i)) {
            ++known;
            i = next;
            continue;
        }
        triangles.Add(previous, i, next);
        m_next[static_cast<std::size_t>(previous)] = next;
        m_previous[static_cast<std::size_t>(next)] = previous;
        --count;
        known = std::max(0, known - 2);
        i = previous;
    }
    m_first = i;
    return count;
}

bool SweepPolygon::IsBefore(int i, int j) const
{
    const PlanarPoint& a = Point(i);
    const PlanarPoint& b = Point(j);
    if (a != b)
        return LiesBefore(a, b);
    const PlanarPoint stepA = InwardStep(i);
    const PlanarPoint stepB = InwardStep(j);
    return stepA != stepB ? LiesBefore(stepA, stepB) : i < j;
}

std::vector<int> SweepPolygon::CornersInOrder(int count) const
{
    // Sorted with their points, they are compared without a look anywhere else.
    struct Corner
    {
        PlanarPoint point;
        int index;
    };
    std::vector<Corner> corners;
    corners.reserve(static_cast<std::size_t>(count));
    for (int i = m_first; std::ssize(corners) < count; i = Next(i))
        corners.push_back({Point(i), i});
    std::sort(corners.begin(), corners.end(), [this](const Corner& a, const Corner& b) {
        return a.point != b.point ? LiesBefore(a.point, b.point) : IsBefore(a.index, b.index);
    });
    std::vector<int> indices(corners.size());
    std::transform(corners.begin(), corners.end(), indices.begin(),
                   [](const Corner& corner) { return corner.index; });
    return indices;
}

bool SweepPolygon::IsLeftOf(int from, int i) const
{
    const double area = Orientation(Point(from), Point(Next(from)), Point(i));
    return area != 0.0 ? area > 0.0 : Dot(InwardStep(i), InwardNormal(from)) > 1.0;
}

/// Returns the vector of length 1 to the left of the side from a corner to the next one.
PlanarPoint SweepPolygon::InwardNormal(int from) const
{
    const PlanarPoint side = Difference(Point(Next(from)), Point(from));
    const double length = std::hypot(side.x, side.y);
    return {-side.y / length, side.x / length};
}

/// Returns how a corner moves when the sides at it move inward by 1.
PlanarPoint SweepPolygon::InwardStep(int i) const
{
    constexpr double Smallest = 1e-9;
    const PlanarPoint a = InwardNormal(Previous(i));
    const PlanarPoint b = InwardNormal(i);
    const double factor = 1.0 / std::max(Smallest, 1.0 + Dot(a, b));
    return {factor * (a.x + b.x), factor * (a.y + b.y)};
}
