#include "tests/geometry/document_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

const std::string Points = "v 0 0 0 1\nv 1 0 0 2\nv 1 1 0 3\nv 0 1 0 4\n";
const std::string Cubic = Points + "cstype bspline\ndeg 3\n";

using FreeformCurves = DocumentTest;

TEST_F(FreeformCurves, BecomeObjectsOrAreRefusedWithTheReason)
{
    ReadText text("v 5 5 5\np 1\n" + Cubic +
                  "g a\ncurv 0 1 2 3 4 5\nparm u 0 0 0 1 1 1\n"
                  "curv 0 1 2 3 4 5\n"                 // no knots
                  "deg 2000000000\ncurv 0 1 2 3 4 5\n" // more than there is data for
                  "cstype bezier\ncurv 0 1 2 3 4 5\nparm u 0 1\n"
                  "deg 1\ncstype bspline\ncurv 0 1 2 3\nparm u 1 0\n" // knots decrease
                  "curv 0 1 2 3\nparm u 0 nan\n"
                  "v 1 1 1 -1\ncstype rat bspline\ncurv 0 1 2 -1\nparm u 0 1\n"
                  "deg 3\ncurv 0 1 2 3 4 9\n"); // fails; it stays as far as it got
    EXPECT_FALSE(text.parsed);
    text.choices.ZUp = true;
    EXPECT_FALSE(Build(text));
    ASSERT_EQ(doc->ObjectCount(), 2);
    const auto* curve = GK_NurbsCurve::Cast(&Object<GK_Curve>(1));
    EXPECT_THAT(ListOf(curve->controlPoints), ElementsAre(0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0));
    const std::string tooHigh = "curve: the curve has order 2000000001; at most 32 is supported\n";
    EXPECT_EQ(Refused(),
              "curve: the curve has no knots\n" + tooHigh + tooHigh +
                  "curve: the curve's knots decrease, from 1 to 0\n"
                  "curve: the curve has a knot that is not finite\n"
                  "curve: the curve's control point 2 has weight -1; it must be positive\n"
                  "curve: the curve's control point 4 was never set\n");
}

TEST_F(FreeformCurves, OfSeveralBezierSegmentsAreSound)
{
    EXPECT_TRUE(Build(Points + "cstype bezier\ndeg 3\ncurv 0 2 1 2 3 4 1 2 3\nparm u 0 1 2\n"));
    EXPECT_TRUE(Object<GK_Curve>(0).IsValid());
}

TEST_F(FreeformCurves, ReasonsSayWhatIsInTheFile)
{
    std::string values = "parm u";
    for (int i = 0; i < 400; ++i)
        values += " 0";
    struct Case
    {
        std::string text;
        const char* reason;
    };
    const Case cases[] = {
        {"curv x 1 1 2 3 4", "the curve has no control points"},
        {"curv 0 1", "the curve has 0 control points; degree 3 needs at least 4"},
        {"cstype bezier\ncurv 0 1 1 2 3 4\n" + values,
         "the curve has 1200 knots where 6 are needed"},
        {"deg 40\ncurv 0 1 1 2 3 4\n", "the curve has order 41; at most 32 is supported"},
        {"deg -4\ncurv 0 1 1 2\n", "the curve has degree -4; at least 1 is needed"},
    };
    for (const Case& c : cases) {
        ReadText text(Cubic + c.text);
        EXPECT_FALSE(Build(text));
        EXPECT_EQ(Refused(), std::string("curve: ") + c.reason + "\n");
    }
}

} // namespace
