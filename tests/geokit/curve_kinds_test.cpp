#include "brep_shapes.h"
#include "console_host/geokit/compact_curves.h"

namespace {

// Expects a curve and the same B-spline at one place at every parameter, past the ends too.
void ExpectSame(const GK_Curve& curve, const GK_NurbsCurve& bspline)
{
    ASSERT_TRUE(curve.IsValid());
    ASSERT_TRUE(bspline.IsValid());
    EXPECT_EQ(curve.Dimension(), bspline.Dimension());
    EXPECT_EQ(curve.Degree(), bspline.Degree());
    EXPECT_EQ(curve.Domain(), bspline.Domain());
    EXPECT_LT(curve.PointAtStart().DistanceTo(bspline.PointAtStart()), 1e-15);
    EXPECT_LT(curve.PointAtEnd().DistanceTo(bspline.PointAtEnd()), 1e-15);
    for (int i = -1; i <= 20; ++i) {
        const double t = curve.Domain().ParameterAt((i + 0.3) / 20.0); // at no knot
        const GK_CurvePoint own = curve.Evaluate(t);
        const GK_CurvePoint other = bspline.Evaluate(t);
        EXPECT_LT(own.point.DistanceTo(other.point), 1e-12) << t;
        EXPECT_LT(Distance(own.derivative, other.derivative), 1e-11) << t;
    }
}

std::vector<std::unique_ptr<GK_Curve>> Curves()
{
    std::vector<std::unique_ptr<GK_Curve>> curves;
    curves.push_back(std::make_unique<LineCurve>(GK_3dPoint{0.1, 0.7, 9.0},
                                                 GK_3dPoint{3.3, -2.0, 0.0}, GK_Interval(2, 2.3)));
    for (const bool rational : {false, true}) {
        const std::shared_ptr<GK_Surface> hill = MakeHill(rational);
        for (const int direction : {0, 1})
            for (const double share : {0.0, 0.3, 1.0})
                curves.push_back(std::make_unique<IsoCurve>(
                    hill, direction, hill->Domain(1 - direction).ParameterAt(share)));
    }
    return curves; // which keep the surfaces
}

TEST(CurveKinds, AreTheirBspline)
{
    for (const std::unique_ptr<GK_Curve>& curve : Curves()) {
        ExpectSame(*curve, curve->AsBspline());
        ExpectSame(*curve->Duplicate(), curve->AsBspline());
    }
}

TEST(CurveKinds, AreAsSoundAsTheirBspline)
{
    const GK_3dPoint origin{0, 0, 0};
    EXPECT_FALSE(LineCurve(origin, {1, 1, 0}, GK_Interval(2, 2)).IsValid());
    EXPECT_FALSE(LineCurve(origin, {1, GK_UNSET_VALUE, 0}, GK_Interval(0, 1)).IsValid());
    const IsoCurve none(std::make_shared<GK_NurbsSurface>(), 0, 0.0);
    EXPECT_FALSE(none.IsValid());
    EXPECT_FALSE(none.AsBspline().IsValid());
    EXPECT_EQ(GK_CurveProxy().AsBspline().controlPointCount, 0);
}

// A part that remains when its surface is destroyed: another face's loop runs along its edge.
TEST(CurveKinds, EdgesKeepTheSurfaceThatTheyLieOn)
{
    const auto brep = MakeBrep(MakeHill(true));
    AddNaturalLoop(*brep);
    const GK_3dPoint start = brep->Edge(0).PointAtStart();
    brep->Face(0).surfaceIndex = brep->AddSurface(MakeHill(false));
    brep->RemoveUnused();
    EXPECT_EQ(brep->SurfaceCount(), 1);
    EXPECT_EQ(brep->Edge(0).PointAtStart(), start);
    EXPECT_EQ(brep->Edge(0).AsBspline().PointAtStart(), start);
}

} // namespace
