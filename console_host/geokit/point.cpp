#include "host/geokit/point.h"

#include "host/geokit/xform.h"

#include <cmath>

double GK_3dVector::Length() const
{
    // Between these the squares lose nothing, and hypot takes several times as long.
    constexpr double Smallest = 1e-280;
    constexpr double Largest = 1e280;
    const double square = x * x + y * y + z * z;
    return square > Smallest && square < Largest ? std::sqrt(square) : std::hypot(x, y, z);
}

double GK_3dPoint::DistanceTo(const GK_3dPoint& other) const
{
    return (other - *this).Length();
}

namespace {

double SquaredLength(const GK_3fVector& vector)
{
    const double x = vector.x;
    const double y = vector.y;
    const double z = vector.z;
    return x * x + y * y + z * z;
}

} // namespace

bool GK_3fVector::IsUnitVector() const
{
    // Each coordinate is off by half a unit of 2^-24 at most, so the square by a few of them.
    constexpr double Tolerance = 4.0 / (1 << 24);
    return std::abs(SquaredLength(*this) - 1.0) <= Tolerance;
}

bool GK_3fVector::Unitize()
{
    const double squared = SquaredLength(*this);
    if (!(squared > 0.0) || !std::isfinite(squared))
        return false;
    const double scale = 1.0 / std::sqrt(squared);
    x = static_cast<float>(x * scale);
    y = static_cast<float>(y * scale);
    z = static_cast<float>(z * scale);
    return true;
}

GK_3dPoint GK_Xform::operator*(const GK_3dPoint& point) const
{
    const auto row = [&](int i) {
        return m[i][0] * point.x + m[i][1] * point.y + m[i][2] * point.z + m[i][3];
    };
    const double w = row(3);
    if (w == 1.0 || w == 0.0)
        return {row(0), row(1), row(2)};
    return {row(0) / w, row(1) / w, row(2) / w};
}

GK_3dVector GK_Xform::operator*(const GK_3dVector& vector) const
{
    const auto row = [&](int i) {
        return m[i][0] * vector.x + m[i][1] * vector.y + m[i][2] * vector.z;
    };
    return {row(0), row(1), row(2)};
}
