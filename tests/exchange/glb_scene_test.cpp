// What a GLB says of objects of every kind.

#include "objimport/exchange/glb_notes.h"
#include "objimport/exchange/write_form.h"
#include "tests/exchange/document_builder.h"
#include "tests/exchange/glb_reading.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(GlbScene, AnEmptyDocumentIsAFileWithoutAScene)
{
    const DocumentBuilder builder;
    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_TRUE(glb.model.scenes.empty() && glb.model.nodes.empty() && glb.model.buffers.empty());
    EXPECT_EQ(glb.outcome.contents, "0 objects with 0 vertices and 0 triangles");
    EXPECT_THAT(glb.outcome.losses, ElementsAre());
}

TEST(GlbScene, NamesHoldEveryCharacter)
{
    DocumentBuilder builder;
    std::wstring all;
    for (wchar_t character = 1; character < 0x3000; ++character)
        all += character;
    const std::wstring names[] = {all, std::wstring(1, wchar_t{0xD800}) + L"x",
                                  std::wstring(1, wchar_t{0xDC00}), L"\U0001F600", L"\uFFFF"};
    const std::string expected[] = {GK_wString(all).Utf8(), "\xEF\xBF\xBDx", "\xEF\xBF\xBD",
                                    "\xF0\x9F\x98\x80", "\xEF\xBF\xBF"};
    for (const std::wstring& name : names) {
        builder.attributes.name = GK_wString(name);
        builder.AddMesh(MakeTriangle());
    }
    const ReadGlb glb = WriteAndRead(builder.View({{{"bad\xFFname", 0}}, false}));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_TRUE(glb.Node(i).name == expected[i]) << i;
    EXPECT_EQ(glb.Node(0).extras.Get("source").Get<std::string>(), "bad\xEF\xBF\xBDname");
}

TEST(GlbScene, ObjectsSayWhichFileTheyCameFromAndTheLayersAboveTheirs)
{
    DocumentBuilder builder;
    GK_Layer outer;
    outer.name = L"outer";
    const int outerIndex = builder.doc.LayerTable().AddLayer(outer, false);
    GK_Layer inner;
    inner.name = L"inner";
    inner.parentId = builder.doc.Layers()[outerIndex].id;
    builder.AddPoint({0, 0, 0});
    builder.attributes.layerIndex = builder.doc.LayerTable().AddLayer(inner, false);
    builder.AddPoint({0, 0, 0});
    // The second file holds nothing.
    const ReadGlb glb = WriteAndRead(builder.View({{{"a", 0}, {"b", 1}, {"c", 1}}, false}));
    EXPECT_EQ(glb.Node(0).extras.Get("source").Get<std::string>(), "a");
    EXPECT_EQ(glb.Node(1).extras.Get("source").Get<std::string>(), "c");
    EXPECT_FALSE(glb.Node(0).extras.Has("layerPath"));
    const tinygltf::Value path = glb.Node(1).extras.Get("layerPath");
    ASSERT_EQ(path.ArrayLen(), 2U);
    EXPECT_EQ(path.Get(0).Get<std::string>(), "outer");
    EXPECT_EQ(path.Get(1).Get<std::string>(), "inner");
}

TEST(GlbScene, NamesThatRepeatVeryOftenAreLeftOutAtSomePoint)
{
    DocumentBuilder builder;
    for (int i = 0; i < 1000; ++i)
        builder.attributes.AddToGroup(builder.doc.GroupTable().AddGroup(
            {GK_wString(std::string_view(std::string(900, 'g')))}, false));
    for (int i = 0; i < 100; ++i)
        builder.AddPoint({0, 0, 0});
    const ExchangeDocument document = builder.View();
    GlbNotes notes(document);
    EXPECT_EQ(notes.NotesFor(0).Get("groups").ArrayLen(), 1000U);
    for (std::size_t i = 1; i < 99; ++i)
        notes.NotesFor(i); // which may be thrown away
    EXPECT_FALSE(notes.NotesFor(99).Has("groups"));
    std::vector<std::string> losses;
    notes.AddLosses(losses);
    EXPECT_THAT(losses, ElementsAre(HasSubstr("the groups of 31 objects are left out")));
}

