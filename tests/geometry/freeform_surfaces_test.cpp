#include "tests/geokit/brep_shapes.h"
#include "tests/geometry/built_breps.h"
#include "tests/geometry/document_test.h"
#include "tests/objreader/square_text.h"
#include "tests/work_of.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

TEST(FreeformSurfaces, TakeControlPointsWithURunningFastest)
{
    const BuiltBreps file("v 1 0 0 0.5\nv 2 0 0\nv 3 0 0\nv 4 0 0\nv 5 0 0\nv 6 0 0\n"
                          "cstype rat bspline\ndeg 1 1\nsurf 0 2 0 1 1/1/1 2 3 -3 -2 -1 1 1 1\n"
                          "parm v 9 0 1 9\nparm u 9 0 1 2 9\n");
    EXPECT_TRUE(file.Parsed());
    EXPECT_THAT(ListOf(file.Surface().Knots(0)), ElementsAre(0, 1, 2));
    EXPECT_THAT(ListOf(file.Surface().Knots(1)), ElementsAre(0, 1));
    EXPECT_EQ(file.Surface().ControlPoint(1, 1), (GK_3dPoint{5, 0, 0}));
    EXPECT_EQ(file.Surface().Weight(0, 0), 0.5);
    EXPECT_TRUE(file.Surface().IsValid());
    EXPECT_EQ(file.Last().FaceCount(), 1);

    const BuiltBreps bezier("v 0 0 0\ncstype bezier\ndeg 3 2\nsurf 0 1 0 1"
                            " 1 1 1 1 1 1 1 1 1 1 1 1\nparm u 0 1 x\nparm v 2 4\n");
    EXPECT_TRUE(bezier.Parsed());
    EXPECT_THAT(ListOf(bezier.Surface().Knots(0)), ElementsAre(0, 0, 0, 1, 1, 1));
    EXPECT_THAT(ListOf(bezier.Surface().Knots(1)), ElementsAre(2, 2, 4, 4));
    EXPECT_TRUE(bezier.Surface().IsValid());
}

TEST(FreeformSurfaces, StatesOfTheKnotStatements)
{
    // A new surface before the first was complete: the first never gets a face.
    const BuiltBreps two(Square + Surface + "parm u 0 0 1 1\n" + Surface + Knots);
    EXPECT_EQ(two.All()[0]->FaceCount(), 0);
    EXPECT_EQ(two.All()[1]->FaceCount(), 1);

    // After a complete surface the next one waits for both of its own.
    const BuiltBreps next(Square + Surface + Knots + Surface + "parm u 0 0 1 1\n");
    EXPECT_EQ(next.Last().FaceCount(), 0);
    const BuiltBreps last(Square + Surface + Knots + "surf 0 1 0 1 4 3 2 1\n" + Knots);
    EXPECT_EQ(last.Surface().ControlPoint(0, 0), (GK_3dPoint{2, 2, 0}));

    // Knots stated once more: another face, and control points for the new counts.
    const BuiltBreps again(Square + "surf 0 1 0 1 1 2 3 4 3 4\n" + Knots + "parm v 0 0 1 2 2\n");
    EXPECT_EQ(again.Last().FaceCount(), 2);
    EXPECT_EQ(again.Surface().ControlPointCount(1), 3);
    EXPECT_EQ(again.Surface().ControlPoint(1, 2), (GK_3dPoint{2, 2, 0}));
    EXPECT_TRUE(again.Surface().IsValid());

    // Knots that fail: the counts stay, and so the surface is no longer sound.
    const BuiltBreps failed(Square + "surf 0 1 0 1 1 2 3 4 1 2\nparm u 0 0 1 2 2\n" +
                            "parm v 0 0 1 1\nparm u 9 -2 x 9\n");
    EXPECT_FALSE(failed.Parsed());
    EXPECT_EQ(failed.Surface().ControlPointCount(0), 3);
    EXPECT_FALSE(failed.Surface().IsValid());

    // Which directions have knots is known across a change of group.
    const BuiltBreps groups(Square + "g a\n" + Surface + "g b\n" + Surface +
                            "parm u 0 0 1 1\ng a\nparm v 0 0 1 1\n");
    EXPECT_EQ(groups.Last().FaceCount(), 1);
    EXPECT_FALSE(groups.Surface().IsValid());
}

// However many trims fail because their curve or surface is wrong, those that follow are used
// instead.
TEST(FreeformSurfaces, TrimsThatAreRefusedCostTheOthersNothing)
{
    const std::string incomplete = "surf 0 1 0 1 1 2 3\n" + Knots;
    const BuiltBreps file(Square + incomplete + "hole" + Repeated(" 0 2 1", 200) + "\n" + Surface +
                          Knots + "hole" + Repeated(" 0 3 1", 200) + "\ntrim 0 2 1 2 0 2\n");
    EXPECT_TRUE(file.Parsed());
    EXPECT_EQ(file.Last().TrimCount(), 2);
}

