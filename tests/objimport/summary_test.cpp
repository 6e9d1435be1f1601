#include "objimport/summary.h"
#include "objimport/text_table.h"
#include "tests/objimport/sample_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

std::string Summary(const ConsoleDoc& doc, std::span<const ImportRecord> imports)
{
    return Written([&](TextOutput& output) { WriteSummary(output, imports, doc); });
}

TEST(Summary, ShowsWhatTheDocumentHolds)
{
    ConsoleDoc doc(0.001);
    FillSampleDocument(doc);
    ImportRecord failed;
    failed.file = "bad.obj";
    const ImportRecord imports[] = {SampleImport(), failed};
    EXPECT_EQ(Summary(doc, imports), R"(scäne.obj: imported
bad.obj: the import failed
5 objects: 1 mesh, 1 curve, 1 point, 1 point cloud, 1 brep; in meshes 4 vertices and 2 faces

1 mesh
  #  name           layer  groups       material  vertices  faces  n-gons  closed
  0  häuse\x1B\x0A  upper  wall, north  brick            4      2       1  no

1 curve
  #  name  layer    groups  material  order  points  rational  closed
  1  -     Default  -       -             3       3  yes       no

1 point
  #  name  layer    groups  material  x    y   z
  2  -     Default  -       -         1  2.5  -3

1 point cloud
  #  name  layer    groups  material  points
  3  -     Default  -       -              2

1 brep
  #  name  layer    groups  material  faces  loops  trims  orders  points
  4  -     Default  -       -             1      1      4  2 x 2   2 x 2

1 material
  #  name   diffuse    shine  transparency  textures
  0  brick  255,128,0    50%           25%  bitmap C:\models\wood.png

refused: 1
  curve: the curve has no knots

inconsistencies: 2
  mesh: Bogus. (2 times)

2 layers: Default, upper
2 groups: wall, north
)");
}

TEST(Summary, CutsLongLists)
{
    ConsoleDoc doc(0.001);
    GK_MdxObjectAttributes attributes;
    for (int i = 0; i < 5000; ++i) {
        attributes.AddToGroup(doc.GroupTable().AddGroup({GK_wString(std::to_wstring(i))}, false));
        doc.AddPointObject({}, attributes, nullptr, false);
    }
    GK_Material material;
    for (int i = 0; i < 5000; ++i)
        material.AddTexture({.filename = GK_wString(std::to_wstring(i))});
    doc.MaterialTable().AddMaterial(material, false);
    ImportRecord import;
    for (int i = 0; i < 5000; ++i)
        import.journal.refused.push_back({"loop", std::to_string(i % 2500), 1});
    const std::string text = Summary(doc, {&import, 1});
    EXPECT_THAT(text, HasSubstr("refused: 5,000\n"));
    EXPECT_THAT(text, HasSubstr("  loop: 19 (2 times: brep no. 1, 1)\n  ... and 4,960 more\n"));
    EXPECT_THAT(text, HasSubstr("5,000 objects: 5,000 points\n"));
    EXPECT_THAT(text, HasSubstr("  ... and 4,980 more\n"));
    EXPECT_THAT(text, HasSubstr("0, 1, 2 + 17"));
    EXPECT_THAT(text, HasSubstr("bitmap 0, bitmap 1, bitmap 2 + 4,997\n"));
    EXPECT_THAT(text, HasSubstr("18, 19 ... and 4,980 more\n"));
    EXPECT_LT(text.size(), 4000U);
}

TEST(TextTable, AlignsByWhatATerminalShows)
{
    TextTable table({{"#", TextTable::Align::Right}, {"name"}, {"last"}});
    table.AddRow({"9", "\xC3\xA4pfel", "x"});
    table.AddRow({"10", "\xE6\x9C\xA8", "y"});
    EXPECT_EQ(Written([&](TextOutput& output) { table.Write(output); }),
              "   #  name   last\n"
              "   9  \xC3\xA4pfel  x\n"
              "  10  \xE6\x9C\xA8     y\n");
}

TEST(TextTable, ShortensBetweenCharacters)
{
    EXPECT_EQ(Shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(Shortened("abcdefg", 6), "abc...");
    EXPECT_EQ(Shortened("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 4), "\xC3\xA4...");
    EXPECT_EQ(DisplayWidth("e\xCC\x81\xE6\x9C\xA8"), 3);
}

} // namespace
