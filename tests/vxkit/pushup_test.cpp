#include "tests/geokit/nurbs_shapes.h"

#include "host/vxkit/nurbs_surface.h"

#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <string>

namespace {

// The farthest that the pushed-up curve is from the surface at the 2D curve's point, over 1,000
// parameters.
double Deviation(const GK_Curve& curve, const GK_NurbsSurface& surface, const GK_Curve& curve2d,
                 const GK_Interval& interval)
{
    double deviation = 0.0;
    for (int i = 0; i <= 1000; ++i) {
        const double t = interval.ParameterAt(i / 1000.0);
        const GK_3dPoint uv = curve2d.PointAt(t);
        deviation = std::max(deviation, curve.PointAt(t).DistanceTo(surface.PointAt(uv.x, uv.y)));
    }
    return deviation;
}

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

TEST(Pushup, GivesNullForWhatIsNotSound)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto plane = MakePlane(1.0);
    const auto line = MakeLine(0, 0, 1, 1);
    const GK_Interval whole(0, 1);
    for (const GK_Interval part : {GK_Interval(0.5, 0.5), GK_Interval(0, 1.5), GK_Interval(-1, 0),
                                   GK_Interval(0, nan), GK_Interval(nan, 1)})
        EXPECT_EQ(plane->Pushup(line, 1e-3, &part), nullptr);
    const GK_Interval rounded(0, 1.0000005);
    EXPECT_NE(plane->Pushup(line, 1e-3, &rounded), nullptr);

    GK_NurbsCurve knotless = line;
    knotless.knots.Destroy();
    EXPECT_EQ(plane->Pushup(knotless, 1e-3, &whole), nullptr);
    EXPECT_EQ(plane->Pushup(MakeCurve(3, false, 2, {0, 0, 0, 1, 1, 1}, {0, 1}), 1e-3, &whole),
              nullptr);
    const auto bare = MakePlane(1.0);
    bare->SetControlPointCount(0, 3);
    bare->SetControlPointCount(1, 3);
    EXPECT_EQ(bare->Pushup(line, 1e-3, &whole), nullptr);
}

// Whatever it is given: an end, and a bounded number of control points.
TEST(Pushup, EndsOnAwkwardInput)
{
    const auto hill = MakeHill(true);
    const auto line = MakeLine(0.1, 0.1, 3.9, 3.8);
    for (const double tolerance : {0.0, -1.0, 1e-300, std::nan(""), 1e300}) {
        const auto image = hill->Pushup(line, tolerance, nullptr);
        const GK_NurbsCurve* curve = GK_NurbsCurve::Cast(image.get());
        ASSERT_NE(curve, nullptr) << tolerance;
        EXPECT_LE(curve->controlPointCount, 200000);
    }
    EXPECT_EQ(hill->Pushup(MakeLine(0, 0, 1e300, -1e300), 1e-3, nullptr), nullptr);
    hill->Pushup(MakeLine(-1e6, 1e6, 3, 5), 1e-3, nullptr);

    // Far from the origin double precision is coarser than the tolerance.
    const auto far = MakeSurface(false, 2, 2, {1e15, 0, 0, 1e15 + 4, 0, 1, 1e15, 4, 2, 1e15, 4, 9},
                                 {0, 1}, {0, 1});
    EXPECT_NE(far->Pushup(MakeLine(0, 0, 1, 0.7), 1e-6, nullptr), nullptr);

    // A degree that makes a single point slow work.
    std::vector<double> points;
    for (int i = 0; i <= 20000; ++i)
        points.insert(points.end(), {1e-4 * i, 1e-4 * (i % 7)});
    std::vector<double> knots(20000, 0.0);
    knots.insert(knots.end(), 20000, 1.0);
    EXPECT_EQ(hill->Pushup(MakeCurve(2, false, 20001, points, knots), 1e-3, nullptr), nullptr);

    // A zigzag across many knots: more pieces than there may be.
    std::vector<double> strip;
    std::vector<double> many(2000);
    std::iota(many.begin(), many.end(), 0.0);
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 2000; ++i)
            strip.insert(strip.end(), {1.0 * i, 1.0 * j, 1.0 * (i % 3)});
    const auto ribbed = MakeSurface(false, 2, 2, strip, many, {0, 1});
    std::vector<double> zigzag;
    for (int i = 0; i < 1000; ++i)
        zigzag.insert(zigzag.end(), {i % 2 == 0 ? 0.0 : 1999.0, 1e-3 * i});
    many.resize(1000);
    EXPECT_EQ(ribbed->Pushup(MakeCurve(2, false, 2, zigzag, many), 1e-3, nullptr), nullptr);
}

} // namespace
