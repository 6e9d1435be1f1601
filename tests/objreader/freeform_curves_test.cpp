#include "tests/objreader/read_text.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

const std::string Points = "v 0 0 0 1\nv 1 0 0 2\nv 1 1 0 3\nv 0 1 0 4\n"
                           "vp 0 0\nvp 1 0 0.5\nvp 1 1\nvp 0 1\n";
const std::string Cubic = Points + "cstype bspline\ndeg 3\n";

TEST(FreeformAttributes, AreSetByEachStatement)
{
    struct Case
    {
        const char* text;
        bool parsed;
        int form;
        bool rational;
        int degreeU;
        int degreeV;
    };
    const Case cases[] = {
        {"cstype bspline", true, 3, false, -1, -1},
        {"cstype RAT Bezier\ndeg 3 2", true, 2, true, 3, 2},
        {"cstype taylor rat", true, 5, true, -1, -1},
        {"cstype rat", true, 0, true, -1, -1},
        {"cstype bspline\ncstype rational bspline", false, 0, false, -1, -1},
        {"cstype cardinal rational", false, 4, false, -1, -1},
        {"cstype rat bspline\ncstype rat bspline x", false, 0, false, -1, -1},
        {"cstype", false, 0, false, -1, -1},
        {"deg 3 4\ndeg 2", true, 0, false, 2, -1},
        {"deg 3.7 -4x", true, 0, false, 3, -4},
        {"deg 3 4\ndeg x", false, 0, false, -1, -1},
        {"deg 3 x", false, 0, false, 3, -1},
        {"deg 1 2 3", false, 0, false, -1, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const ReadText text(c.text);
        EXPECT_EQ(text.parsed, c.parsed);
        EXPECT_EQ(text.reading.freeform.cstype, c.form);
        EXPECT_EQ(text.reading.freeform.rational, c.rational);
        EXPECT_EQ(text.reading.freeform.degreeU, c.degreeU);
        EXPECT_EQ(text.reading.freeform.degreeV, c.degreeV);
    }
}

TEST(FreeformCurves, TakeControlPointsAndKnots)
{
    const ReadText rational(Points + "cstype rat bspline\ndeg 1\ncurv2 3 2/7 1\n"
                                     "parm u 9 0 2 3 9\nparm U 0 2 5\n");
    EXPECT_TRUE(rational.parsed);
    const CurveData& curve = rational.file.trimCurves[0];
    EXPECT_EQ(curve.dimension, 2);
    EXPECT_EQ(curve.order, 2);
    EXPECT_THAT(ListOf(curve.controlPoints), ElementsAre(1, 1, 1, 1, 0, 0.5, 0, 0, 1));
    EXPECT_THAT(ListOf(curve.knots), ElementsAre(0, 2, 5)); // the second statement's

    const ReadText bezier(Points + "cstype bezier\ndeg 3\ncurv 0 2 1 2 3 4 1 2 3\n"
                                   "parm u 0 x 1 2\n");
    EXPECT_TRUE(bezier.parsed);
    const CurveData& inSpace = bezier.CurrentGeometry().curves.back();
    EXPECT_EQ(inSpace.dimension, 3);
    EXPECT_EQ(inSpace.controlPointCount, 7);
    EXPECT_THAT(ListOf(inSpace.knots), ElementsAre(0, 0, 0, 1, 1, 1, 2, 2, 2));
}

TEST(FreeformCurves, StatementsFailWhereTheyAreMalformed)
{
    struct Case
    {
        std::string text;
        bool parsed;
        const char* told = "";
    };
    const char* const KnotCount = "wrong knot count";
    const Case cases[] = {
        {Points + "deg 3\ncurv 0 1 1 2", false}, // no "cstype"
        {Points + "cstype bspline\ncurv 0 1 1 2", true},
        {Cubic + "curv 0 1", true},
        {Cubic + "curv 0", false},
        {Cubic + "curv x 1 1 2", false},
        {Cubic + "curv 0 1 1 x", false},
        {Cubic + "curv 0 1 1 5", false},
        {Cubic + "vp 9 9\ncurv 0 1 1 5", false},
        {Cubic + "v 9 9 9\ncurv2 1 5", false},
        {Cubic + "curv2 1", false},
        {Cubic + "curv2 1 0", false},
        {Cubic + "parm u 0 1", true}, // no element yet
        {Cubic + "curv 0 1 1 2 3 4\nparm v 0 0 0 1 1 1", false},
        {Cubic + "curv 0 1 1 2 3 4\nparm", false},
        {Cubic + "curv 0 1 1 2 3 4\nparm u 0 0 0 1 1 x", false},
        {Cubic + "curv 0 1 1 2 3 4\nparm u 0 0 0 0 1 1 1", false, KnotCount},
        {Cubic + "curv 0 1 1 2 3 4\ng other\nparm u 0 0 0 1 1 1", false},
        {Cubic + "curv 0 1 1 2 3 4\ncstype rat\nparm u 0 0 0 1 1 1", false},
        {Cubic + "curv 0 1 1 2 3 4\ncstype taylor\nparm u x", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const ReadText text(c.text);
        EXPECT_EQ(text.parsed, c.parsed);
        EXPECT_EQ(text.events.lines.empty() ? "" : text.events.lines[0], c.told);
    }
}

TEST(FreeformCurves, UnsupportedFormsAreReportedAndEndTheReading)
{
    struct Case
    {
        const char* lines;
        const char* told;
    };
    const Case cases[] = {
        {"cstype bmatrix\ncurv 0 1 1 2\ncurv 0 1 1 2", "unsupported curve 1"},
        {"cstype cardinal\ncurv2 1 2", "unsupported curve 4"},
        {"cstype taylor\ncurv 0 1 1 2", "unsupported curve 5"},
        {"cstype bmatrix\nsurf 0 1 0 1", "unsupported surface 1"},
        {"cstype cardinal\nsurf 0 1 0 1 1", "unsupported surface 4"},
        {"cstype taylor\nsurf 0 1 0 1", "unsupported surface 5"},
    };
    for (const Case& c : cases) {
        const ReadText text(Points + c.lines);
        EXPECT_FALSE(text.parsed);
        EXPECT_EQ(text.reading.freeform.freeformKind, FreeformNone);
        EXPECT_THAT(text.events.lines, ElementsAre(c.told));
    }
}

} // namespace
