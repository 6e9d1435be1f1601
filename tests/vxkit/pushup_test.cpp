#include "tests/vxkit/pushed_up.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace {

struct Shapes
{
    std::unique_ptr<VX_NurbsSurface> surfaces[5] = {MakePlane(4.0), MakeHill(false), MakeHill(true),
                                                    MakeSphere(), MakeCylinder()};
    GK_NurbsCurve curves[6] = {
        MakeLine(0.3, 0.2, 3.7, 1.9), // across knots
        MakeLine(3.1, 1.5, 0.2, 1.5), // along a knot, backwards
        MakeLine(0.5, 0.0, 0.5, 2.0),
        MakeCircle2d(1.5, 1.0, 0.9),
        MakeCurve(2, false, 4, {0, 0, 1, 2, 2, -0.5, 3, 1, 2, 2, 3.9, 1.8},
                  {0, 0, 0, 1, 2, 3, 3, 3}),
        MakeCurve(2, false, 2, {0.1, 0.1, 3.9, 0.4, 2, 1.9, 0.1, 0.1}, {0, 1, 2, 3}),
    };
};

TEST(Pushup, StaysWithinTheToleranceAtEachParameter)
{
    const Shapes shapes;
    for (const auto& surface : shapes.surfaces) {
        for (const GK_NurbsCurve& curve : shapes.curves) {
            for (const double tolerance : {0.1, 1e-3, 1e-8}) {
                const GK_Interval domain = curve.Domain();
                const GK_Interval parts[] = {domain,
                                             {domain.ParameterAt(0.37), domain.ParameterAt(0.81)},
                                             {domain.ParameterAt(0.9), domain.ParameterAt(0.05)}};
                for (const GK_Interval& part : parts) {
                    const auto image = surface->Pushup(curve, tolerance, &part);
                    ASSERT_NE(image, nullptr);
                    EXPECT_TRUE(image->IsValid());
                    EXPECT_EQ(image->Domain(), GK_Interval(part.Min(), part.Max()));
                    EXPECT_LE(Deviation(*image, *surface, curve, part), tolerance);
                }
            }
        }
    }
}

// Numbers that look random and are the same everywhere.
class Numbers
{
public:
    double Between(double low, double high)
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return low + (high - low) * static_cast<double>(m_state >> 11U) / 9007199254740992.0;
    }
    int Integer(int low, int high) { return low + static_cast<int>(Between(0, high - low + 1)); }

    // Returns clamped knots, with inner ones that may be double.
    std::vector<double> Knots(int order, int count)
    {
        std::vector<double> knots(static_cast<std::size_t>(order) - 1, 0.0);
        double last = 0.0;
        for (int i = order; i < count; ++i) {
            const bool repeat = order > 3 && last > 0.0 && i % 3 == 0;
            last += repeat ? 0.0 : Between(0.3, 1.0);
            knots.push_back(last);
        }
        knots.resize(knots.size() + static_cast<std::size_t>(order) - 1, last + 1.0);
        return knots;
    }

private:
    std::uint64_t m_state = 1;
};

TEST(Pushup, StaysWithinTheToleranceForRandomShapes)
{
    Numbers random;
    for (int round = 0; round < 300; ++round) {
        const bool rational = round % 2 == 0;
        const int orderU = random.Integer(2, 6);
        const int orderV = random.Integer(2, 6);
        const std::vector<double> knotsU = random.Knots(orderU, orderU + random.Integer(0, 5));
        const std::vector<double> knotsV = random.Knots(orderV, orderV + random.Integer(0, 5));
        const int countU = static_cast<int>(knotsU.size()) - orderU + 2;
        const int countV = static_cast<int>(knotsV.size()) - orderV + 2;
        const double size = std::pow(10.0, random.Between(-3.0, 4.0));
        const double swing = random.Between(0.0, 0.6);
        std::vector<double> net;
        for (int i = 0; i < countU * countV; ++i) {
            const double places[] = {1.0 * (i % countU), 1.0 * (i / countU), 0.0};
            for (const double place : places)
                net.push_back(size * (place + random.Between(-swing, swing)));
            if (rational)
                net.push_back(random.Between(0.3, 3.0));
        }
        const auto surface = MakeSurface(rational, orderU, orderV, net, knotsU, knotsV);
        const int order = random.Integer(2, 8);
        const std::vector<double> knots = random.Knots(order, order + random.Integer(0, 12));
        std::vector<double> points;
        for (std::size_t i = 0; i + static_cast<std::size_t>(order) < knots.size() + 2; ++i)
            points.insert(points.end(),
                          {random.Between(0.0, knotsU.back()), random.Between(0.0, knotsV.back()),
                           random.Between(0.3, 3.0)});
        const GK_NurbsCurve curve = MakeCurve(2, true, order, points, knots);
        ASSERT_TRUE(surface->IsValid() && curve.IsValid());
        const GK_Interval part(random.Between(0.0, 0.2), random.Between(0.6, 1.0));
        const double tolerance = std::pow(10.0, random.Between(-6.0, -1.0));
        const auto image = surface->Pushup(curve, tolerance, &part);
        ASSERT_NE(image, nullptr) << round;
        EXPECT_LE(Deviation(*image, *surface, curve, part), std::max(tolerance, 1e-13 * size));
    }
}

