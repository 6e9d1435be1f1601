#pragma once

#include "console_host/vxkit/planar_polygon.h"

#include <array>

/// Cuts a polygon of any number of corners, which turns to the left, into triangles while a line
/// sweeps over it, in some n log n steps. The polygon may touch itself. Returns false when its
/// sides cross.
bool TriangulateBySweep(std::span<const PlanarPoint> points, TriangleWriter& triangles);

/// Exchanges diagonals of a polygon's triangles, none of which turns to the right, until hardly any
/// angle can be made larger. Narrow triangles whose direction in space is chance go where there is
/// any other choice. Takes some n log n steps.
void ImproveTriangles(std::span<const PlanarPoint> points, std::span<int> triangles);

/// Cuts a polygon of few corners into triangles by cutting off one corner after the other, the one
/// that makes the best triangle first. Allocates nothing; work grows with the square of the
/// corners.
class EarClipper
{
public:
    static constexpr int MaxCorners = 128;

    /// The polygon has 3 to `MaxCorners` corners and turns to the left. Corners nearer than
    /// `tolerance` to a line count as lying on it where the triangles can be chosen.
    EarClipper(std::span<const PlanarPoint> points, double tolerance);

    /// Cuts the polygon and returns true; returns false when no corner could be cut off any more,
    /// as can happen when sides cross.
    bool Run(TriangleWriter& triangles);

private:
    enum class State : unsigned char
    {
        Untested,
        Ear,
        Blocked,
        NoEar,
        Gone
    };

    [[nodiscard]] const PlanarPoint& Point(int i) const
    {
        return m_points[static_cast<std::size_t>(i)];
    }

    void Classify(int i);
    void ClassifyAll();
    [[nodiscard]] int Blocker(int i) const;
    [[nodiscard]] bool Blocks(int v, int i) const;
    [[nodiscard]] bool EntersAcross(int v, int from, int to) const;
    int BestEar();
    [[nodiscard]] int LeastBadCorner() const;

    struct Corner
    {
        int previous;
        int next;
        int blocker;
        State state;
        bool mayBlock;
        double quality;
    };

    Corner& At(int i) { return m_corners[static_cast<std::size_t>(i)]; }
    [[nodiscard]] const Corner& At(int i) const { return m_corners[static_cast<std::size_t>(i)]; }

    std::span<const PlanarPoint> m_points;
    double m_tolerance;
    int m_first = 0;
    int m_count;
    int m_mayBlockCount = 0;
    std::array<Corner, MaxCorners> m_corners;
};