// Knots of one direction repeated between trims: the large net is not scanned each time.
TEST(FreeformSurfaces, NewKnotsDoNotCostTheWholeNet)
{
    const auto workOf = [](int rows, int times) {
        const std::string trim = "trim 0 2 1\n";
        const std::string text =
            Square + "surf 0 1 0 1" + Repeated(" 1 2", rows) + "\nparm v 0" + CountUpTo(rows - 1) +
            " 0\n" + Repeated("parm u 0 0 1 1\n" + trim + "parm u 0 0 2 2\n" + trim, times);
        return WorkOf([&] {
            const BuiltBreps file(text);
            EXPECT_TRUE(file.Parsed());
            EXPECT_EQ(file.Last().TrimCount(), 2 * times);
        });
    };
    constexpr int Rows = 100'000;
    constexpr int Times = 1500;
    EXPECT_LT(workOf(Rows, Times), 4 * (workOf(Rows, 1) + workOf(10, Times)));
}

using FreeformObjects = DocumentTest;

TEST_F(FreeformObjects, BuildBreps)
{
    struct Case
    {
        const char* what;
        std::string text;
        int edges;
        int vertices;
        std::vector<int> loopTypes;
        const char* refused;
    };
    const Case cases[] = {
        {"untrimmed", "", 4, 4, {1}, ""},
        {"two pieces", "trim 0 2 1 2 0 2\n", 2, 2, {1}, ""},
        {"the other way round", "trim 0 2 2 2 0 1\n", 2, 2, {1}, ""},
        {"a part of a curve and a hole", "TRIM 0 2 1 2 0 2\nHole 0 4 3\n", 3, 3, {1, 2}, ""},
        {"a hole only", "hole 4 0 3\n", 5, 5, {1, 2}, ""},
        {"an empty loop", "hole\n", 4, 4, {1}, "loop: inner loop 1 of the brep has no trims\n"},
        {"more faces", Knots, 4, 4, {1}, ""},
        {"a gap",
         "trim 0 2 1 2 1 2\n",
         -1,
         0,
         {},
         "brep: loop 1 does not close: trim 2 ends 2 away from the start of trim 1 (tolerance "
         "0.001)\n"},
        {"out of the curve's domain",
         "trim 0 3 1\n",
         4,
         4,
         {1},
         "loop: outer loop 1 of the brep has no trims\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        ReadText text(Square + Surface + Knots + c.text);
        EXPECT_TRUE(text.parsed);
        EXPECT_EQ(Build(text), c.edges >= 0);
        EXPECT_EQ(Refused(), c.refused);
        ASSERT_EQ(doc->ObjectCount(), c.edges >= 0 ? 1 : 0);
        if (c.edges < 0)
            continue;
        const auto& brep = Object<GK_Brep>(0);
        EXPECT_EQ(brep.FaceCount(), 1);
        EXPECT_EQ(brep.EdgeCount(), c.edges);
        EXPECT_EQ(brep.VertexCount(), c.vertices);
        std::vector<int> types;
        for (const int loop : brep.Face(0).loopIndices)
            types.push_back(brep.Loop(loop).type);
        EXPECT_EQ(types, c.loopTypes);
        ExpectSoundLoops(brep, 0.002);
    }
}

TEST_F(FreeformObjects, RefuseWhatIsIncompleteOrAbsurd)
{
    struct Case
    {
        std::string text;
        const char* reason;
    };
    const std::string manyKnots = "parm u" + CountUpTo(99999) + "\nparm v" + CountUpTo(99999);
    const Case cases[] = {
        {Surface + "parm u 0 0 1 1\n", "the brep has no face: the surface has no knots in v"},
        {"surf 0 1 0 1 1 2 3\n" + Knots, "the surface has 3 of its 4 control points"},
        {Surface + manyKnots + "\n", "the surface has 4 of its 9999600004 control points"},
        {"deg 2000000000 2000000000\n" + Surface + "cstype bezier\nparm u 0 1\nparm v 0 1\n",
         "the surface has order 2000000001 in u; at most 32 is supported"},
        {Surface + "parm u 1 1 0 0\nparm v 0 0 1 1\n",
         "the surface's knots in u decrease, from 1 to 0"},
        {"v 0 0 0 0\ncstype rat bspline\nsurf 0 1 0 1 1 2 3 -1\n" + Knots,
         "the surface's control point 4 has weight 0; it must be positive"},
        {"deg 0 1\n" + Surface + Knots, "the surface has degree 0 in u; at least 1 is needed"},
        {"deg 1 -4\n" + Surface + Knots, "the surface has degree -4 in v; at least 1 is needed"},
        {"deg -1 1\ncstype bezier\n" + Surface + "parm u 0 1\nparm v 0 1\n", // as without "deg"
         "the surface has degree -1 in u; at least 1 is needed"},
    };
    for (const Case& c : cases) {
        ReadText text(Square + c.text);
        EXPECT_TRUE(text.parsed);
        EXPECT_FALSE(Build(text));
        EXPECT_EQ(doc->ObjectCount(), 0);
        EXPECT_EQ(Refused(), std::string("brep: ") + c.reason + "\n");
    }
}

} // namespace
