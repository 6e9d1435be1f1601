#include "console_host/vxkit/curve_restriction.h"

#include "console_host/geokit/bspline_basis.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

namespace {

// Returns the blossom of one span's polynomial at `degree` arguments: de Boor's recursion with
// another argument in each step. `points` holds the span's control points and is overwritten.
WeightedSum Blossom(std::span<WeightedSum> points, const double* spanKnots, int degree,
                    const double* arguments)
{
    for (int r = 1; r <= degree; ++r) {
        for (int j = degree; j >= r; --j) {
            const double low = spanKnots[j - 1];
            const double high = spanKnots[j + degree - r];
            const double share = (arguments[r - 1] - low) / (high - low);
            WeightedSum mixed;
            mixed.Add(1.0 - share, points[static_cast<std::size_t>(j) - 1]);
            mixed.Add(share, points[static_cast<std::size_t>(j)]);
            points[static_cast<std::size_t>(j)] = mixed;
        }
    }
    return points.back();
}

GK_SimpleArray<double> RestrictedKnots(const GK_NurbsCurve& curve, double t0, double t1)
{
    GK_SimpleArray<double> knots;
    for (int i = 0; i < curve.Degree(); ++i)
        knots.Append(t0);
    const auto* inside = std::upper_bound(curve.knots.begin(), curve.knots.end(), t0);
    for (; inside != curve.knots.end() && *inside < t1; ++inside)
        knots.Append(*inside);
    for (int i = 0; i < curve.Degree(); ++i)
        knots.Append(t1);
    return knots;
}

// Returns a parameter within a span that control point `index` of a clamped curve influences.
double InsideSupport(const GK_SimpleArray<double>& knots, int degree, int index)
{
    int first = index > degree ? index - 1 : degree - 1;
    while (knots[first] == knots[first + 1])
        ++first;
    return 0.5 * (knots[first] + knots[first + 1]);
}

} // namespace

std::unique_ptr<GK_NurbsCurve> RestrictCurve(const GK_NurbsCurve& curve, double t0, double t1)
{
    const int degree = curve.Degree();
    const std::ptrdiff_t stride = curve.controlPointStride;
    GK_SimpleArray<double> knots = RestrictedKnots(curve, t0, t1);
    const std::span<const double> oldKnots(curve.knots.begin(), curve.knots.end());
    auto part = std::make_unique<GK_NurbsCurve>();
    part->Create(curve.dimension, curve.rational, curve.order, knots.Count() - degree + 1);
    std::array<WeightedSum, GK_MOST_ORDER> buffer;
    const std::span<WeightedSum> points(buffer.data(), static_cast<std::size_t>(curve.order));
    for (int i = 0; i < part->controlPointCount; ++i) {
        const int span = FindSpan(oldKnots, curve.order, curve.controlPointCount,
                                  InsideSupport(knots, degree, i));
        for (int j = 0; j <= degree; ++j) {
            WeightedSum& point = points[static_cast<std::size_t>(j)] = {};
            point.Add(1.0, curve.controlPoints.Array() + (span + j) * stride, curve.dimension,
                      curve.rational);
        }
        const WeightedSum blossom =
            Blossom(points, curve.knots.Array() + span, degree, knots.Array() + i);
        const GK_3dPoint place = curve.rational ? blossom.Point() : GK_origin + blossom.sum;
        double values[4] = {place.x, place.y, place.z, 0.0};
        values[curve.dimension] = blossom.weight;
        part->SetCV(i, GK::euclidean_rational, values);
    }
    part->knots = std::move(knots);
    return part;
}
