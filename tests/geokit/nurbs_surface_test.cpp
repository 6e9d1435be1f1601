#include "nurbs_shapes.h"

#include "host/geokit/nurbs_surface.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(NurbsSurface, SphereStaysAtTheRadius)
{
    const auto sphere = MakeSphere();
    for (int i = 0; i <= 80; ++i) {
        for (int j = 0; j <= 40; ++j) {
            const GK_3dPoint point = sphere->PointAt(0.05 * i, 0.05 * j);
            EXPECT_NEAR(point.DistanceTo(GK_origin), 1.0, 1e-12);
        }
    }
}

TEST(NurbsSurface, DerivativesAgreeWithDifferences)
{
    constexpr double Step = 1e-5;
    for (const bool rational : {false, true}) {
        const auto hill = MakeHill(rational);
        for (int i = 0; i < 400; ++i) {
            const double u = 0.1 + 0.0097 * i;
            const double v = 0.1 + 0.191 * (i % 20);
            const GK_SurfacePoint at = hill->Evaluate(u, v);
            const auto inU = hill->PointAt(u + Step, v) - hill->PointAt(u - Step, v);
            const auto inV = hill->PointAt(u, v + Step) - hill->PointAt(u, v - Step);
            EXPECT_LT(Distance(at.du, 0.5 / Step * inU), 1e-6);
            EXPECT_LT(Distance(at.dv, 0.5 / Step * inV), 1e-6);
        }
    }
}

TEST(NurbsSurface, SaysWhatIsUnsound)
{
    struct Case
    {
        void (*spoil)(GK_NurbsSurface&);
        const char* reason;
    };
    const Case cases[] = {
        {[](GK_NurbsSurface& s) {
             s.SetKnots(0, {0.0, 1.0, 2.0});
         },
         "the surface has 3 knots in u where 2 are needed"},
        {[](GK_NurbsSurface& s) {
             s.SetControlPointCount(0, 2);
             s.SetControlPointCount(1, 1);
         },
         "the surface has 1 control points in v; degree 1 needs at least 2"},
        {[](GK_NurbsSurface& s) {
             const double point[] = {1, 1, GK_UNSET_VALUE, 1};
             s.SetCV(1, 1, GK::euclidean_rational, point);
         },
         "the surface's control point 4 was never set"},
    };
    for (const Case& c : cases) {
        const auto surface = MakeSurface(
            true, 2, 2, {0, 0, 0, 1, 1, 0, 0, 1, 0, 1, 0, 1, 1, 1, 0, 1}, {0, 1}, {0, 1});
        ASSERT_TRUE(surface->IsValid());
        c.spoil(*surface);
        std::string reason;
        EXPECT_FALSE(surface->IsValid(&reason)) << c.reason;
        EXPECT_EQ(reason, c.reason);
    }
}

TEST(NurbsSurface, ChecksAgainWhatHasChanged)
{
    const auto surface = MakePlane(4.0);
    const double good[] = {0, 0, 0};
    const double bad[] = {0, 0, std::numeric_limits<double>::infinity()};
    for (const int i : {1, 0}) {
        surface->SetCV(0, i, GK::not_rational, bad);
        EXPECT_FALSE(surface->IsValid());
        surface->SetCV(0, 1 - i, GK::not_rational, good);
        EXPECT_FALSE(surface->IsValid());
        surface->SetCV(0, i, GK::not_rational, good);
        EXPECT_TRUE(surface->IsValid());
        surface->SetKnots(i, {3.0, 2.0});
        EXPECT_FALSE(surface->IsValid());
        surface->SetDomain(1 - i, 0.0, 2.0);
        EXPECT_FALSE(surface->IsValid());
        surface->SetKnots(i, {2.0, 3.0});
        EXPECT_TRUE(surface->IsValid());
        surface->SetControlPointCount(i, 3);
        EXPECT_FALSE(surface->IsValid());
        surface->SetControlPointCount(i, 2);
    }
}

} // namespace