TEST(Pushup, KeepsWhatIsExact)
{
    const auto square = MakePlane(4.0)->Pushup(
        MakeCurve(2, false, 2, {0, 0, 4, 0, 4, 4}, {0, 1, 2}), 1e-3, nullptr);
    const GK_NurbsCurve* corner = GK_NurbsCurve::Cast(square.get());
    ASSERT_NE(corner, nullptr);
    EXPECT_EQ(corner->order, 2);
    EXPECT_EQ(corner->controlPointCount, 3);

    // A parallel of the cylinder is a rational arc, not an approximation.
    const auto cylinder = MakeCylinder();
    const auto line = MakeLine(3.5, 1.25, 0.25, 1.25);
    const auto arc = cylinder->Pushup(line, 1e-3, nullptr);
    ASSERT_NE(arc, nullptr);
    EXPECT_LT(Deviation(*arc, *cylinder, line, {0, 1}), 1e-14);
    EXPECT_LE(GK_NurbsCurve::Cast(arc.get())->controlPointCount, 9);
}

// Where the tolerance is coarse for the model, the edge still has the shape of the hole.
TEST(Pushup, KeepsTheShapeOfSmallModels)
{
    for (const double size : {1e-4, 0.01, 1.0, 1e5}) {
        const auto plane = MakePlane(size);
        for (const double tolerance : {1e-6, 1e-3, 1.0}) {
            for (const double radius : {0.4, 0.05}) {
                const GK_NurbsCurve circle = MakeCircle2d(size / 2, size / 2, radius * size);
                const auto image = plane->Pushup(circle, tolerance, nullptr);
                ASSERT_NE(image, nullptr);
                const double allowed = std::min(tolerance, 1e-4 * std::sqrt(8.0) * radius * size);
                EXPECT_LE(Deviation(*image, *plane, circle, {0, 4}), allowed);
                EXPECT_LE(AsNurbs(image).controlPointCount, 4000);
            }
        }
    }
}

TEST(Pushup, GoesRoundClosedSurfaces)
{
    const auto cylinder = MakeCylinder(); // u over [0, 4], v over [0, 2]
    const auto torus = Revolve(MakeCircle2d(3.0, 0.0, 1.0));
    const auto hill = MakeHill(false);
    const struct
    {
        const VX_NurbsSurface& surface;
        GK_NurbsCurve curve;
        double periodU;
        double periodV;
    } cases[] = {
        {*cylinder, MakeCircle2d(0.0, 1.0, 0.4), 4, 0},
        {*cylinder, MakeCircle2d(4.1, 1.0, 0.4), 4, 0},
        {*cylinder, MakeCircle2d(-8.0, 1.0, 0.4), 4, 0},
        {*cylinder, MakeLine(3.5, 0.5, 5.0, 0.5), 4, 0},
        {*cylinder, MakeLine(5.0, 0.5, 5.0, 1.5), 4, 0},
        {*cylinder, MakeLine(-4.0, 0.0, 8.0, 2.0), 4, 0},
        {*torus, MakeCircle2d(4.0, 4.0, 0.7), 4, 4},
        {*torus, MakeCircle2d(0.0, 2.0, 0.7), 4, 4},
        {*torus, MakeLine(0.0, -3.0, 4.0, 9.0), 4, 4},
        {*hill, MakeLine(3.0, 1.0, 4.1, 1.3), 0, 0}, // open: the last span continues
    };
    const auto wrapped = [](double t, double period) {
        return period == 0.0 ? t : t - period * std::floor(t / period);
    };
    for (const auto& [surface, curve, periodU, periodV] : cases) {
        for (const double tolerance : {1e-3, 1e-7}) {
            const auto image = surface.Pushup(curve, tolerance, nullptr);
            ASSERT_NE(image, nullptr);
            double deviation = 0.0;
            for (int i = 0; i <= 1000; ++i) {
                const double t = curve.Domain().ParameterAt(i / 1000.0);
                const GK_3dPoint uv = curve.PointAt(t);
                deviation =
                    std::max(deviation, image->PointAt(t).DistanceTo(surface.PointAt(
                                            wrapped(uv.x, periodU), wrapped(uv.y, periodV))));
            }
            EXPECT_LE(deviation, tolerance) << curve.PointAtStart().x << " " << tolerance;
            EXPECT_LE(AsNurbs(image).controlPointCount, 2000);
        }
    }
}

// Where the curve touches or follows knot lines, or crosses one twice within a span.
TEST(Pushup, FindsEveryCrossingOfKnots)
{
    const auto hill = MakeHill(false); // a kink along u = 2
    std::vector<GK_NurbsCurve> curves;
    for (const double reach : {1.9999, 2.0, 2.0000001, 2.0001, 2.01, 2.3})
        curves.push_back(MakeCurve(2, false, 3, {1, 1, 2 * reach - 1, 2, 1, 3}, {0, 0, 1, 1}));
    curves.push_back(MakeLine(2, 0.2, 2, 3.8));
    curves.push_back(MakeLine(2, 0.2, 2.0000001, 3.8));
    std::vector<double> wave;
    for (int i = 0; i < 12; ++i)
        wave.insert(wave.end(), {i % 2 == 0 ? 0.0 : 4.0, i / 3.0});
    curves.push_back(MakeCurve(2, false, 12, wave,
                               {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    for (const GK_NurbsCurve& curve : curves) {
        const auto image = hill->Pushup(curve, 1e-7, nullptr);
        ASSERT_NE(image, nullptr);
        EXPECT_LE(Deviation(*image, *hill, curve, curve.Domain()), 1e-7);
        EXPECT_LE(AsNurbs(image).controlPointCount, 3000);
    }
}

} // namespace