TEST(GlbScene, ADocumentWithZUpIsTurnedByItsRoot)
{
    DocumentBuilder builder;
    builder.AddMesh(MakeTriangle());
    const ReadGlb glb = WriteAndRead(builder.View({{}, true}));
    ASSERT_EQ(glb.model.nodes.size(), 2U);
    EXPECT_THAT(glb.model.scenes.at(0).nodes, ElementsAre(1));
    EXPECT_THAT(glb.Node(1).children, ElementsAre(0));
    // A unit quaternion whose turn takes (0, 0, 1) to (0, 1, 0).
    const std::vector<double>& q = glb.Node(1).rotation;
    ASSERT_EQ(q.size(), 4U);
    EXPECT_NEAR(2.0 * (q[1] * q[2] - q[0] * q[3]), 1.0, 1e-12);
}

TEST(GlbScene, DigitsAreKeptFarFromTheOrigin)
{
    for (const bool isZUp : {false, true}) {
        DocumentBuilder builder;
        const GK_3dPoint corner{4'000'000.125, -500'000.25, 30.0};
        builder.AddMesh(MakeMesh(
            {corner, {4'000'001.0, -500'000.25, 30.0}, {4e6, -500'002.0, 31.0}}, {{{0, 1, 2, 2}}}));
        builder.AddPoint(corner);
        const ReadGlb glb = WriteAndRead(builder.View({{}, isZUp}));
        ASSERT_EQ(glb.model.nodes.size(), 3U);
        const auto local = glb.Attribute(glb.Node(0), "POSITION").at(0);
        const std::vector<double>& moved = glb.Node(2).translation;
        ASSERT_EQ(moved.size(), 3U);
        const std::vector<double>& point = glb.Node(1).translation;
        const double up = isZUp ? local[2] : local[1];
        EXPECT_EQ(local[0] + moved[0], corner.x);
        EXPECT_EQ(up + moved[1], isZUp ? corner.z : corner.y);
        EXPECT_THAT(point, ElementsAre(local[0], local[1], local[2]));
    }
}

TEST(GlbScene, NumbersBeyondSinglePrecisionStandAtItsLimits)
{
    constexpr double Most = std::numeric_limits<float>::max();
    DocumentBuilder builder;
    builder.AddMesh(MakeMesh({{1e300, 0, 0}, {0, -1e300, 0}, {0, 0, 1}}, {{{0, 1, 2, 2}}}));
    builder.AddPoint({1e308, 0, 0});
    const ReadGlb glb = WriteAndRead(builder.View());
    const auto positions = glb.Attribute(glb.Node(0), "POSITION");
    EXPECT_EQ(positions[0][0], Most);
    EXPECT_EQ(positions[1][1], -Most);
    EXPECT_THAT(glb.outcome.losses,
                ElementsAre(HasSubstr("2 coordinates lie beyond single precision")));
}

TEST(GlbScene, NormalsAreMadeUnitAndColoursLinear)
{
    DocumentBuilder builder;
    auto mesh = MakeTriangle();
    mesh->normals = {{0, 0, 0}, {0, 3e30F, 4e30F}, {1, 0, 0}};
    mesh->colors = {{255, 0, 188}, {0, 255, 0}, {0, 0, 255}};
    builder.AddMesh(std::move(mesh));
    const ReadGlb glb = WriteAndRead(builder.View());
    const auto normals = glb.Attribute(glb.Node(0), "NORMAL");
    EXPECT_EQ(normals[0][2], 1.0);
    EXPECT_NEAR(normals[1][2], 0.8, 1e-6);
    const auto colors = glb.Attribute(glb.Node(0), "COLOR_0");
    EXPECT_EQ(colors[0][0], 65535.0);
    EXPECT_NEAR(colors[0][2] / 65535.0, 0.5029, 1e-4); // a screen shows half the light at 188
    EXPECT_EQ(colors[0][3], 65535.0);
}

TEST(GlbScene, QuadsAreCutAlongTheirInnerDiagonal)
{
    DocumentBuilder builder;
    // A square, and an arrow head whose notch is its second corner.
    builder.AddMesh(MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.2, 0.2, 0}},
                             {{{0, 1, 2, 3}}, {{1, 4, 3, 2}}}));
    const ReadGlb glb = WriteAndRead(builder.View());
    const auto positions = glb.Attribute(glb.Node(0), "POSITION");
    const auto corners = glb.Values(glb.PrimitiveOf(glb.Node(0)).indices);
    std::vector<double> areas;
    for (std::size_t i = 0; i < corners.size(); i += 3) {
        const auto at = [&](std::size_t k) { return positions[std::size_t(corners[i + k][0])]; };
        areas.push_back((at(1)[0] - at(0)[0]) * (at(2)[1] - at(0)[1]) -
                        (at(2)[0] - at(0)[0]) * (at(1)[1] - at(0)[1]));
    }
    ASSERT_EQ(areas.size(), 4U);
    EXPECT_NEAR(areas[0] + areas[1], 2.0, 1e-6);
    EXPECT_LT(areas[2], 0.0);
    EXPECT_LT(areas[3], 0.0);
    EXPECT_NEAR(areas[2] + areas[3], -1.6, 1e-6);
}

