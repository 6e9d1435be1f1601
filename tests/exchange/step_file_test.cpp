#include "objimport/exchange/step_file.h"
#include "objimport/exchange/step_text.h"
#include "tests/exchange/document_builder.h"
#include "tests/exchange/step_reading.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>
#include <sstream>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Returns a full circle of radius 1 as a rational curve of the second degree.
GK_NurbsCurve Circle()
{
    constexpr double Corner = std::numbers::sqrt2 / 2;
    constexpr std::array<std::array<double, 4>, 9> Points{{{1, 0, 0, 1},
                                                           {1, 1, 0, Corner},
                                                           {0, 1, 0, 1},
                                                           {-1, 1, 0, Corner},
                                                           {-1, 0, 0, 1},
                                                           {-1, -1, 0, Corner},
                                                           {0, -1, 0, 1},
                                                           {1, -1, 0, Corner},
                                                           {1, 0, 0, 1}}};
    GK_NurbsCurve curve;
    curve.Create(3, true, 3, static_cast<int>(Points.size()));
    for (std::size_t i = 0; i < Points.size(); ++i)
        curve.SetCV(static_cast<int>(i), GK::euclidean_rational, Points[i].data());
    for (const double knot : {0, 0, 1, 1, 2, 2, 3, 3, 4, 4})
        curve.knots.Append(knot);
    return curve;
}

// Returns a bent line whose knots do not end in control points.
GK_NurbsCurve OpenCurve()
{
    GK_NurbsCurve curve;
    curve.Create(3, false, 3, 4);
    for (int i = 0; i < 4; ++i) {
        const std::array<double, 3> point{1.0 * i, i % 2 == 0 ? 0.0 : 1.0, 0.0};
        curve.SetCV(i, GK::not_rational, point.data());
    }
    for (const double knot : {0, 1, 2, 3, 4})
        curve.knots.Append(knot);
    return curve;
}

double LengthOf(const GK_Curve& curve)
{
    constexpr int Steps = 20000;
    double length = 0.0;
    for (int i = 0; i < Steps; ++i)
        length += curve.PointAt(curve.Domain().ParameterAt(1.0 * i / Steps))
                      .DistanceTo(curve.PointAt(curve.Domain().ParameterAt((i + 1.0) / Steps)));
    return length;
}

TEST(StepFile, HoldsCurvesAndPointsAsTheyAre)
{
    DocumentBuilder builder;
    builder.AddCurve(Circle());
    builder.AddCurve(OpenCurve());
    builder.AddPoint({1, 2, 3});
    builder.AddPoint({4, 5, 6});
    builder.AddCloud({{7, 8, 9}, {0.1, 0.2, 0.3}, {1e-9, 0, 1e9}});
    const StepWriting writing = WriteStepOf(builder.doc);
    EXPECT_EQ(writing.outcome.error, "");
    EXPECT_EQ(writing.outcome.contents, "2 curves, 5 points");
    EXPECT_THAT(writing.outcome.losses, ElementsAre());
    const StepReading reading = ReadStep(writing.text);
    ASSERT_EQ(reading.parts.size(), 4U);
    EXPECT_NEAR(reading.parts[0].length, 2 * std::numbers::pi, 1e-6);
    EXPECT_NEAR(reading.parts[1].length, LengthOf(OpenCurve()), 1e-6);
    EXPECT_EQ(reading.parts[2].vertices, 2);
    EXPECT_EQ(reading.parts[3].vertices, 3);
    for (const StepPart& part : reading.parts)
        EXPECT_TRUE(part.isValid) << part.name;
}

