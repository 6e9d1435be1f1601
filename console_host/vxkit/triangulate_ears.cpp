#include "console_host/vxkit/triangulate_planar.h"

#include <algorithm>

EarClipper::EarClipper(std::span<const PlanarPoint> points, double tolerance)
    : m_points(points), m_tolerance(tolerance), m_count(static_cast<int>(points.size()))
{
    for (int i = 0; i < m_count; ++i) {
        Corner& corner = At(i);
        corner.previous = i > 0 ? i - 1 : m_count - 1;
        corner.next = i + 1 < m_count ? i + 1 : 0;
        corner.mayBlock = false;
    }
    ClassifyAll();
}

void EarClipper::ClassifyAll()
{
    int i = m_first;
    do {
        Classify(i);
        i = At(i).next;
    } while (i != m_first);
}

void EarClipper::Classify(int i)
{
    // Cut off before any other: what is left is the same polygon.
    constexpr double QualityOfRepetition = 2.0;
    Corner& corner = At(i);
    const PlanarPoint& a = Point(corner.previous);
    const PlanarPoint& b = Point(i);
    const PlanarPoint& c = Point(corner.next);
    m_mayBlockCount -= corner.mayBlock ? 1 : 0;
    corner.mayBlock = false;
    if (a == b || b == c || c == a) {
        corner.state = State::Ear;
        corner.quality = QualityOfRepetition;
        return;
    }
    const double area = Orientation(a, b, c);
    const double chord = SquaredDistance(a, c);
    if (area > 0.0 && area * area > m_tolerance * m_tolerance * chord) {
        const double longest = std::max({chord, SquaredDistance(a, b), SquaredDistance(b, c)});
        corner.state = State::Untested;
        corner.quality = area / longest;
        return;
    }
    corner.state = State::NoEar;
    corner.mayBlock = true;
    ++m_mayBlockCount;
}

/// Returns whether a side at corner `v`, which lies on the line between two others, goes to the
/// left of that line.
bool EarClipper::EntersAcross(int v, int from, int to) const
{
    return Orientation(Point(from), Point(to), Point(At(v).previous)) > 0.0 ||
           Orientation(Point(from), Point(to), Point(At(v).next)) > 0.0;
}

/// Returns whether corner `v` lies in the triangle of corner `i`, or beyond its third side by less
/// than the tolerance. Parts of a polygon that only touch do not block each other.
bool EarClipper::Blocks(int v, int i) const
{
    const int previous = At(i).previous;
    const int next = At(i).next;
    const PlanarPoint& a = Point(previous);
    const PlanarPoint& b = Point(i);
    const PlanarPoint& c = Point(next);
    const PlanarPoint& p = Point(v);
    if (p == a || p == b || p == c)
        return false;
    const double leftOfFirst = Orientation(a, b, p);
    const double leftOfSecond = leftOfFirst < 0.0 ? -1.0 : Orientation(b, c, p);
    if (leftOfSecond < 0.0)
        return false;
    const double leftOfThird = Orientation(c, a, p);
    if (leftOfThird < 0.0 &&
        leftOfThird * leftOfThird >= m_tolerance * m_tolerance * SquaredDistance(a, c))
        return false;
    if (leftOfFirst == 0.0)
        return EntersAcross(v, previous, i);
    return leftOfSecond > 0.0 || EntersAcross(v, i, next);
}

int EarClipper::Blocker(int i) const
{
    if (m_mayBlockCount == 0)
        return -1;
    for (int v = At(At(i).next).next; v != At(i).previous; v = At(v).next)
        if (At(v).mayBlock && Blocks(v, i))
            return v;
    return -1;
}

int EarClipper::BestEar()
{
    while (true) {
        int best = -1;
        int i = m_first;
        do {
            Corner& corner = At(i);
            if (corner.state == State::Blocked && At(corner.blocker).state == State::Gone)
                corner.state = State::Untested;
            const bool mayBeEar = corner.state == State::Ear || corner.state == State::Untested;
            if (mayBeEar && (best < 0 || corner.quality > At(best).quality))
                best = i;
            i = corner.next;
        } while (i != m_first);

        if (best < 0 || At(best).state == State::Ear)
            return best;
        const int blocker = Blocker(best);
        At(best).blocker = blocker;
        At(best).state = blocker < 0 ? State::Ear : State::Blocked;
    }
}

/// Returns, when sides cross or run along each other, a corner without area, or the one that turns
/// left most.
int EarClipper::LeastBadCorner() const
{
    int best = -1;
    double bestArea = 0.0;
    int i = m_first;
    do {
        const double area = Orientation(Point(At(i).previous), Point(i), Point(At(i).next));
        if (area == 0.0)
            return i;
        if (area > bestArea) {
            best = i;
            bestArea = area;
        }
        i = At(i).next;
    } while (i != m_first);
    return best;
}

bool EarClipper::Run(TriangleWriter& triangles)
{
    while (m_count > 3) {
        int i = BestEar();
        if (i < 0 && m_tolerance > 0.0) {
            m_tolerance = 0.0;
            ClassifyAll();
            continue;
        }
        if (i < 0)
            i = LeastBadCorner();
        if (i < 0)
            return false;

        Corner& corner = At(i);
        triangles.Add(corner.previous, i, corner.next);
        At(corner.previous).next = corner.next;
        At(corner.next).previous = corner.previous;
        corner.state = State::Gone;
        m_mayBlockCount -= corner.mayBlock ? 1 : 0;
        --m_count;
        m_first = corner.previous;
        Classify(corner.previous);
        Classify(corner.next);
    }
    return triangles.Add(m_first, At(m_first).next, At(m_first).previous);
}
