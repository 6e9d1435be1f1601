#include "console_host/geokit/bspline_basis.h"
#include "nurbs_shapes.h"

#include "host/geokit/nurbs_curve.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double Relative = 1e-12;

TEST(NurbsCurve, CircleStaysAtTheRadiusAndTurnsAtRightAngles)
{
    const GK_NurbsCurve circle = MakeCircle2d(3.0, -2.0, 5.0);
    ASSERT_TRUE(circle.IsValid());
    EXPECT_TRUE(circle.IsClosed());
    for (int i = 0; i <= 1000; ++i) {
        const auto [point, derivative] = circle.Evaluate(4.0 * i / 1000);
        const GK_3dVector arm = point - GK_3dPoint{3.0, -2.0, 0.0};
        EXPECT_NEAR(arm.Length(), 5.0, 5.0 * Relative);
        EXPECT_NEAR(GK_DotProduct(arm, derivative), 0.0, 1e-11);
    }
}

TEST(NurbsCurve, BezierCurveAgreesWithBernsteinPolynomials)
{
    for (const int degree : {1, 2, 3, 7, 20}) {
        std::vector<double> points;
        for (int i = 0; i <= degree; ++i)
            points.insert(points.end(), {1.0 + i, std::sin(i), std::cos(2.0 * i)});
        std::vector<double> knots(static_cast<std::size_t>(degree), 2.0);
        knots.insert(knots.end(), static_cast<std::size_t>(degree), 5.0);
        const GK_NurbsCurve curve = MakeCurve(3, false, degree + 1, points, knots);
        for (int k = 0; k <= 50; ++k) {
            const double s = k / 50.0;
            double y = 0.0;
            double binomial = 1.0;
            for (int i = 0; i <= degree; ++i) {
                y += binomial * std::pow(s, i) * std::pow(1.0 - s, degree - i) * std::sin(i);
                binomial = binomial * (degree - i) / (i + 1);
            }
            const GK_3dPoint point = curve.PointAt(2.0 + 3.0 * s);
            EXPECT_NEAR(point.y, y, Relative) << degree << " at " << s;
            EXPECT_NEAR(point.x, 1.0 + degree * s, (1.0 + degree) * Relative);
        }
    }
}

TEST(NurbsCurve, BasisFunctionsSumToOneAndTheirDerivativesToNothing)
{
    const std::vector<double> knots{-1, -0.5, 0, 0, 1, 1, 1, 1.5, 4, 5, 5, 5, 5};
    const int order = 5;
    const int count = static_cast<int>(knots.size()) - order + 2;
    for (int i = 0; i <= 600; ++i) {
        const double t = -0.2 + 0.01 * i; // a little past both ends
        const int span = FindSpan(knots, order, count, t);
        const BasisFunctions basis(knots.data() + span, order - 1, t);
        double sum = 0.0;
        double slope = 0.0;
        for (int k = 0; k < order; ++k) {
            sum += basis.Value(k);
            slope += basis.Derivative(k);
        }
        EXPECT_NEAR(sum, 1.0, Relative) << t;
        EXPECT_NEAR(slope, 0.0, 1e-10) << t;
    }
}

TEST(NurbsCurve, DerivativeAgreesWithDifferences)
{
    const GK_NurbsCurve curve =
        MakeCurve(3, true, 4, {0, 0, 0, 1, 1, 2, 0, 2, 3, 1, 1, 0.5, 4, 0, 2, 1, 5, 5, 5, 3},
                  {0, 0, 0, 0.7, 2, 2, 2});
    ASSERT_TRUE(curve.IsValid());
    constexpr double Step = 1e-5;
    for (int i = 1; i < 100; ++i) {
        const double t = 0.02 * i + 0.003;
        if (t + Step > 2.0)
            break;
        const GK_3dVector difference =
            (0.5 / Step) * (curve.PointAt(t + Step) - curve.PointAt(t - Step));
        const GK_3dVector derivative = curve.Evaluate(t).derivative;
        EXPECT_NEAR(derivative.x, difference.x, 1e-6);
        EXPECT_NEAR(derivative.y, difference.y, 1e-6);
        EXPECT_NEAR(derivative.z, difference.z, 1e-6);
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
    const GK_NurbsCurve circle = MakeCircle2d(2.0, 0.0, 1.0);
    EXPECT_TRUE(circle.IsClosed());
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
