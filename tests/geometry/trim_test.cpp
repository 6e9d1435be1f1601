#include "tests/geometry/built_breps.h"
#include "tests/objreader/square_text.h"

#include <gmock/gmock.h>

namespace {

// Lines that name one large curve again and again: every triple makes its trim, and all share the
// curve's storage, and what was pushed up once.
TEST(Trims, TrimsOfOneCurveShareItsStorage)
{
    constexpr int Trims = 20'000;
    const struct
    {
        std::string curve;
        bool sound;
    } cases[] = {
        {"deg 1\ncurv2" + Repeated(" 1 3", 10000) + "\nparm u 0" + CountUpTo(19999) + " 19999",
         true},
        {"deg 19999\ncurv2 1 3\nparm u" + CountUpTo(19999), false},
        {"cstype bezier\ndeg 99\ncurv2" + Repeated(" 1 3", 50) + "\nparm u 0 19999", false},
    };
    for (const auto& [curve, sound] : cases) {
        const BuiltBreps file(Square + curve + "\ncstype bspline\ndeg 1 1\n" + Surface + Knots +
                              "trim" + Repeated(" 0 19999 -1", Trims) + "\n");
        EXPECT_TRUE(file.Parsed());
        const GK_Brep& brep = file.Last();
        ASSERT_EQ(brep.TrimCurveCount(), Trims);
        ASSERT_EQ(brep.TrimCount(), sound ? Trims : 0);
        for (const int i : {1, Trims / 2, Trims - 1}) {
            const auto* first = GK_NurbsCurve::Cast(brep.TrimCurve(0));
            const auto* other = GK_NurbsCurve::Cast(brep.TrimCurve(i));
            EXPECT_EQ(other->controlPoints.Identity(), first->controlPoints.Identity());
            if (!sound)
                continue;
            EXPECT_EQ(GK_NurbsCurve::Cast(brep.EdgeCurve(i))->controlPoints.Identity(),
                      GK_NurbsCurve::Cast(brep.EdgeCurve(0))->controlPoints.Identity());
        }
        ASSERT_EQ(BuiltBreps::Journal().kernelErrors.size(), sound ? 0U : 1U);
        if (!sound) {
            EXPECT_THAT(BuiltBreps::Journal().kernelErrors[0].text,
                        testing::HasSubstr("its curve is not sound"));
        }
    }
}

// Holes in many panels that share their curves, at a fine tolerance: nothing is lost.
TEST(Trims, HonestTrimsAreAllMade)
{
    constexpr int Panels = 60;
    std::string text = Square;
    for (int i = 0; i < 16; ++i)
        text += "v " + std::to_string(300 * (i % 4)) + " " + std::to_string(300 * (i / 4)) + " " +
                std::to_string(70 * ((i * 7) % 5)) + "\n";
    for (int i = 0; i < Panels; ++i)
        text +=
            "cstype bezier\ndeg 3 3\nsurf 0 1 0 1 -16 -15 -14 -13 -12 -11 -10 -9 -8 -7 -6 -5 -4 "
            "-3 -2 -1\nparm u 0 1\nparm v 0 1\n" +
            Repeated("hole 0 4 3\n", 10) + Repeated("hole 0 3 3\n", 10);
    const BuiltBreps file(text, 1e-6);
    EXPECT_TRUE(file.Parsed());
    EXPECT_TRUE(BuiltBreps::Journal().kernelErrors.empty());
    for (const auto& brep : file.All())
        EXPECT_EQ(brep->TrimCount(), 20);
}

// Knots may be repeated between loops, and a loop may fail in the middle: every trim lies on the
// surface as it was where the trim stood.
TEST(Trims, LieOnTheSurfaceOfTheirPlaceInTheFile)
{
    const BuiltBreps file(Square + Surface + "parm v 0 0 1 1\nparm u 0 0 1 1\ntrim 0 2 1\ng a\n" +
                          Surface + "g\nparm u 0 0 2 2\ntrim 0 2 1 2 0 9\n");
    EXPECT_FALSE(file.Parsed());
    const GK_Brep& brep = file.Last();
    EXPECT_EQ(brep.LoopCount(), 2);
    ASSERT_EQ(brep.TrimCount(), 2);
    EXPECT_EQ(brep.EdgeCurve(0)->PointAtEnd(), (GK_3dPoint{2, 2, 0}));
    EXPECT_EQ(brep.EdgeCurve(1)->PointAtEnd(), (GK_3dPoint{1, 2, 0}));
}

// What the importer itself does with trims, before any repair. The 2D curves are a straight line in
// two halves, an open arc of a circle, and all of it.
TEST(Trims, TrimsBeforeAnyRepair)
{
    const struct
    {
        const char* triple;
        GK_Interval trim;
        GK_Interval edge;
        bool closed;
        bool reversed;
    } cases[] = {
        {"0 2 1", {0, 2}, {0, 2}, false, false},
        {"2 0 1", {2, 0}, {0, 2}, false, false},
        {"0.5 1.25 1", {0.5, 1.25}, {0.5, 1.25}, false, false},
        {"0 3 3", {0, 3}, {0, 3}, false, false},
        {"3 0 -1", {3, 0}, {0, 3}, false, false},
        {"0 4 3", {0, 4}, {0, 4}, true, false},
        {"4 0 3", {4, 0}, {0, 4}, true, true},
        {"0 2.0001 1", {0, 2}, {0, 2}, false, false}, // beyond the end by rounding
        {"-0.0001 2 1", {0, 2}, {0, 2}, false, false},
        {"4.0003 0 3", {4, 0}, {0, 4}, true, true},
        {"1.9 2.0001 1", {1.9, 2}, {1.9, 2}, false, false},
    };
    for (const auto& [triple, trimDomain, edgeDomain, closed, reversed] : cases) {
        SCOPED_TRACE(triple);
        const BuiltBreps file(Square + Surface + Knots + "trim " + triple + "\n");
        const GK_Brep& brep = file.Last();
        ASSERT_EQ(brep.TrimCount(), 1);
        const GK_BrepTrim& trim = brep.Trim(0);
        const GK_BrepEdge& edge = brep.Edge(0);
        EXPECT_EQ(trim.Domain(), trimDomain);
        EXPECT_EQ(edge.Domain(), edgeDomain);
        EXPECT_EQ(brep.EdgeCurve(0)->Domain(), edgeDomain);
        EXPECT_TRUE(trim.IsValid());
        EXPECT_TRUE(edge.IsValid());
        EXPECT_EQ(brep.VertexCount(), closed ? 1 : 2);
        EXPECT_EQ(edge.vertexIndex, (std::array<int, 2>{0, closed ? 0 : 1}));
        EXPECT_EQ(trim.vertexIndex, (std::array<int, 2>{closed ? 0 : 1, 0}));
        EXPECT_EQ(trim.reversed, reversed);
        EXPECT_EQ(edge.tolerance, GK_UNSET_VALUE);
        EXPECT_EQ(brep.Vertex(0).tolerance, 0.001);
        EXPECT_EQ(brep.Vertex(0).point, brep.EdgeCurve(0)->PointAtStart());
        const GK_3dPoint uv = trim.PointAt(edgeDomain[1]);
        EXPECT_LT(edge.PointAtEnd().DistanceTo(file.Surface().PointAt(uv.x, uv.y)), 1e-12);
    }
}

} // namespace
