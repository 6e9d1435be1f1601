#include "nurbs_shapes.h"

#include "host/geokit/curve_proxy.h"
#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <functional>
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

TEST(NurbsCurve, IsClosedExceptForRounding)
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

// A copy may be known to be valid from its original; what is changed is checked again.
TEST(NurbsCurve, IsValidNoticesEveryChange)
{
    const GK_NurbsCurve sound = MakeCurve(2, false, 3, {0, 0, 1, 1, 2, 0, 3, 1}, {0, 0, 1, 2, 2});
    ASSERT_TRUE(sound.IsValid());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double bad[] = {nan, 0};
    const std::function<void(GK_NurbsCurve&)> changes[] = {
        [&](GK_NurbsCurve& curve) { curve.SetCV(2, GK::not_rational, bad); },
        [&](GK_NurbsCurve& curve) { curve.controlPoints[0] = nan; },
        [&](GK_NurbsCurve& curve) { curve.controlPoints = {0, 0, nan, 1, 2, 0, 3, 1}; },
        [&](GK_NurbsCurve& curve) { curve.SetKnot(1, 5); },
        [&](GK_NurbsCurve& curve) { curve.knots.Append(2); },
        [](GK_NurbsCurve& curve) { curve.order = 4; },
        [](GK_NurbsCurve& curve) { curve.controlPointCount = 5; },
        [](GK_NurbsCurve& curve) { curve.dimension = curve.controlPointStride = 3; },
        [](GK_NurbsCurve& curve) {
            curve.rational = true;
            curve.controlPointStride = 3;
        },
    };
    for (const auto& change : changes) {
        GK_NurbsCurve curve = sound;
        EXPECT_TRUE(curve.IsValid());
        change(curve);
        EXPECT_FALSE(curve.IsValid()) << &change - changes;
        EXPECT_TRUE(sound.IsValid());
    }
}

TEST(NurbsCurve, OrdersGoUpToThirtyTwo)
{
    for (const int order : {32, 33, 2000}) {
        std::vector<double> points;
        for (int i = 0; i < order; ++i)
            points.insert(points.end(), {1.0 * i, 0.0});
        std::vector<double> knots(static_cast<std::size_t>(order) - 1, 0.0);
        knots.resize(2 * knots.size(), 1.0);
        const GK_NurbsCurve curve = MakeCurve(2, false, order, points, knots);
        const auto surface =
            MakeSurface(false, 2, order, std::vector<double>(6 * points.size()), {0, 1}, knots);
        std::string reason;
        std::string surfaceReason;
        EXPECT_EQ(curve.IsValid(&reason), order <= 32);
        EXPECT_EQ(surface->IsValid(&surfaceReason), order <= 32);
        if (order > 32) {
            const std::string text = " has order " + std::to_string(order);
            EXPECT_EQ(reason, "the curve" + text + "; at most 32 is supported");
            EXPECT_EQ(surfaceReason, "the surface" + text + " in v; at most 32 is supported");
        } else {
            EXPECT_NEAR(curve.PointAt(0.3).x, 0.3 * 31, 1e-12);
        }
        EXPECT_EQ(curve.PointAt(2.0).y, 0.0); // even what is not sound is harmless
    }
}

TEST(NurbsCurve, ProxiesCutWhatRoundingPutsOutside)
{
    const GK_NurbsCurve line = MakeCurve(2, false, 2, {0, 0, 2, 0}, {1, 3});
    const struct
    {
        GK_Interval asked;
        GK_Interval taken;
        bool valid;
    } cases[] = {
        {{1, 3.0001}, {1, 3}, true},       {{3.0001, 0.9999}, {3, 1}, true},
        {{1.5, 2}, {1.5, 2}, true},        {{1, 3.0003}, {1, 3.0003}, false},
        {{0.9997, 3}, {0.9997, 3}, false},
    };
    for (const auto& [asked, taken, valid] : cases) {
        GK_CurveProxy proxy;
        proxy.SetProxyCurve(&line);
        proxy.SetDomain(asked);
        EXPECT_EQ(proxy.Domain(), taken);
        EXPECT_EQ(proxy.IsValid(), valid);
    }
}

} // namespace
