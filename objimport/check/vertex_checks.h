#pragma once

#include "objimport/check/findings.h"

#include "host/geokit/point.h"

#include <cmath>
#include <limits>

/// Follows the vertex statements: the extent of the positions, and what single precision does to
/// their coordinates.
class VertexChecks
{
public:
    /// Coordinates that change by more than the tolerance are reported.
    explicit VertexChecks(double tolerance)
        : m_tolerance(tolerance), m_usualBelow(UsualBelow(tolerance))
    {
    }

    /// Checks the position that was read last. `numbers` is called to learn what stands in the
    /// file, should it matter; it returns three doubles.
    template <class Numbers>
    void CheckPosition(const CheckPlace& place, const GK_3dPoint& stored, const Numbers& numbers)
    {
        if (!IsUsual(stored.x) || !IsUsual(stored.y) || !IsUsual(stored.z)) {
            CheckUnusual(place, stored, numbers());
            if (!IsFinite(stored))
                return;
        }
        Grow(stored);
    }

    void CheckTexCoord(const CheckPlace& place, const GK_2fPoint& stored) const;
    void CheckNormal(const CheckPlace& place, const GK_3fVector& stored) const;

    /// Reports, at the end of the file, that not every position has a colour when some have.
    void Finish(CheckPlace place, std::size_t vertexCount, std::size_t colorCount) const;

    /// Return the lowest and highest finite coordinates; low is above high when there is none.
    [[nodiscard]] const GK_3dPoint& Low() const { return m_low; }
    [[nodiscard]] const GK_3dPoint& High() const { return m_high; }

    static bool IsFinite(const GK_3dPoint& point)
    {
        return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
    }

private:
    /// Returns the size below which no coordinate can change by more than the tolerance.
    static double UsualBelow(double tolerance);

    [[nodiscard]] bool IsUsual(double coordinate) const
    {
        return std::abs(coordinate) < m_usualBelow;
    }

    void CheckUnusual(const CheckPlace& place, const GK_3dPoint& stored,
                      const std::array<double, 3>& numbers) const;

    void Grow(const GK_3dPoint& point)
    {
        m_low = {std::min(m_low.x, point.x), std::min(m_low.y, point.y),
                 std::min(m_low.z, point.z)};
        m_high = {std::max(m_high.x, point.x), std::max(m_high.y, point.y),
                  std::max(m_high.z, point.z)};
    }

    static constexpr double Infinity = std::numeric_limits<double>::infinity();

    double m_tolerance;
    double m_usualBelow;
    GK_3dPoint m_low{Infinity, Infinity, Infinity};
    GK_3dPoint m_high{-Infinity, -Infinity, -Infinity};
};
