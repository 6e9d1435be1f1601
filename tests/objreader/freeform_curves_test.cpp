#include "tests/objreader/freeform_reader.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
        const FreeformReader file(c.text);
        EXPECT_EQ(file.parsed, c.parsed);
        EXPECT_EQ(file.reader->cstype, c.form);
        EXPECT_EQ(file.reader->rational, c.rational);
        EXPECT_EQ(file.reader->degreeU, c.degreeU);
        EXPECT_EQ(file.reader->degreeV, c.degreeV);
    }
}

TEST(FreeformCurves, TakeControlPointsAndKnots)
{
    const FreeformReader rational(Points + "cstype rat bspline\ndeg 1\ncurv2 3 2/7 1\n"
                                           "parm u 9 0 2 3 9\nparm U 0 2 5\n");
    EXPECT_TRUE(rational.parsed);
    const GK_NurbsCurve& curve = rational.reader->trimCurves[0];
    EXPECT_EQ(curve.dimension, 2);
    EXPECT_THAT(Values(curve.controlPoints), ElementsAre(1, 1, 1, 1, 0, 0.5, 0, 0, 1));
    EXPECT_THAT(Values(curve.knots), ElementsAre(0, 2, 5)); // the second statement's
    EXPECT_EQ(rational.doc.ObjectCount(), 0);

    const FreeformReader bezier(Points + "cstype bezier\ndeg 3\ncurv 0 2 1 2 3 4 1 2 3\n"
                                         "parm u 0 x 1 2\n");
    EXPECT_TRUE(bezier.parsed);
    EXPECT_THAT(Values(bezier.Curve().knots), ElementsAre(0, 0, 0, 1, 1, 1, 2, 2, 2));
    EXPECT_TRUE(bezier.Curve().IsValid());
}

