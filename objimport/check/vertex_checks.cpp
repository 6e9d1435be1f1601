#include "objimport/check/vertex_checks.h"

#include "objimport/check/check_texts.h"

double VertexChecks::UsualBelow(double tolerance)
{
    constexpr int BitsOfSinglePrecision = std::numeric_limits<float>::digits;
    return std::ldexp(tolerance, BitsOfSinglePrecision);
}

void VertexChecks::CheckUnusual(const CheckPlace& place, const GK_3dPoint& stored,
                                const std::array<double, 3>& numbers) const
{
    if (!IsFinite(stored)) {
        place.Report(CheckTexts::VertexNotFinite);
        return;
    }
    const std::array<double, 3> coordinates{stored.x, stored.y, stored.z};
    for (std::size_t i = 0; i < coordinates.size(); ++i) {
        if (std::abs(numbers[i] - coordinates[i]) > m_tolerance) {
            place.Report(CheckTexts::CoordinateChanges, numbers[i], coordinates[i]);
            return;
        }
    }
}

void VertexChecks::CheckTexCoord(const CheckPlace& place, const GK_2fPoint& stored) const
{
    if (!std::isfinite(stored.x) || !std::isfinite(stored.y))
        place.Report(CheckTexts::TexCoordNotFinite);
}

void VertexChecks::CheckNormal(const CheckPlace& place, const GK_3fVector& stored) const
{
    if (!std::isfinite(stored.x) || !std::isfinite(stored.y) || !std::isfinite(stored.z))
        place.Report(CheckTexts::NormalNotFinite);
}

void VertexChecks::Finish(CheckPlace place, std::size_t vertexCount, std::size_t colorCount) const
{
    place.line = 0;
    if (colorCount > 0 && colorCount < vertexCount)
        place.Report(CheckTexts::SomeColors, colorCount, vertexCount);
}
