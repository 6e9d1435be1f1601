#include "console_host/vxkit/planar_polygon.h"

#include "host/geokit/point.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// A number as the exact sum of doubles, each beyond the digits of the one before.
class ExactSum
{
public:
    void AddProduct(double a, double b)
    {
        const double product = a * b;
        const auto [aHigh, aLow] = Halves(a);
        const auto [bHigh, bLow] = Halves(b);
        Add(aLow * bLow - (((product - aHigh * bHigh) - aLow * bHigh) - aHigh * bLow));
        Add(product);
    }

    /// Returns the sum, rounded; its sign is exact.
    [[nodiscard]] double Value() const
    {
        double value = 0.0;
        for (int i = 0; i < m_count; ++i)
            value += m_parts[static_cast<std::size_t>(i)];
        return value;
    }

private:
    static std::pair<double, double> Halves(double value)
    {
        constexpr double Splitter = (1 << 27) + 1.0;
        const double scaled = Splitter * value;
        const double high = scaled - (scaled - value);
        return {high, value - high};
    }

    void Add(double value)
    {
        int kept = 0;
        for (int i = 0; i < m_count; ++i) {
            const double part = m_parts[static_cast<std::size_t>(i)];
            const double sum = value + part;
            const double back = sum - value;
            const double error = (value - (sum - back)) + (part - back);
            if (error != 0.0)
                m_parts[static_cast<std::size_t>(kept++)] = error;
            value = sum;
        }
        m_parts[static_cast<std::size_t>(kept++)] = value;
        m_count = kept;
    }

    std::array<double, 12> m_parts;
    int m_count = 0;
};

double ExactOrientation(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& c)
{
    ExactSum sum;
    sum.AddProduct(a.x, b.y);
    sum.AddProduct(-a.y, b.x);
    sum.AddProduct(b.x, c.y);
    sum.AddProduct(-b.y, c.x);
    sum.AddProduct(c.x, a.y);
    sum.AddProduct(-c.y, a.x);
    return sum.Value();
}

/// The corners of a polygon in space.
class Corners
{
public:
    Corners(const double* points, int stride, std::size_t count)
        : m_points(points), m_stride(static_cast<std::size_t>(stride)), m_count(count)
    {
    }

    [[nodiscard]] GK_3dVector operator[](std::size_t i) const
    {
        const double* const p = m_points + i * m_stride;
        return {p[0], p[1], p[2]};
    }

    /// Returns the largest coordinate; negative when one is not finite.
    [[nodiscard]] double Largest() const
    {
        double largest = 0.0;
        double notFinite = 0.0;
        for (std::size_t i = 0; i < m_count; ++i) {
            const GK_3dVector p = (*this)[i];
            notFinite += 0.0 * p.x + 0.0 * p.y + 0.0 * p.z;
            largest = std::max({largest, std::abs(p.x), std::abs(p.y), std::abs(p.z)});
        }
        return notFinite == 0.0 ? largest : -1.0;
    }

    /// Returns the scaled vector from the first corner to another.
    [[nodiscard]] GK_3dVector Offset(std::size_t i, double scale) const
    {
        const GK_3dVector p = (*this)[i];
        return {scale * p.x - scale * m_points[0], scale * p.y - scale * m_points[1],
                scale * p.z - scale * m_points[2]};
    }

    [[nodiscard]] GK_3dVector Normal(double scale) const
    {
        GK_3dVector normal;
        GK_3dVector previous = Offset(1, scale);
        for (std::size_t i = 2; i < m_count; ++i) {
            const GK_3dVector current = Offset(i, scale);
            normal = normal + GK_CrossProduct(previous, current);
            previous = current;
        }
        return normal;
    }

private:
    const double* m_points;
    std::size_t m_stride;
    std::size_t m_count;
};

/// Returns a power of two that brings the largest coordinate near 1, so that products of
/// coordinates neither overflow nor vanish.
double ScaleFor(double largest)
{
    int exponent = 0;
    std::frexp(largest, &exponent);
    return std::ldexp(1.0, std::clamp(-exponent, -1000, 1000));
}

/// Exchanges the coordinates in a circle, so that z is the one along which a normal is longest.
GK_3dVector Turned(const GK_3dVector& v, const GK_3dVector& normal)
{
    const double x = std::abs(normal.x);
    const double y = std::abs(normal.y);
    const double z = std::abs(normal.z);
    if (z >= x && z >= y)
        return v;
    return x >= y ? GK_3dVector{v.y, v.z, v.x} : GK_3dVector{v.z, v.x, v.y};
}

} // namespace

double Orientation(const PlanarPoint& a, const PlanarPoint& b, const PlanarPoint& c)
{
    constexpr double ErrorOfDifference = 3.3306690738754716e-16;
    const double left = (a.x - c.x) * (b.y - c.y);
    const double right = (a.y - c.y) * (b.x - c.x);
    const double difference = left - right;
    if (std::abs(difference) >= ErrorOfDifference * (std::abs(left) + std::abs(right)))
        return difference;
    return ExactOrientation(a, b, c);
}

double ProjectPolygon(const double* points, int stride, std::span<PlanarPoint> projected)
{
    const Corners corners(points, stride, projected.size());
    const double largest = corners.Largest();
    if (largest < 0.0)
        return -1.0;
    const double scale = ScaleFor(largest);
    const GK_3dVector normal = corners.Normal(scale);
    // The coordinate along which the normal is longest is dropped, after each corner has moved
    // along the normal until that coordinate is 0: what lies exactly in a coordinate plane stays
    // exact.
    const GK_3dVector n = Turned(normal, normal);
    if (!(std::abs(n.z) > 0.0))
        return -1.0;
    const double slopeX = n.x / n.z;
    const double slopeY = n.y / n.z;
    for (std::size_t i = 0; i < projected.size(); ++i) {
        const GK_3dVector p = Turned(corners.Offset(i, scale), normal);
        const PlanarPoint flat{p.x - slopeX * p.z, p.y - slopeY * p.z};
        projected[i] = n.z > 0.0 ? flat : PlanarPoint{flat.y, flat.x};
    }
    return 0x1p-21 * scale * largest;
}
