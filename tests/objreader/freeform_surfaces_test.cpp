#include "tests/objreader/read_text.h"
#include "tests/objreader/square_text.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

TEST(FreeformSurfaces, StatementsFailWhereTheyAreMalformed)
{
    struct Case
    {
        std::string text;
        bool parsed;
    };
    const Case cases[] = {
        {Square + Surface + Knots, true},
        {Square + "surf 0 1 0 1", true},
        {Square + "surf 0 1 0", false},
        {Square + "surf 0 1 0 x 1 2 3 4", false},
        {Square + "surf 0 1 0 1 1 2 3 5", false},
        {Square + "cstype rat\n" + Surface, false},
        {Square + Surface + "parm w 0 0 1 1", false},
        {Square + Surface + "parm u 0 0 x 1", false},
        {Square + Surface + "parm u", true}, // no knots at all
        {Square + Surface + "cstype bezier\nparm u 0", false},
        {Square + Surface + "cstype bezier\nparm u 0 x", false},
        {Square + Surface + "g other\n" + Knots, false},
        {Square + Surface + "trim 0 2 1", false}, // before the knots
        {Square + Surface + "parm u 0 0 1 1\ntrim 0 2 1", false},
        {Square + Surface + Knots + "trim 0 2", false},
        {Square + Surface + Knots + "trim 0 2 4", false},
        {Square + Surface + Knots + "trim 0 x 1", false},
        {Square + Surface + Knots + "hole", true},
        {Square + Surface + Knots + "trim 0 2 -3 2 0 -2", true},
        {Square + Surface + Knots + "curv 0 1 1 2\ntrim 0 2 1", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(ReadText(c.text).parsed, c.parsed);
    }
}

/// Returns "u 2 complete" for each statement that followed "surf": knots by their direction and the
/// number of control points that they claim, loops by their trims.
std::vector<std::string> Steps(const SurfaceData& surface)
{
    std::vector<std::string> steps;
    for (const SurfaceStep& step : surface.steps) {
        if (step.kind == SurfaceStep::OuterLoop || step.kind == SurfaceStep::InnerLoop) {
            const char* const loop = step.kind == SurfaceStep::OuterLoop ? "outer " : "inner ";
            steps.push_back(loop + std::to_string(step.valueCount));
            continue;
        }
        steps.push_back((step.direction == 0 ? "u " : "v ") +
                        std::to_string(step.controlPointCount) + (step.completes ? " face" : ""));
    }
    return steps;
}

TEST(FreeformSurfaces, KeepWhatFollowsThemInItsOrder)
{
    const ReadText text("v 0 0 0\nv 1 1 1\nvp 0 0\nvp 1 1\ncstype rat bspline\ndeg 1\ncurv2 1 2\n"
                        "deg 1 2\nsurf 0 2 0 1 1/1/1 2 -2 -1 1\nparm v 9 0 0 1 1 9\n"
                        "parm u 9 0 1 2 9\ntrim 0 1 1 1 0.5 -1\nparm V 9 2 2 3 3 9\nhole\n"
                        "cstype bezier\nparm v 4 5 6\n");
    EXPECT_TRUE(text.parsed);
    const SurfaceData& surface = text.CurrentGeometry().surfaces.back();
    EXPECT_THAT(surface.order, ElementsAre(2, 3));
    EXPECT_THAT(ListOf(surface.surfaceCVs), ElementsAre(0, 1, 0, 1, 0));
    EXPECT_THAT(Steps(surface),
                ElementsAre("v 3", "u 3 face", "outer 2", "v 3 face", "inner 0", "v 3 face"));
    EXPECT_THAT(ListOf(surface.values), ElementsAre(0, 0, 1, 1, 0, 1, 2, 2, 2, 3, 3, 4, 5));
    ASSERT_EQ(surface.trims.Count(), 2);
    EXPECT_EQ(surface.trims[1].curve, 0);
    EXPECT_EQ(surface.trims[1].from, 1);
    EXPECT_EQ(surface.trims[1].to, 0.5);
    EXPECT_EQ(surface.faceCount, 3);
}

} // namespace
