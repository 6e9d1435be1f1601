#include "objimport/each_table.h"
#include "objimport/file_report.h"
#include "objimport/object_rows.h"
#include "objimport/summary.h"
#include "objimport/text_table.h"
#include "tests/objimport/sample_document.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <utility>

namespace {

using testing::HasSubstr;

std::string Summary(ConsoleDoc& doc, bool all = false)
{
    return Written(
        [&](TextOutput& output) { WriteSummary(Page(output, Page::UsualWidth, false, all), doc); });
}

std::string Report(const ImportRecord& import, const ConsoleDoc& doc, bool colours = false)
{
    return Written([&](TextOutput& output) {
        WriteFileReport(Page(output, Page::UsualWidth, colours), import, doc);
    });
}

void ExpectWidth(const std::string& text, int width)
{
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(DisplayWidth(line), width) << line;
}

TEST(Summary, ShowsWhatTheDocumentHolds)
{
    ConsoleDoc doc(0.001);
    FillSampleDocument(doc);
    std::string shown = Summary(doc);
    const std::string path = Utf8(std::filesystem::path("C:/models/wood.png").make_preferred());
    shown.replace(shown.find(path), path.size(), "C:/models/wood.png");
    EXPECT_EQ(shown, R"(5 objects: 1 mesh, 1 curve, 1 point, 1 point cloud, 1 brep
in meshes: 4 vertices, 1 face (1 n-gon)
size: 10 x 5 x 1e+22, from (0, 0, -3) to (10, 5, 1e+22)

1 mesh
  #  name      layer  groups    material  vertices  faces  n-gons  has    closed
  0  häuse...  upper  wall,...  brick            4      1       1  t n c  no
  has: t texture coordinates, n normals, c colours

1 curve
  #  layer    order  points  rational  closed
  1  Default      3       3  yes       no

1 point
  #  layer    x    y   z
  2  Default  1  2.5  -3

1 point cloud
  #  layer    points
  3  Default       2

1 brep
  #  layer    faces  loops  trims  orders  points
  4  Default      1      1      4  2 x 2   2 x 2

1 material
  #  name   diffuse    shine  transparency
  0  brick  255,128,0    50%           25%

1 texture
  material  kind             file
  brick     bitmap  missing  C:/models/wood.png

2 layers: Default, upper
2 groups: wall, north
)");
}

TEST(Summary, CutsLongListsUnlessAllAreAskedFor)
{
    ConsoleDoc doc(0.001);
    GK_MdxObjectAttributes attributes;
    for (int i = 0; i < 2000; ++i) {
        attributes.AddToGroup(
            doc.GroupTable().AddGroup({GK_wString(L"group " + std::to_wstring(i))}, false));
        doc.AddPointObject({}, attributes, nullptr, false);
    }
    const std::wstring longName(300, L'n');
    GK_Material material;
    material.SetName(GK_wString(longName));
    for (int i = 0; i < 2000; ++i)
        material.AddTexture({.filename = GK_wString(std::wstring(100, L'x') + std::to_wstring(i))});
    doc.MaterialTable().AddMaterial(material, false);
    const std::string text = Summary(doc);
    for (const char* part : {"2,000 objects: 2,000 points\n", "group 0, group 1, group 2 + 17",
                             "  ... and 1,980 more; --all shows them\n", "2,000 textures\n",
                             "2,000 groups: group 0, group 1", "group 19 ... and 1,980 more\n"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_LT(text.size(), 10'000U);
    ExpectWidth(text, Page::UsualWidth);

    const std::string all = Summary(doc, true);
    EXPECT_THAT(all, HasSubstr("group 1999\n"));
    EXPECT_THAT(all, HasSubstr("group 30, group 31, group 32  "));
    EXPECT_THAT(all, HasSubstr("  0  " + std::string(300, 'n') + "  "));
    EXPECT_THAT(all, HasSubstr(std::string(100, 'x') + "1999"));
    EXPECT_THAT(all, testing::Not(HasSubstr("more; --all")));
}

TEST(FileReport, ReportsOutcomeAndLosses)
{
    ConsoleDoc doc(0.001);
    FillSampleDocument(doc);
    ImportRecord import = SampleImport();
    import.objectCount = 5;
    import.unread.keywords = {{"l", 12}, {"\x1B", 1}, { "", 7 }};
    import.unread.materials = {"brick", "tin", "wood"};
    import.unread.faces = 1201;
    import.unread.changedNames = 1;
    EXPECT_EQ(Report(import, doc), R"(scäne.obj: imported, 5 objects
  refused: 1
    curve: the curve has no knots
  inconsistencies: 2
    mesh: Bogus. (2 times)
  not read: 12 lines (l), 1 line (\x1B), 7 lines (...); --check names them
  1,200 faces of the file were not imported; --check says why
  1 name changes; --check names it
  2 materials wanted, but defined by no library: tin, wood
)");
    EXPECT_THAT(Report(import, doc, true), HasSubstr("\x1B[33m  refused: 1\n\x1B[0m    curve"));

    ImportRecord failed;
    failed.file = "bad.obj";
    failed.unread.end = {1044, 1, 1043, {{L"\"%s\" is wrong", 0}, {"v\x1B"}}};
    EXPECT_EQ(Report(failed, doc),
              "bad.obj: the import failed, 0 objects\n"
              "  reading ended at line 1,043: \"v\\x1B\" is wrong; 1 line after "
              "it was not read\n"
              "  --check says why\n");
    failed.unread = {};
    failed.journal.cancelled = true;
    EXPECT_EQ(Report(failed, doc), "bad.obj: cancelled, 0 objects\n");
}

TEST(FileReport, CutsLongListsOfRefusals)
{
    const ConsoleDoc doc(0.001);
    ImportRecord import;
    for (int i = 0; i < 5000; ++i)
        import.journal.refused.push_back({"loop", std::to_string(i % 2500), 1});
    const std::string text = Report(import, doc);
    EXPECT_THAT(text, HasSubstr("refused: 5,000\n"));
    EXPECT_THAT(text, HasSubstr("    loop: 19 (2 times: brep no. 1, 1)\n"
                                "    ... and 4,960 more; --all shows them\n"));
}

TEST(FileReport, CountsTextsThatAreNotNextToEachOther)
{
    const ConsoleDoc doc(0.001);
    ImportRecord import;
    for (int i = 0; i < 6; ++i) {
        import.journal.kernelErrors.push_back({"mesh", i % 2 == 0 ? "Bogus.\n" : "Odd.\n", 2});
        import.journal.refused.push_back({i % 2 == 0 ? "mesh" : "curve", "out of memory", i + 1});
    }
    import.journal.refusedNames = {{ 2, "wall\n" }};
    const std::string text = Report(import, doc);
    EXPECT_THAT(text, HasSubstr("  refused: 6\n"
                                "    mesh: out of memory (3 times: no. 1, 3 \"wall\\x0A\", 5)\n"
                                "    curve: out of memory (3 times: no. 2, 4, 6)\n"
                                "  inconsistencies: 12\n"
                                "    mesh: Bogus. (6 times)\n"
                                "    mesh: Odd. (6 times)\n"));
}

TEST(EachTable, TellsLossesFromNotes)
{
    const ConsoleDoc doc(0.001);
    ImportRecord import;
    import.file = "a.obj";
    import.result = true;
    import.unread.keywords = {{"s", 100}, { "l", 3 }};
    import.unread.end = {1044, 20, 1043, {}};
    EachTable table;
    table.AddImport(import, doc, true);
    import.unread = {};
    import.unread.keywords = {{ "s", 100 }};
    table.AddImport(import, doc, true);
    EXPECT_EQ(Written([&](TextOutput& output) { table.Write(Page(output)); }),
              "2 files\n"
              "  file   outcome   objects  lost\n"
              "  a.obj  imported        0  ended at line 1,043, 23 lines\n"
              "  a.obj  imported        0  -\n");
}

TEST(Page, BreaksLinesBetweenWords)
{
    const auto shown = [](const std::string& text) {
        return Written([&](TextOutput& output) { Page(output, 12).Line(text); });
    };
    EXPECT_EQ(shown(""), "\n");
    EXPECT_EQ(shown("123456789 12"), "123456789 12\n");
    EXPECT_EQ(shown("123456789 123"), "123456789\n    123\n");
    EXPECT_EQ(shown("  a 12345678901234 b c"), "  a\n    12345678901234\n    b c\n");
    EXPECT_EQ(shown("12345678901234 b"), "12345678901234\n    b\n");
}

TEST(Coordinate, HasTheDigitsThatItHas)
{
    const std::pair<double, const char*> cases[] = {{0.0, "0"},
                                                    {static_cast<double>(0.1F), "0.1"},
                                                    {0.1, "0.1"},
                                                    {123456.789, "123456.789"},
                                                    {static_cast<double>(16777216.0F), "16777216"},
                                                    {-1234567890.125, "-1234567890.125"},
                                                    {1.0 / 3.0, "0.3333333333333333"},
                                                    {1e300, "1e+300"},
                                                    {2.5e-7, "2.5e-07"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(Coordinate(value), text);
}

TEST(Extent, HasNoDigitsThatTheCoordinatesLack)
{
    const auto single = [](float value) { return static_cast<double>(value); };
    EXPECT_EQ(Extent(single(5000.1F), single(5000.3F)), "0.2");
    EXPECT_EQ(Extent(single(-0.123456F), single(12.5F)), "12.6235");
    EXPECT_EQ(Extent(single(1234567.5F), 7654321.0), "6.41975e+06");
    EXPECT_EQ(Extent(-3, 1e22), "1e+22");
    EXPECT_EQ(Extent(2.5e-7, 5e-7), "2.5e-07");
    EXPECT_EQ(Extent(0, 1.0 / 3.0), "0.333333");
    EXPECT_EQ(Extent(-1e308, 1.5e308), "inf");
    EXPECT_EQ(Extent(3, 3), "0");
}

TEST(TextTable, AlignsByWhatATerminalShows)
{
    TextTable table({{"#", TextTable::Align::Right}, {"name"}, {"last"}});
    table.AddRow({"9", "\xC3\xA4pfel", "x"});
    table.AddRow({"10", "\xE6\x9C\xA8", "y"});
    EXPECT_EQ(Written([&](TextOutput& output) { table.Write(output, 80); }),
              "   #  name   last\n"
              "   9  \xC3\xA4pfel  x\n"
              "  10  \xE6\x9C\xA8     y\n");
}

TEST(TextTable, CutsTheWidestColumnsToFitAPage)
{
    using Cut = TextTable::Cut;
    constexpr auto Left = TextTable::Align::Left;
    const auto shown = [&](int width) {
        TextTable table({{"a", Left, Cut::AtEnd}, {"b", Left, Cut::InMiddle}, {"c"}, {"d"}});
        table.AddRow({"123456", "/folder/of/a/file.png", "", "never cut"});
        table.LeaveOutColumnsOf("");
        return Written([&](TextOutput& output) { table.Write(output, width); });
    };
    EXPECT_EQ(shown(80), "  a       b                      d\n"
                         "  123456  /folder/of/a/file.png  never cut\n");
    EXPECT_EQ(shown(32), "  a       b            d\n"
                         "  123456  /f...le.png  never cut\n");
    EXPECT_EQ(shown(5), "  a       b       d\n"
                        "  123456  /...ng  never cut\n");
}

TEST(TextTable, ShortensBetweenCharacters)
{
    EXPECT_EQ(Shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(Shortened("abcdefg", 6), "abc...");
    EXPECT_EQ(Shortened("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 4), "\xC3\xA4...");
    EXPECT_EQ(ShortenedInMiddle("abcdefghijkl", 12), "abcdefghijkl");
    EXPECT_EQ(ShortenedInMiddle("abcdefghijkl", 9), "ab...ijkl");
    EXPECT_EQ(ShortenedInMiddle("\xE6\x9C\xA8\xE6\x9C\xA8\xE6\x9C\xA8\xE6\x9C\xA8", 7),
              "...\xE6\x9C\xA8\xE6\x9C\xA8");
    EXPECT_EQ(DisplayWidth("e\xCC\x81\xE6\x9C\xA8"), 3);
}

} // namespace
