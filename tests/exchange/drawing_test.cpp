// Curves as lines, and the edges of meshes.

#include "objimport/exchange/curve_line.h"
#include "objimport/exchange/mesh_edges.h"
#include "tests/exchange/document_builder.h"
#include "tests/geokit/nurbs_shapes.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

/// Returns a circle about the origin in the plane of x and y, rational, of degree 2.
GK_NurbsCurve Circle(double radius)
{
    GK_NurbsCurve flat = MakeCircle2d(0, 0, radius);
    GK_NurbsCurve circle;
    circle.Create(3, true, flat.order, flat.controlPointCount);
    for (int i = 0; i < flat.controlPointCount; ++i) {
        const GK_3dPoint at = flat.ControlPoint(i);
        const double values[] = {at.x, at.y, 0.0, flat.Weight(i)};
        circle.SetCV(i, GK::euclidean_rational, values);
    }
    circle.knots = flat.knots;
    return circle;
}

/// Returns the distance between a parameter's point and the line, at the nearest of its segments.
double DistanceFrom(const std::vector<GK_3dPoint>& line, const GK_3dPoint& point)
{
    double least = point.DistanceTo(line.front());
    for (std::size_t i = 1; i < line.size(); ++i) {
        const GK_3dVector along = line[i] - line[i - 1];
        const double square = GK_DotProduct(along, along);
        const double t = square > 0 ? GK_DotProduct(point - line[i - 1], along) / square : 0.0;
        least = std::min(least, point.DistanceTo(line[i - 1] + std::clamp(t, 0.0, 1.0) * along));
    }
    return least;
}

void ExpectNear(const GK_NurbsCurve& curve, const CurveLine& line, double tolerance)
{
    constexpr int Samples = 2000;
    const GK_Interval domain = curve.Domain();
    for (int i = 0; i <= Samples; ++i) {
        const GK_3dPoint point =
            curve.PointAt(domain.ParameterAt(static_cast<double>(i) / Samples));
        ASSERT_LE(DistanceFrom(line.points, point), tolerance) << i;
    }
    EXPECT_EQ(line.points.front(), curve.PointAtStart());
    EXPECT_EQ(line.points.back(), curve.PointAtEnd());
}

TEST(CurveLine, StaysWithinTheToleranceAndAThousandthOfTheSize)
{
    for (const double radius : {1e-6, 1.0, 1e6})
        for (const double tolerance : {1e-3, 1e-5, 100.0}) {
            const CurveLine line = LineOfCurve(Circle(radius), tolerance);
            const double allowed = std::max(std::min(tolerance, 3e-3 * radius), 3e-9 * radius);
            // A chord lies deepest in the middle.
            double deepest = 0.0;
            for (std::size_t i = 1; i < line.points.size(); ++i) {
                const GK_3dVector sum =
                    (line.points[i - 1] - GK_origin) + (line.points[i] - GK_origin);
                deepest = std::max(deepest, radius - sum.Length() / 2.0);
            }
            EXPECT_LE(deepest, allowed * 1.001) << radius << " within " << tolerance;
            EXPECT_FALSE(line.isCoarse);
            // Twice as many as the depth takes, and a power of two as well.
            EXPECT_LT(static_cast<double>(line.points.size()),
                      4.0 * 3.15 / std::sqrt(2.0 * allowed / radius) + 16.0);
        }
}

TEST(CurveLine, FollowsACurveThatTurnsBothWays)
{
    // Its middle lies on the chord.
    const GK_NurbsCurve s =
        MakeCurve(3, false, 4, {0, 0, 0, 1, 3, 0, 2, -3, 0, 3, 0, 0}, {0, 0, 0, 1, 1, 1});
    const CurveLine line = LineOfCurve(s, 0.001);
    ExpectNear(s, line, 0.001);
    EXPECT_LT(line.points.size(), 200U);
}

TEST(CurveLine, OfDegreeOneIsTheCurveItself)
{
    const GK_NurbsCurve polyline =
        MakeCurve(3, false, 2, {0, 0, 0, 1, 0, 0, 1, 1, 0, 1, 1, 5}, {0, 1, 2, 3});
    EXPECT_THAT(LineOfCurve(polyline, 0.1).points,
                ElementsAre(GK_3dPoint{0, 0, 0}, GK_3dPoint{1, 0, 0}, GK_3dPoint{1, 1, 0},
                            GK_3dPoint{1, 1, 5}));
}

TEST(CurveLine, IsCoarseRatherThanEndless)
{
    // Wide turns, so many that the tolerance would take millions of points.
    constexpr int Count = 600;
    std::vector<double> points;
    std::vector<double> knots;
    for (int i = 0; i < Count; ++i)
        points.insert(points.end(), {1e9 * std::cos(2.5 * i), 1e9 * std::sin(2.5 * i), 0.0});
    for (int i = -2; i < Count; ++i)
        knots.push_back(std::clamp(i, 0, Count - 3));
    const GK_NurbsCurve curve = MakeCurve(3, false, 4, points, knots);
    ASSERT_TRUE(curve.IsValid());
    const CurveLine line = LineOfCurve(curve, 1e-9);
    EXPECT_TRUE(line.isCoarse);
    EXPECT_LT(line.points.size(), 200'000U);
    EXPECT_EQ(line.points.back(), curve.PointAtEnd());
}

TEST(MeshEdges, AreTheSidesOfFacesAndPolygons)
{
    // A triangle beside a pentagon of three triangles, which share a side.
    auto mesh = MakeMesh({{0, 0, 0}, {2, 0, 0}, {3, 1, 0}, {1, 2, 0}, {-1, 1, 0}, {1, -1, 0}},
                         {{{0, 1, 2, 2}}, {{0, 2, 3, 3}}, {{0, 3, 4, 4}}, {{0, 5, 1, 1}}});
    const GK_MeshNgon polygon = mesh->ModifyNgonList()->AddNgon(5);
    for (int i = 0; i < 5; ++i)
        polygon.vi[static_cast<std::size_t>(i)] = i;
    for (int i = 0; i < 3; ++i)
        polygon.fi[static_cast<std::size_t>(i)] = i;
    using Edge = std::array<int, 2>;
    EXPECT_THAT(EdgesOfMesh(*mesh), ElementsAre(Edge{0, 1}, Edge{0, 4}, Edge{0, 5}, Edge{1, 2},
                                                Edge{1, 5}, Edge{2, 3}, Edge{3, 4}));
}

} // namespace
