#pragma once

#include "console_host/vxkit/planar_polygon.h"

#include <vector>

/// The corners of a polygon as a ring, and how they lie to each other for a line that sweeps
/// downward over it. Where the polygon touches itself, corners and sides count as lying further
/// inward by less than any distance, so that what touches is told apart.
class SweepPolygon
{
public:
    explicit SweepPolygon(std::span<const PlanarPoint> points);

    /// Cuts off the corners that repeat a neighbour and those whose two sides run along each other,
    /// as triangles without area. Returns the number of corners left, 3 at least.
    int RemoveRepetitions(TriangleWriter& triangles);

    [[nodiscard]] const PlanarPoint& Point(int i) const
    {
        return m_points[static_cast<std::size_t>(i)];
    }

    [[nodiscard]] int Previous(int i) const { return m_previous[static_cast<std::size_t>(i)]; }
    [[nodiscard]] int Next(int i) const { return m_next[static_cast<std::size_t>(i)]; }
    [[nodiscard]] int First() const { return m_first; }

    /// Returns whether the sweeping line meets corner `i` before corner `j`.
    [[nodiscard]] bool IsBefore(int i, int j) const;

    /// Returns the corners, `count` of them, in the order in which the sweeping line meets them.
    [[nodiscard]] std::vector<int> CornersInOrder(int count) const;

    /// Returns whether corner `i` lies to the left of the side from corner `from` to the next one.
    [[nodiscard]] bool IsLeftOf(int from, int i) const;

private:
    [[nodiscard]] bool IsRepetition(int i) const;
    [[nodiscard]] PlanarPoint InwardNormal(int from) const;
    [[nodiscard]] PlanarPoint InwardStep(int i) const;

    std::span<const PlanarPoint> m_points;
    std::vector<int> m_previous;
    std::vector<int> m_next;
    int m_first = 0;
};
