#include "nurbs_shapes.h"

#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>

namespace {

TEST(NurbsCurve, CircleStaysAtTheRadiusAndTurnsAtRightAngles)
{
    const GK_NurbsCurve circle = MakeCircle2d(3.0, -2.0, 5.0);
    ASSERT_TRUE(circle.IsValid());
    EXPECT_TRUE(circle.IsClosed());
    for (int i = 0; i <= 1000; ++i) {
        const auto [point, derivative] = circle.Evaluate(4.0 * i / 1000);
        const GK_3dVector arm = point - GK_3dPoint{3.0, -2.0, 0.0};
        EXPECT_NEAR(arm.Length(), 5.0, 5e-12);
        EXPECT_NEAR(GK_DotProduct(arm, derivative), 0.0, 1e-11);
    }
}

// Control points at the means of their knots make a straight line, passed at an even speed. When
// the last one is lifted, only the last span follows, as a power of its parameter.
TEST(NurbsCurve, FollowsItsControlPoints)
{
    const std::vector<double> inner{2.5, 3, 3, 4.75};
    for (const int degree : {1, 2, 3, 7, 20}) {
        std::vector<double> knots{0.5};
        knots.resize(static_cast<std::size_t>(degree), 2.0);
        knots.insert(knots.end(), inner.begin() + (degree == 1 ? 2 : 0), inner.end());
        knots.insert(knots.end(), static_cast<std::size_t>(degree), 5.0);
        std::vector<double> points;
        for (auto first = knots.begin(); knots.end() - first >= degree; ++first)
            points.insert(points.end(),
                          {std::accumulate(first, first + degree, 0.0) / degree, 7, 0});
        points.back() = 1.0;
        const GK_NurbsCurve curve = MakeCurve(3, false, degree + 1, points, knots);
        for (int i = 0; i < 315; ++i) {
            const double t = 1.9 + 0.01 * i; // a little past both ends
            const auto [point, derivative] = curve.Evaluate(t);
            const double lift = std::pow(std::max(0.0, (t - 4.75) / 0.25), degree);
            EXPECT_LT(point.DistanceTo({t, 7, lift}), 1e-10) << degree << " at " << t;
            EXPECT_NEAR(derivative.x, 1.0, 1e-9) << degree << " at " << t;
            EXPECT_NEAR(derivative.y, 0.0, 1e-9) << degree << " at " << t;
        }
    }
}

TEST(NurbsCurve, DerivativeAgreesWithDifferences)
{
    const GK_NurbsCurve curve =
        MakeCurve(3, true, 4, {0, 0, 0, 1, 1, 2, 0, 2, 3, 1, 1, 0.5, 4, 0, 2, 1, 5, 5, 5, 3},
                  {0, 0, 0, 0.7, 2, 2, 2});
    constexpr double Step = 1e-5;
    for (int i = 0; i < 99; ++i) {
        const double t = 0.003 + 0.02 * i;
        const GK_3dVector step = curve.PointAt(t + Step) - curve.PointAt(t - Step);
        EXPECT_LT(Distance(curve.Evaluate(t).derivative, 0.5 / Step * step), 1e-6) << t;
    }
}

TEST(NurbsCurve, ReversingAndMappingTheDomainKeepTheShape)
{
    const GK_NurbsCurve curve =
        MakeCurve(2, true, 3, {0, 0, 1, 1, 3, 2, 4, 1, 1, 5, 5, 0.5}, {1, 1, 2.5, 4, 4});
    GK_NurbsCurve turned = curve;
    turned.Reverse();
    EXPECT_TRUE(turned.SetDomain(-10.0, 20.0));
    EXPECT_EQ(turned.Domain(), GK_Interval(-10.0, 20.0));
    EXPECT_FALSE(turned.SetDomain(3.0, 3.0));
    for (int i = 0; i <= 30; ++i) {
        const double t = 1.0 + 0.1 * i;
        EXPECT_LT(curve.PointAt(t).DistanceTo(turned.PointAt(20.0 - 10.0 * (t - 1.0))), 1e-12);
    }
}

TEST(NurbsCurve, IsClosedButForRounding)
{
    const auto endingAt = [](double x) {
        return MakeCurve(2, false, 2, {3, 0, 4, 1, x, 0}, {0, 1, 2}).IsClosed();
    };
    EXPECT_TRUE(endingAt(3.0 + 1e-15));
    EXPECT_FALSE(endingAt(3.0 + 1e-9));
}

TEST(NurbsCurve, SaysWhatIsUnsound)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> points{0, 0, 1, 1, 1, 1, 2, 0, 1, 3, 1, 1};
    const std::vector<double> knots{0, 0, 1, 2, 2};
    const auto withPoint = [&](std::size_t i, double value) {
        std::vector<double> changed = points;
        changed[i] = value;
        return changed;
    };
    struct Case
    {
        int order;
        std::vector<double> points;
        std::vector<double> knots;
        const char* reason; // empty: sound
    };
    const Case cases[] = {
        {3, points, knots, ""},
        {3, points, {-1, 0, 1, 2, 3}, ""}, // not clamped
        {3, points, {0, 0, 1, 1}, "the curve has 4 knots where 5 are needed"},
        {3, points, {0, 0, 0, 2, 2}, "the curve's knot 0 stands more than 2 times, the degree"},
        {2, points, {1, 1, 1, 1}, "the curve's domain is empty"},
        {3, withPoint(4, infinity), knots, "the curve's control point 2 is not finite"},
        {3, withPoint(8, nan), knots, "the curve's control point 3 is not finite"},
        {3, withPoint(11, 0), knots,
         "the curve's control point 4 has weight 0; it must be positive"},
    };
    for (const Case& c : cases) {
        const GK_NurbsCurve curve = MakeCurve(2, true, c.order, c.points, c.knots);
        std::string reason;
        EXPECT_EQ(curve.IsValid(&reason), *c.reason == '\0') << c.reason;
        EXPECT_EQ(reason, c.reason);
    }
}

} // namespace
