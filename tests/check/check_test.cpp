#include "console_host/runtime/native_path.h"
#include "objimport/check/raw_line.h"
#include "objimport/check_text.h"
#include "tests/check/checked_text.h"
#include "tests/temporary_folder.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>

namespace {

using namespace std::string_literals;
using testing::ElementsAreArray;

struct Case
{
    std::string text;
    std::vector<std::string> findings; ///< without "a.obj:"
};

constexpr const char* Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

void ExpectFindings(const std::vector<Case>& cases)
{
    const TemporaryFolder folder;
    folder.Write("here.mtl", "newmtl red\n");
    folder.Write("Case.mtl", "newmtl Blue\nmap_Kd wood.png\n");
    folder.Write("wood2.png", "");
    for (const Case& each : cases) {
        const auto path = folder.Write("a.obj", each.text);
        std::vector<std::string> expected;
        for (const std::string& finding : each.findings)
            expected.push_back(finding.find(".mtl:") < finding.find(' ') ? finding
                                                                         : "a.obj:" + finding);
        EXPECT_THAT(CheckedFile(path).Lines(), ElementsAreArray(expected)) << each.text;
    }
}

TEST(Check, CountsPhysicalLines)
{
    const std::string bad = "f 1 2 9\n";
    const std::string finding =
        "bad-index: the corner \"9\" names no vertex and is left out: 3 were read before";
    ExpectFindings({
        {Triangle + bad, {"5: " + finding}},
        {"v 0 0 0\r\nv 1 0 0\r\n\r\nv 0 1 0\r\nf 1 2 3\r\n" + bad, {"6: " + finding}},
        {"v 0 0 0\rv 1 0 0\r# c\rv 0 1 0\rf 1 2 3\r" + bad, {"6: " + finding}},
        {"v 0 0 \\\n0\nv 1 0 0\nv 0 1 0\nf 1 \\\r\n2 \\\r\n3\n" + bad, {"8: " + finding}},
        {"v 0 0 0\0v 1 0 0\nv 0 1 0\0\nf 1 2 3\n"s + bad, {"6: " + finding}},
        {Triangle + "f 1 2\\\n 9"s, {"5: " + finding}},
    });
}

TEST(Check, ReportsWhereAndWhyReadingEnds)
{
    struct Row
    {
        const char* lines;
        std::size_t line;
        const char* why;
        int unread = 3;
    };
    const std::array rows{
        Row{"v 1 2\n", 5, "\"v\" needs 3 numbers", 3},
        Row{"v 1 x 2\n", 5, "\"x\" is not a number", 3},
        Row{"vt 1\n\n", 5, "\"vt\" needs 2 numbers", 4},
        Row{"vn 1 \\\n2\n", 5, "\"vn\" needs 3 numbers", 3},
        Row{"p\n", 5, "\"p\" names no vertex", 3},
        Row{"cstype nurbs\n", 5, "\"nurbs\" is not a form of curves and surfaces", 3},
        Row{"deg three\n", 5, "\"three\" is not a number", 3},
        Row{"curv 0 1 1 2\n", 5, "no \"cstype\" before \"curv\" names a form", 3},
        Row{"cstype taylor\ncurv 0 1 1 2\n", 6,
            "curves and surfaces of the form \"taylor\" are not supported", 3},
        Row{"cstype bezier\nsurf 0 1 0 x 1\n", 6, "\"x\" is not a number", 3},
        Row{"cstype bspline\ndeg 1\ncurv 0 1 1 2\nparm u 0 1 2\n", 8,
            "the curve needs 2 knots, or two more, and \"parm\" has 3", 3},
        Row{"cstype bspline\ncurv 0 1 1 2\nparm v 0 1\n", 7,
            "\"parm\" does not fit: \"v\" is not its direction", 3},
        Row{"trim 0 1 1\n", 5, "there is no curve or surface that \"trim\" could belong to", 3},
    };
    const TemporaryFolder folder;
    for (const Row& row : rows) {
        const std::string text = Triangle + std::string(row.lines) + "f 1 2 3\n\n# last";
        const std::string expected = "a.obj:" + std::to_string(row.line) +
                                     ": ends-parse: reading ends here: " + row.why +
                                     "; lines that are not read: " + std::to_string(row.unread);
        EXPECT_THAT(CheckedFile(folder.Write("a.obj", text)).Lines(), testing::Contains(expected))
            << text;
    }
}

TEST(Check, ReportsWhatIsNotRead)
{
    ExpectFindings({
        {Triangle + "s off\ns 1\nl 1 2\ns 2\nL 2 3\nend\nsomething else\n"s,
         {"6: not-read: lines with \"s\" are not read (2 in all): they hold no geometry",
          "7: not-read: lines with \"l\" are not read (2 in all): their geometry is lost",
          "11: unknown-statement: lines with \"something\" are not read (1 in all): no such "
          "statement is known"}},
        {"v 0 0 0\nl 1 1\n",
         {"0: no-geometry: the file holds no faces, points, curves or surfaces that are imported",
          "2: not-read: lines with \"l\" are not read (1 in all): their geometry is lost"}},
        {"\xFF\xFEv\0 \0"s,
         {"0: no-text: the file is UTF-16 text, which is not read; save it as UTF-8",
          "0: no-geometry: the file holds no faces, points, curves or surfaces that are imported",
          "1: ends-parse: reading ends here: \"v\" needs 3 numbers; lines that are not read: 1"}},
        {"PK\x03\x04",
         {"0: no-text: the file is not OBJ text but an archive",
          "0: no-geometry: the file holds no faces, points, curves or surfaces that are imported",
          "1: unknown-statement: lines with \"PK\" are not read (1 in all): no such statement is "
          "known"}},
    });
}

TEST(Check, ReportsWhatIsWrongWithFacesAndPoints)
{
    const std::string refused = "5: refused-face: the face is refused: ";
    ExpectFindings({
        {Triangle + "f 1 2\n"s, {refused + "it has fewer than three corners (2)"}},
        {Triangle + "vn 0 0 1\nf 1 2 3//1\n"s,
         {"6: refused-face: the face is refused: the corner \"3//1\" has other fields than those "
          "before it"}},
        {Triangle + "f 1 1 1/1/1/1\n"s,
         {refused + "the corner \"1/1/1/1\" has more than three fields"}},
        {Triangle + "f 1 2 3 # wall\n"s,
         {"5: bad-index: the corner \"#\" names no vertex and is left out: a comment after a "
          "statement "
          "is read as corners",
          "5: bad-index: the corner \"wall\" names no vertex and is left out: 3 were read before"}},
        {Triangle + "f 1 2 2\n"s,
         {"5: flat-face: the face is dropped: fewer than three of its corners lie apart"}},
        {Triangle + "v 2 0 0\nv 3 0 0\nv 4 0 0\nf 1 2 4 5 6\n"s,
         {"8: flat-face: the face has no area: its corners lie on a line"}},
        {Triangle + "v nan 0 0\nf 1 2 3 4\nf 2 3 4\np 4\np 4 1\n"s,
         {"5: not-finite: the vertex is not finite: what uses it is refused",
          "6: mesh-refused: the mesh \"\" is refused: this face uses a vertex that is not finite",
          "8: point-refused: the point is refused: its vertex is not finite",
          "9: point-refused: the point cloud is refused: a vertex of it is not finite"}},
        {Triangle + "vt 0 0\nvt 1 0\nvt 0 1\ng wall\nf 1/1 2/2 3/3\nf 3 2 1\n"s,
         {"10: partial-values: the mesh \"wall\" gets no texture coordinates: from here on some "
          "corners have them and some have not"}},
        {"v 0 0 0 1 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n",
         {"0: partial-values: 1 of 3 vertices have a colour: colours get lost or onto other "
          "vertices"}},
        {Triangle + "f 0/1 2/2 3\n"s,
         {"5: bad-index: the corner \"0/1\" names no vertex and is left out: 3 were read before",
          "5: bad-index: the corner \"2/2\" names no texture coordinate and gets none: 0 were read "
          "before",
          "5: refused-face: the face is refused: the corner \"3\" has other fields than those "
          "before it"}},
    });
}

TEST(Check, ReportsWhatSinglePrecisionChanges)
{
    ExpectFindings({
        {"v 1234567.891 0 0\nv 123456.78 0 0\nv 0 -98765.4321 1\nf 1 2 3\n",
         {"1: precision: the coordinate 1234567.891 becomes 1234567.875 in single precision",
          "2: precision: the coordinate 123456.78 becomes 123456.78125 in single precision",
          "3: precision: the coordinate -98765.4321 becomes -98765.4296875 in single precision"}},
        {"v\t1234567.891 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\n",
         {"1: precision: the coordinate 1234567.891 becomes 1234567.875 in single precision"}},
        {"v 1234567.875 0 0\nv 0 1 0\nv 0.1 0.123456789 1\nf 1 2 3\n", {}},
    });
}

TEST(Check, ReportsWhatIsWrongWithCurvesAndSurfaces)
{
    const std::string points = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n";
    const std::string surface =
        points + "cstype bspline\ndeg 1 1\nsurf 0 1 0 1 1 2 3 4\nparm u 0 0 1 1\n";
    const std::string whole = surface + "parm v 0 0 1 1\n";
    const std::string trims =
        "vp 0 0\nvp 1 0\nvp 1 1\nvp 0 1\ncstype bspline\ndeg 1\n"
        "curv2 1 2 3 4 1\nparm u 0 0 1 2 3 4 4\ncurv2 1 2 3\nparm u 0 0 1 2 2\n";
    const std::string trimmed =
        points + trims + "deg 1 1\nsurf 0 1 0 1 1 2 3 4\nparm u 0 0 1 1\nparm v 0 0 1 1\n";
    ExpectFindings({
        {whole, {}},
        {trimmed + "trim 0 4 1\n", {}},
        {trimmed + "trim 0 2 2 3 2 1 3 4 1\n", {}},
        {surface,
         {"0: no-geometry: the file holds no faces, points, curves or surfaces that are "
          "imported",
          "7: surface-unfinished: the surface is not finished and is refused: there is "
          "no \"parm v\""}},
        {trimmed + "trim 0 2 2\n",
         {"0: no-geometry: the file holds no faces, points, curves or surfaces that are imported",
          "19: open-loop: the surface is refused: its loop does not close between trim 1 and trim "
          "1"}},
        {trimmed + "trim 0 4 1\nhole 0 2 2\n",
         {"20: open-loop: the hole is dropped: it does not close between trim 1 and trim 1"}},
        {points + "cstype bspline\ndeg 3\ncurv 0 1 1 2\np 1\n",
         {"7: curve-refused: the curve is refused: it has 2 control points; 4 are needed"}},
        {points + "cstype bspline\ndeg 1\ncurv 0 1 1 2\nparm u 0 0 -1 -1\np 1\n",
         {"7: curve-refused: the curve is refused: its knots decrease from 0 to -1"}},
        {points + "v 0 0 1 -2\ncstype rat bspline\ndeg 1\ncurv 0 1 1 5\nparm u 0 0 1 1\np 1\n",
         {"8: curve-refused: the curve is refused: the weight -2 of control point 2 is not "
          "positive"}},
    });
}

TEST(Check, ReportsWhichNamesChange)
{
    ExpectFindings({
        {Triangle + "g a b\ng \xC3\x9C"s + "ber b\no front  door\no front door\no front  door\n",
         {"6: name-changed: the name \"\xC3\x9C"s + "ber b\" becomes \"ber b\"",
          "7: name-changed: the name \"front  door\" becomes \"front door\""}},
        {Triangle + "o C:\\a  b \nmtllib here.mtl\nusemtl red\nusemtl green\nusemtl RED\n"s,
         {"8: material-undefined: no library defines the material \"green\"",
          "9: material-undefined: no library defines the material \"RED\"; there is one named "
          "\"red\""}},
        {Triangle + "mtllib a.mtl b.mtl\nmtllib none.mtl\n"s,
         {"5: library-missing: the library \"a.mtl b.mtl\" is not found: all words count as one "
          "name",
          "6: library-missing: the library \"none.mtl\" is not found: its materials are missing"}},
    });
}

TEST(Check, ReadsLibraries)
{
    const TemporaryFolder folder;
    folder.Write("wood2.png", "");
    folder.Write("Maps/Stone.PNG", "");
    // Some systems ignore blanks at the end of a name.
    const bool findsBlank = std::filesystem::exists(folder / "wood2.png ");
    folder.Write("b.mtl", "newmtl red\r\nKd 1 x 0\r\nNs shiny\r\nTr 0.5\r\nillum 2\r\nkind of\r\n"
                          "map_Kd wood 2.png\r\nmap_Kd wood 3.png\r\nmap_Kd -s 1 1 wood2.png\r\n"
                          "bump wood2.png\r\nmap_d none.png\r\nnewmtl red\r\nKa 1\r\nKd 1 1 1\r\n");
    const auto path = folder.Write("a.obj", Triangle + "mtllib b.mtl\nmtllib b.mtl\nusemtl red\n"s);
    std::vector<std::string> expected{
        "b.mtl:2: number-ignored: \"x\" is not a number: 1 is used instead",
        "b.mtl:3: number-ignored: \"Ns\" is ignored: no number follows",
        "b.mtl:4: not-read: lines with \"Tr\" are not read (1 in all): transparency is taken from "
        "\"d\"",
        "b.mtl:5: not-read: lines with \"illum\" are not read (1 in all): imported materials have "
        "no such property",
        "b.mtl:6: unknown-statement: lines with \"kind\" are not read (1 in all): no such "
        "statement is known",
        "b.mtl:7: texture-name: the texture \"wood 2.png\" becomes \"wood2.png\", which is there",
        "b.mtl:8: texture-name: the texture \"wood 3.png\" becomes \"wood3.png\", which is not "
        "there",
        "b.mtl:9: texture-name: the options of the texture \"-s 1 1 wood2.png\" are taken for a "
        "part of its name, which becomes \"-s11wood2.png\"",
        "b.mtl:11: texture-missing: the texture \"none.png\" is not there",
        "b.mtl:12: material-repeated: the material \"red\" is defined again: the first definition "
        "holds, " +
            Utf8(folder / "b.mtl") + ":1",
        "b.mtl:13: library-ends: reading of the library ends here: \"Ka\" has no colour; lines "
        "that are not read: 1"};
    if (!findsBlank)
        expected.insert(
            std::find_if(expected.begin(), expected.end(),
                         [](const std::string& line) { return line.starts_with("b.mtl:11:"); }),
            "b.mtl:10: texture-name: the texture \"wood2.png\" is not found: after \"bump\" its "
            "name "
            "gets a blank at its end; \"map_bump\" takes it as it is");
    EXPECT_THAT(CheckedFile(path).Lines(), ElementsAreArray(expected));
}

TEST(Check, ReportsWhatLibrariesLose)
{
    const TemporaryFolder folder;
    folder.Write("b.mtl", "newmtl red\nMap_Ks a.png\nmap_ks b.png\nnorm c.png\nKe 1 1 1\n");
    const auto path = folder.Write("a.obj", Triangle + "mtllib b.mtl\n"s);
    const std::vector<std::string> expected{
        "b.mtl:2: not-read: lines with \"Map_Ks\" are not read (2 in all): their textures are lost",
        "b.mtl:4: not-read: lines with \"norm\" are not read (1 in all): their textures are lost",
        "b.mtl:5: not-read: lines with \"Ke\" are not read (1 in all): imported materials have no "
        "such property"};
    EXPECT_THAT(CheckedFile(path).Lines(), ElementsAreArray(expected));
}

/// Finds libraries that cannot be opened.
class LockedFiles : public FileFinder
{
public:
    std::optional<FoundFile> FindLibrary(const std::string& name) override
    {
        return FoundFile{L"/absent/of course.mtl", name, name, true};
    }
    std::optional<FoundFile> FindTexture(const std::string&) override { return std::nullopt; }
};

TEST(Check, ReportsLibrariesThatCannotBeRead)
{
    const TemporaryFolder folder;
    const auto path = folder.Write("a.obj", "mtllib b.mtl\nmtllib b.mtl\np 1\n");
    Findings findings(Findings::All);
    LockedFiles finder;
    ObjChecker checker(OpenNative(path, "rb"), findings, findings.AddFile("a.obj"), finder, 0.001);
    EXPECT_EQ(checker.Check().libraries, 0U);
    ASSERT_EQ(findings.CountOf(CheckKind::LibraryMissing), 2U);
    EXPECT_EQ(InWords(findings.Kept()[1]),
              "the library \"b.mtl\" cannot be read: its materials are missing");
}

TEST(Check, KeepsTheFirstOfEachKindAndCountsAll)
{
    std::string text = Triangle;
    for (int i = 0; i < 50; ++i)
        text += "f 1 2\nf 1 2 7\n";
    const TemporaryFolder folder;
    const CheckedFile checked(folder.Write("a.obj", text), 20);
    EXPECT_EQ(checked.findings.CountOf(CheckKind::RefusedFace), 50U);
    EXPECT_EQ(checked.findings.CountOf(CheckKind::BadIndex), 50U);
    EXPECT_EQ(checked.findings.Kept().size(), 40U);
    EXPECT_EQ(checked.totals.faces, 1U);
    EXPECT_EQ(checked.totals.lines, 104U);
}

TEST(RawLine, IsWhatFollowsTheKeyword)
{
    struct Row
    {
        const char* raw;
        const char* rest;
        std::size_t lines;
    };
    for (const Row& row : {Row{"g a  b \n", "a  b", 1}, Row{"\tg\ta", "a", 1}, Row{"g\n", "", 1},
                           Row{"g a\\\nb\n", "a b", 2}, Row{"g a\\\n# b\n", "a", 2}, Row{"", "", 0},
                           Row{"\n", "", 1}}) {
        EXPECT_EQ(RawRest(row.raw), row.rest);
        EXPECT_EQ(CountRawLines(row.raw), row.lines);
    }
}

} // namespace