TEST(FreeformCurves, StatementsFailWhereTheyAreMalformed)
{
    struct Case
    {
        std::string text;
        bool parsed;
        const char* prints;
    };
    const char* const KnotCount =
        "Knot count does not correspond with control point count in the curve.\n";
    const Case cases[] = {
        {Points + "deg 3\ncurv 0 1 1 2", false, ""}, // no "cstype"
        {Points + "cstype bspline\ncurv 0 1 1 2", true, ""},
        {Cubic + "curv 0 1", true, ""},
        {Cubic + "curv 0", false, ""},
        {Cubic + "curv x 1 1 2", false, ""},
        {Cubic + "curv 0 1 1 x", false, ""},
        {Cubic + "curv 0 1 1 5", false, ""},
        {Cubic + "vp 9 9\ncurv 0 1 1 5", false, ""},
        {Cubic + "v 9 9 9\ncurv2 1 5", false, ""},
        {Cubic + "curv2 1", false, ""},
        {Cubic + "curv2 1 0", false, ""},
        {Cubic + "parm u 0 1", true, ""}, // no element yet
        {Cubic + "curv 0 1 1 2 3 4\nparm v 0 0 0 1 1 1", false, ""},
        {Cubic + "curv 0 1 1 2 3 4\nparm", false, ""},
        {Cubic + "curv 0 1 1 2 3 4\nparm u 0 0 0 1 1 x", false, ""},
        {Cubic + "curv 0 1 1 2 3 4\nparm u 0 0 0 0 1 1 1", false, KnotCount},
        {Cubic + "curv 0 1 1 2 3 4\ng other\nparm u 0 0 0 1 1 1", false, ""},
        {Cubic + "curv 0 1 1 2 3 4\ncstype rat\nparm u 0 0 0 1 1 1", false, ""},
        {Cubic + "curv 0 1 1 2 3 4\ncstype taylor\nparm u x", true, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const FreeformReader file(c.text);
        EXPECT_EQ(file.parsed, c.parsed);
        const auto& prints = FreeformReader::Journal().prints;
        EXPECT_EQ(prints.empty() ? "" : prints[0], c.prints);
    }
}

TEST(FreeformCurves, TheKnotCountLineIsLocalized)
{
    StringTable texts;
    texts.Set(25987, L"knots");
    ConsoleApp::Instance().SetStrings(std::move(texts));
    const FreeformReader file(Cubic + "curv 0 1 1 2 3 4\nparm u 0 1");
    ConsoleApp::Instance().SetStrings(StringTable());
    EXPECT_THAT(FreeformReader::Journal().prints, ElementsAre("knots"));
}

// Each of the four texts of a box has its own id.
TEST(FreeformCurves, UnsupportedFormsShowTheirBoxAndEndTheReading)
{
    struct Case
    {
        const char* form;
        const char* statement;
        int firstId;
    };
    const Case cases[] = {
        {"bmatrix", "curv 0 1 1 2", 12742},    {"cardinal", "curv2 1 2", 12746},
        {"taylor", "curv 0 1 1 2", 12750},     {"bmatrix", "surf 0 1 0 1", 12761},
        {"cardinal", "surf 0 1 0 1 1", 12765}, {"taylor", "surf 0 1 0 1", 12769},
    };
    for (const Case& c : cases) {
        const std::string statement = std::string(c.statement) + "\n";
        const std::string text = Points + "cstype " + c.form + "\n" + statement + statement;
        const bool isSurface = statement[0] == 's';
        const std::string what = std::string(c.form) + (isSurface ? " surface" : " curve");
        const FreeformReader file(text);
        EXPECT_FALSE(file.parsed);
        EXPECT_EQ(file.reader->freeformKind, 0);
        ASSERT_EQ(FreeformReader::Journal().boxes.size(), 1U);
        EXPECT_THAT(FreeformReader::Journal().boxes[0].text,
                    testing::StartsWith("This file contains a " + what + " which"));

        StringTable ids;
        for (int i = 0; i < 4; ++i)
            ids.Set(c.firstId + i, std::wstring(1, wchar_t(L'a' + i)));
        ConsoleApp::Instance().SetStrings(std::move(ids));
        const FreeformReader localized(text);
        EXPECT_EQ(FreeformReader::Journal().boxes[0].text, "abc");
        EXPECT_EQ(FreeformReader::Journal().boxes[0].caption, "d");
        ConsoleApp::Instance().SetStrings(StringTable());
    }
}

TEST(FreeformCurves, BecomeObjectsOrAreRefusedWithTheReason)
{
    const FreeformReader file("v 5 5 5\np 1\n" + Cubic +
                              "g a\ncurv 0 1 2 3 4 5\nparm u 0 0 0 1 1 1\n"
                              "curv 0 1 2 3 4 5\n"                 // no knots
                              "deg 2000000000\ncurv 0 1 2 3 4 5\n" // more than there is data for
                              "cstype bezier\ncurv 0 1 2 3 4 5\nparm u 0 1\n"
                              "deg 1\ncstype bspline\ncurv 0 1 2 3\nparm u 1 0\n" // knots decrease
                              "curv 0 1 2 3\nparm u 0 nan\n"
                              "v 1 1 1 -1\ncstype rat bspline\ncurv 0 1 2 -1\nparm u 0 1\n"
                              "deg 3\ncurv 0 1 2 3 4 9\n"); // fails; it stays as far as it got
    EXPECT_FALSE(file.parsed);
    file.reader->ZUp = true;
    EXPECT_FALSE(file.reader->Build());
    ASSERT_EQ(file.doc.ObjectCount(), 2);
    const auto* curve = GK_NurbsCurve::Cast(&file.Object<GK_Curve>(1));
    EXPECT_THAT(Values(curve->controlPoints), ElementsAre(0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0));
    const std::string tooHigh = "curve: the curve has order 2000000001; at most 32 is supported\n";
    EXPECT_EQ(FreeformReader::Refused(),
              "curve: the curve has no knots\n" + tooHigh + tooHigh +
                  "curve: the curve's knots decrease, from 1 to 0\n"
                  "curve: the curve has a knot that is not finite\n"
                  "curve: the curve's control point 2 has weight -1; it must be positive\n"
                  "curve: the curve's control point 4 was never set\n");
}

TEST(FreeformCurves, ReasonsSayWhatStandsInTheFile)
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
        const FreeformReader file(Cubic + c.text);
        EXPECT_FALSE(file.reader->Build());
        EXPECT_EQ(FreeformReader::Refused(), std::string("curve: ") + c.reason + "\n");
    }
}

} // namespace