TEST(GlbScene, IndicesTake32BitsWhere16DoNotReach)
{
    for (const auto& [count, component] :
         {std::pair{65535, TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT},
          std::pair{65536, TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT}}) {
        DocumentBuilder builder;
        std::vector<GK_3dPoint> positions;
        for (int i = 0; i < count; ++i)
            positions.push_back({static_cast<double>(i), static_cast<double>(i % 7), 0});
        builder.AddMesh(MakeMesh(positions, {{{0, 1, count - 1, count - 1}}}));
        builder.AddMesh(MakeTriangle());
        const ReadGlb glb = WriteAndRead(builder.View());
        const int indices = glb.PrimitiveOf(glb.Node(0)).indices;
        EXPECT_EQ(glb.model.accessors[static_cast<std::size_t>(indices)].componentType, component);
        EXPECT_EQ(glb.Values(indices).at(2)[0], count - 1);
        EXPECT_EQ(glb.Attribute(glb.Node(1), "POSITION").size(), 3U);
    }
}

TEST(GlbScene, FacesWithCornersThatAreNotThereAreNotDrawn)
{
    DocumentBuilder builder;
    builder.AddMesh(MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                             {{{0, 1, 3, 3}}, {{0, 1, -1, 2}}, {{0, 1, 2, 2}}}));
    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_EQ(glb.Values(glb.PrimitiveOf(glb.Node(0)).indices).size(), 3U);
}

TEST(GlbScene, FormsThatCannotBeWrittenSayWhy)
{
    const DocumentBuilder builder;
    const ExchangeDocument document = builder.View();
    for (const ExchangeForm form : {ExchangeForm::Step, ExchangeForm::Picture}) {
        const char* why = WhyFormIsMissing(form);
        if (why == nullptr)
            continue;
        ExchangeOutcome outcome;
        std::FILE* stream = std::tmpfile();
        WriteForm({form, &document, {}, stream}, outcome);
        EXPECT_EQ(outcome.error, why);
        EXPECT_EQ(std::ftell(stream), 0);
        std::fclose(stream);
    }
}

#ifdef __linux__
TEST(GlbScene, AFullDiskIsAnError)
{
    DocumentBuilder builder;
    builder.AddMesh(MakeTriangle());
    const ExchangeDocument document = builder.View();
    std::FILE* stream = std::fopen("/dev/full", "wb");
    ExchangeOutcome outcome;
    WriteForm({ExchangeForm::Glb, &document, {}, stream}, outcome);
    std::fclose(stream);
    EXPECT_EQ(outcome.error, "No space left on device");
}
#endif

} // namespace