TEST(StepFile, HoldsNamesOfAllCharactersLayersAndColors)
{
    const std::vector<std::wstring> names = {
        L"wall",
        L"it's a \\ \"name\"; /* #1 = */ ('x',$,*)",
        L"\u00fcber \u00df\u00e9",
        L"\u58c1 \u041c\u043e\u0441\u043a\u0432\u0430",
        std::wstring(3, L'\u00e4') + L"z",
        L"\u20ac\u00e4\U0001f600\u00e4",
        std::wstring(300, L'\u00e9') + L"end" // longer than a line
    };
    DocumentBuilder builder;
    GK_Layer layer;
    layer.name = GK_wString(L"\u00c4ste & Zweige");
    builder.attributes.layerIndex = builder.doc.LayerTable().AddLayer(layer, false);
    GK_Material material;
    material.SetDiffuse({255, 128, 7});
    builder.AddMaterial(material);
    for (const std::wstring& name : names) {
        builder.attributes.name = GK_wString(name);
        builder.AddCurve(Circle());
    }
    const StepWriting writing = WriteStepOf(builder.doc);
    EXPECT_TRUE(std::ranges::all_of(writing.text,
                                    [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
    const StepReading reading = ReadStep(writing.text);
    ASSERT_EQ(reading.parts.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(reading.parts[i].name, GK_wString(names[i]).Utf8());
        EXPECT_EQ(reading.parts[i].layer, layer.name.Utf8());
        EXPECT_EQ(reading.parts[i].color, "255 128 7");
    }
}

TEST(StepFile, SaysWhatItCannotHold)
{
    const auto mesh = [] { return MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2, 2}}); };
    DocumentBuilder builder;
    builder.AddMesh(mesh());
    EXPECT_THAT(WriteStepOf(builder.doc).outcome.error, HasSubstr("no surface, curve or point"));
    GK_NurbsCurve high;
    high.Create(3, false, 31, 31);
    for (int i = 0; i < 31; ++i) {
        const std::array<double, 3> point{1.0 * i, 0.0, 0.0};
        high.SetCV(i, GK::not_rational, point.data());
    }
    for (int i = 0; i < 60; ++i)
        high.knots.Append(i < 30 ? 0.0 : 1.0);
    builder.AddMesh(mesh());
    builder.AddCurve(Circle());
    builder.AddCurve(high);
    const ExchangeOutcome outcome = WriteStepOf(builder.doc).outcome;
    EXPECT_EQ(outcome.contents, "1 curve");
    EXPECT_THAT(
        outcome.losses,
        ElementsAre("2 meshes are left out: the STEP file holds surfaces, curves and points",
                    "1 curve is left out: its degree is 30, above 25"));
}

TEST(StepFile, IsTheSameEachTimeForAGivenTime)
{
    DocumentBuilder builder;
    builder.AddCurve(Circle());
    ASSERT_EQ(setenv("SOURCE_DATE_EPOCH", "86400", 1), 0); // NOLINT(concurrency-mt-unsafe)
    const std::string first = WriteStepOf(builder.doc).text;
    EXPECT_THAT(first, HasSubstr("'1970-01-02T00:00:00'"));
    EXPECT_EQ(WriteStepOf(builder.doc).text, first);
    ASSERT_EQ(unsetenv("SOURCE_DATE_EPOCH"), 0); // NOLINT(concurrency-mt-unsafe)
}

TEST(StepText, EncodesWhatIsNotAscii)
{
    struct Case
    {
        std::string text;
        std::string encoded;
    };
    const std::vector<Case> cases = {
        {"plain 'x'\n", "plain 'x'\n"},
        {"\xC3\xA4", "\\X2\\00E4\\X0\\"},
        {"a\xC3\xA4\xE2\x82\xAC"
         "b",
         "a\\X2\\00E420AC\\X0\\b"},
        {"\xF0\x9F\x98\x80\xC3\xA4", "\\X4\\0001F600\\X0\\\\X2\\00E4\\X0\\"},
        {"\xC3\n\xA4x", "\\X2\\00E4\\X0\\\nx"}, // a line that ends within a character
        {"\xC3x\xA4", "\\X2\\FFFD\\X0\\x"},     // no characters
        {"\xE2\x82", "\\X2\\FFFD\\X0\\"},
        {"('','it''s')", "('','it''s')"}, // an empty text, an apostrophe
        {"('x'',y'' )','z'',')", "('x''\\X\\2Cy'' \\X\\29','z''\\X\\2C')"},
        {"('x'\n',','')", "('x'\n'\\X\\2C','')"}, // a line that ends between two
        {"\x01\t\x7F", "\\X\\01\\X\\09\\X\\7F"},
    };
    for (const Case& c : cases)
        for (const bool isWhole : {true, false}) {
            std::stringbuf output;
            StepText text(output);
            if (isWhole)
                text.sputn(c.text.data(), static_cast<std::streamsize>(c.text.size()));
            else
                for (const char byte : c.text)
                    text.sputc(byte);
            EXPECT_TRUE(text.Finish());
            EXPECT_EQ(output.str(), c.encoded);
        }
}

} // namespace
