#include "objreader/corner.h"
#include "tests/objreader/padded.h"
#include "tests/objreader/read_text.h"

#include <gtest/gtest.h>

namespace {

/// Five positions (0, 0, 0) to (4, 0, 0), four texture coordinates, three normals.
const std::string Lists = "v 0 0 0\nv 1 0 0\nv 2 0 0\nv 3 0 0\nv 4 0 0\n"
                          "vt 0 0\nvt 0 0\nvt 0 0\nvt 0 0\n"
                          "vn 0 0 1\nvn 0 0 1\nvn 0 0 1\n";

TEST(FaceStatement, ReadsEveryFormOfCorner)
{
    const struct
    {
        const char* token;
        const char* corner;
        int fieldCount;
        int badField = 0;
    } cases[] = {
        {"5", "4//", 1},
        {"5/4/3", "4/3/2", 3},
        {"-1/-1/-1", "4/3/2", 3},
        {"-5/-4/-3", "0/0/0", 3},
        {"+2/ 3/\t1", "1/2/0", 3},
        {"2x/3.9/1e5", "1/2/0", 3},
        {"00000000005", "4//", 1},
        {"7/", "//", 2, 1},
        {"5/", "4//", 2},
        {"5/4/", "4/3/", 3},
        {"/", "//", 2},
        {"//", "//", 3},
        {"/4", "/3/", 2},
        {"/4/1", "/3/0", 3},
        {"//1", "//0", 3},
        // After a bad field nothing is read.
        {"0", "//", 1, 1},
        {"6/1/1", "//", 3, 1},
        {"-6/9/9", "//", 3, 1},
        {"x/1/1", "//", 3, 1},
        {"1/5/1", "0//", 3, 2},
        {"1/0/9", "0//", 3, 2},
        {"/-5/1", "//", 3, 2},
        {"1/1/4", "0/0/", 3, 3},
        {"1//-4", "0//", 3, 3},
        // Never wrapped around.
        {"99999999999", "//", 1, 1},
        {"4294967297", "//", 1, 1},
        {"18446744073709551617", "//", 1, 1},
        {"-2147483648", "//", 1, 1},
        // More fields than a corner has: none is read.
        {"1/2/3/4", "//", 4},
        {"1/2/3/", "//", 4},
        {"////", "//", 5},
    };
    const ReadText text(Lists);
    for (const auto& [token, corner, fieldCount, badField] : cases) {
        SCOPED_TRACE(token);
        int bogusIndices = 0;
        V_TN_IDX read{.vi = 77, .ti = 77, .ni = 77};
        auto readBadField = static_cast<BadField>(77);
        EXPECT_EQ(
            ParseCorner(Padded(token).c_str(), text.file.lists, read, readBadField, bogusIndices),
            fieldCount);
        EXPECT_EQ(Shown({read}), corner);
        EXPECT_EQ(readBadField, badField);
        EXPECT_EQ(bogusIndices, badField == 0 ? 0 : 1);
    }
}

const std::string BogusFace = "bogus face";

TEST(FaceStatement, StoresCornersAndSaysWhatIsWrong)
{
    const struct
    {
        std::string lines;
        const char* corners;           ///< all of the record
        std::vector<int> cornerCounts; ///< of each face
        std::vector<std::string> told = {};
        int bogusIndices = 0;
    } cases[] = {
        {"f -1 -2 -3\nf 1/1 2/2 3/3 4/4", "4// 3// 2// 0/0/ 1/1/ 2/2/ 3/3/", {3, 4}},
        {"f 6/9/9 2/9/9 3/1/9",
         "// 1// 2/0/",
         {3},
         {"bad field 1 of 6/9/9, list of 5", "bad field 2 of 2/9/9, list of 4",
          "bad field 3 of 3/1/9, list of 3"},
         3},
        {"f 1 2 6\nv 5 0 0\nf 1 2 6",
         "0// 1// // 0// 1// 5//",
         {3, 3},
         {"bad field 1 of 6, list of 5"},
         1},
        // Rejected: too few corners, fields that differ, too many of them.
        {"f\nf 1\nf 1 2", "", {}, {BogusFace, BogusFace, BogusFace}},
        {"f 1/1 2/2 3", "0/0/ 1/1/", {2}, {BogusFace}},
        {"f 1//1 2/1 3//1", "0//0", {1}, {BogusFace}},
        {"f 1 2 3 4/", "0// 1// 2//", {3}, {BogusFace}},
        {"f 1/1 2/2 9", "0/0/ 1/1/", {2}, {BogusFace}, 1},
        {"f 1/1/1/1 2/2 3/3", "", {0}, {BogusFace}},
        {"f 1/1 2/2 9/9/9/9\nf 1 2 3", "0/0/ 1/1/ 0// 1// 2//", {2, 3}, {BogusFace}},
        // Without a vertex field a corner is compared with nothing.
        {"f /4/1 2/1 3/1", "/3/0 1/0/ 2/0/", {3}},
        {"f 1 //2 3", "0// //1 2//", {3}},
        {"f /1 /1 /1", "/0/ /0/ /0/", {3}},
        {"f 1/1 /9/9 3", "0/0/ //", {2}, {"bad field 2 of /9/9, list of 4", BogusFace}, 1},
        {"f 1/1 ///1 3/1", "0/0/", {1}, {BogusFace}},
    };
    for (const auto& [lines, corners, cornerCounts, told, bogusIndices] : cases) {
        SCOPED_TRACE(lines);
        const ReadText text(Lists + lines);
        EXPECT_TRUE(text.parsed);
        EXPECT_EQ(Shown(CornersOf(text.CurrentGeometry())), corners);
        EXPECT_EQ(CornerCountsOf(text.CurrentGeometry()), cornerCounts);
        // A corner at which a face is rejected is left without an index.
        const bool rejected = !told.empty() && told.back() == BogusFace && !cornerCounts.empty();
        EXPECT_EQ(text.CurrentGeometry().hasEmptyCorner, rejected);
        EXPECT_EQ(text.events.lines, told);
        EXPECT_EQ(text.file.BogusIndexCount, bogusIndices);
    }
}

TEST(PointStatement, AnIndexOfNothingEndsTheParse)
{
    const struct
    {
        const char* lines;
        int bogusIndices;
        int clouds;
    } cases[] = {
        {"p\np 1", 0, 0},     {"p 0\np 1", 1, 0},
        {"p 6\np 1", 1, 0},   {"p 99999999999\np 1", 1, 0},
        {"p 1 0\np 1", 1, 1}, {"p x 1\np 1", 1, 1},
    };
    for (const auto& [lines, bogusIndices, clouds] : cases) {
        SCOPED_TRACE(lines);
        const ReadText text(Lists + lines);
        EXPECT_FALSE(text.parsed);
        EXPECT_EQ(text.file.BogusIndexCount, bogusIndices);
        EXPECT_TRUE(text.events.lines.empty());
        const Geometry& geometry = text.reading.currentGroup->GeometryToFill();
        EXPECT_EQ(geometry.points.Count(), 0);
        EXPECT_EQ(geometry.cloudEnds.Count(), clouds);
    }
}

} // namespace
