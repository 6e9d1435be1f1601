#pragma once

#include <span>

/// A corner of a polygon in the plane of its projection.
struct PlanarPoint
{
    double x;
    double y;

    friend bool operator==(const PlanarPoint&, const PlanarPoint&) = default;
};

inline double SquaredDistance(const PlanarPoint& a, const PlanarPoint& b)
{
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

/// Returns twice the signed area of the triangle a, b, c: positive when it turns to the left. The
/// sign is exact.
double Orientation(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& c);

/// Projects a polygon along the normal of its best-fit plane so that it turns to the left. `points`
/// holds x, y, z of every corner, `stride` doubles from one to the next. Returns the distance below
/// which corners differ by no more than the rounding of single-precision coordinates; a negative
/// value when there is no such plane or a coordinate is not finite.
double ProjectPolygon(const double* points, int stride, std::span<PlanarPoint> projected);

/// Takes the triangles of a polygon, no more than there is room for.
class TriangleWriter
{
public:
    TriangleWriter(int* triangles, int room) : m_next(triangles), m_room(room) {}

    /// Adds a triangle and returns true; returns false when the room is used up.
    bool Add(int a, int b, int c)
    {
        if (m_room == 0)
            return false;
        --m_room;
        *m_next++ = a;
        *m_next++ = b;
        *m_next++ = c;
        return true;
    }

    [[nodiscard]] bool IsFull() const { return m_room == 0; }

private:
    int* m_next;
    int m_room;
};
