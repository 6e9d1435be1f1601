#include "console_host/vxkit/planar_polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

struct Vector
{
    double x;
    double y;
    double z;
};

Vector Cross(const Vector& a, const Vector& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

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

    /// The sum, rounded; its sign is exact.
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

/// A power of two that brings the largest coordinate near 1, so that products of coordinates
/// neither overflow nor vanish.
double ScaleFor(double largest)
{
    int exponent = 0;
    std::frexp(largest, &exponent);
    return std::ldexp(1.0, std::clamp(-exponent, -1000, 1000));
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
    const std::size_t count = projected.size();
    const auto corner = [points, stride](std::size_t i) {
        const double* const p = points + i * static_cast<std::size_t>(stride);
        return Vector{p[0], p[1], p[2]};
    };
    double largest = 0.0;
    double notFinite = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const Vector p = corner(i);
        notFinite += 0.0 * p.x + 0.0 * p.y + 0.0 * p.z;
        largest = std::max({largest, std::abs(p.x), std::abs(p.y), std::abs(p.z)});
    }
    if (notFinite != 0.0)
        return -1.0;

    const double scale = ScaleFor(largest);
    const Vector origin = corner(0);
    const auto offset = [&](std::size_t i) {
        const Vector p = corner(i);
        return Vector{scale * p.x - scale * origin.x, scale * p.y - scale * origin.y,
                      scale * p.z - scale * origin.z};
    };
    Vector normal{0.0, 0.0, 0.0};
    Vector previous = offset(1);
    for (std::size_t i = 2; i < count; ++i) {
        const Vector current = offset(i);
        const Vector area = Cross(previous, current);
        normal = {normal.x + area.x, normal.y + area.y, normal.z + area.z};
        previous = current;
    }

    // The coordinate along which the normal is longest is dropped, after each corner has moved
    // along the normal until that coordinate is 0: what lies exactly in a coordinate plane stays
    // exact.
    const double x = std::abs(normal.x);
    const double y = std::abs(normal.y);
    const double z = std::abs(normal.z);
    if (!(x > 0.0 || y > 0.0 || z > 0.0))
        return -1.0;
    const auto turned = [&](const Vector& v) {
        if (z >= x && z >= y)
            return v;
        return x >= y ? Vector{v.y, v.z, v.x} : Vector{v.z, v.x, v.y};
    };
    const Vector n = turned(normal);
    const double slopeX = n.x / n.z;
    const double slopeY = n.y / n.z;
    for (std::size_t i = 0; i < count; ++i) {
        const Vector p = turned(offset(i));
        const PlanarPoint flat{p.x - slopeX * p.z, p.y - slopeY * p.z};
        projected[i] = n.z > 0.0 ? flat : PlanarPoint{flat.y, flat.x};
    }
    return 0x1p-21 * scale * largest;
}
