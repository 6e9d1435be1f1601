#include "tests/objreader/padded.h"
#include "tests/objreader/reader_test.h"

#include <gtest/gtest.h>

namespace {

/// Five positions (0, 0, 0) to (4, 0, 0), four texture coordinates, three normals.
const std::string Lists = "v 0 0 0\nv 1 0 0\nv 2 0 0\nv 3 0 0\nv 4 0 0\n"
                          "vt 0 0\nvt 0 0\nvt 0 0\nvt 0 0\n"
                          "vn 0 0 1\nvn 0 0 1\nvn 0 0 1\n";

using FaceStatement = ReaderTest;

TEST_F(FaceStatement, ReadsEveryFormOfCorner)
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
        // Behind a bad field nothing is read.
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
    CReadOBJ& reader = Parsed(Lists);
    for (const auto& [token, corner, fieldCount, badField] : cases) {
        SCOPED_TRACE(token);
        const int bogusBefore = reader.BogusIndexCount;
        V_TN_IDX read{.mesh_vi = -1, .vi = 77, .ti = 77, .ni = 77};
        int readBadField = 77;
        EXPECT_EQ(
            reader.ParseCorner(Padded(token).c_str(), read.vi, read.ti, read.ni, readBadField),
            fieldCount);
        EXPECT_EQ(Shown({&read, 1}), corner);
        EXPECT_EQ(readBadField, badField);
        EXPECT_EQ(reader.BogusIndexCount - bogusBefore, badField == 0 ? 0 : 1);
    }
}

std::string BadCorner(const char* field, int count, const char* token)
{
    return std::string("Encountered mesh face with bogus ") + field + " index (count is " +
           std::to_string(count) + "). Search for \"" + token + "\" in your file.\n";
}

const std::string BogusFace = "Encountered bogus mesh face.\n";

TEST_F(FaceStatement, StoresCornersAndSaysWhatIsWrong)
{
    const struct
    {
        std::string lines;
        const char* corners;           ///< all of the record
        std::vector<int> cornerCounts; ///< of each face
        std::vector<std::string> prints = {};
        int bogusIndices = 0;
    } cases[] = {
        {"f -1 -2 -3\nf 1/1 2/2 3/3 4/4", "4// 3// 2// 0/0/ 1/1/ 2/2/ 3/3/", {3, 4}},
        {"f 6/9/9 2/9/9 3/1/9",
         "// 1// 2/0/",
         {3},
         {BadCorner("vertex", 5, "6/9/9"), BadCorner("texture", 4, "2/9/9"),
          BadCorner("normal", 3, "3/1/9")},
         3},
        {"f 1 2 6\nv 5 0 0\nf 1 2 6",
         "0// 1// // 0// 1// 5//",
         {3, 3},
         {BadCorner("vertex", 5, "6")},
         1},
        // Rejected: too few corners, fields that differ, too many of them.
        {"f\nf 1\nf 1 2", "", {}, {BogusFace, BogusFace, BogusFace}},
        {"f 1/1 2/2 3", "0/0/ 1/1/ //", {2}, {BogusFace}},
        {"f 1//1 2/1 3//1", "0//0 //", {1}, {BogusFace}},
        {"f 1 2 3 4/", "0// 1// 2// //", {3}, {BogusFace}},
        {"f 1/1 2/2 9", "0/0/ 1/1/ //", {2}, {BogusFace}, 1},
        {"f 1/1/1/1 2/2 3/3", "//", {0}, {BogusFace}},
        {"f 1/1 2/2 9/9/9/9\nf 1 2 3", "0/0/ 1/1/ // 0// 1// 2//", {2, 3}, {BogusFace}},
        // Without a vertex field a corner is held against nothing.
        {"f /4/1 2/1 3/1", "/3/0 1/0/ 2/0/", {3}},
        {"f 1 //2 3", "0// //1 2//", {3}},
        {"f /1 /1 /1", "/0/ /0/ /0/", {3}},
        {"f 1/1 /9/9 3", "0/0/ // //", {2}, {BadCorner("texture", 4, "/9/9"), BogusFace}, 1},
        {"f 1/1 ///1 3/1", "0/0/ //", {1}, {BogusFace}},
    };
    for (const auto& [lines, corners, cornerCounts, prints, bogusIndices] : cases) {
        SCOPED_TRACE(lines);
        const CReadOBJ& reader = Parsed(Lists + lines);
        const CReadOBJ::Geometry& geometry = *reader.currentGroup->geometry;
        ASSERT_NE(geometry.mesh, nullptr);
        for (const int direction : {0, 1}) {
            EXPECT_EQ(geometry.mesh->SurfaceParameterDomain(direction), GK_Interval(0, 1));
            EXPECT_EQ(geometry.mesh->PackedTextureDomain(direction), GK_Interval(0, 1));
        }
        EXPECT_EQ(Shown({geometry.corners.begin(), geometry.corners.end()}), corners);
        std::vector<int> counts;
        for (const CReadOBJ::Face& face : geometry.faces)
            counts.push_back(face.cornerCount);
        EXPECT_EQ(counts, cornerCounts);
        EXPECT_EQ(Journal().prints, prints);
        EXPECT_EQ(reader.BogusIndexCount, bogusIndices);
    }
}

std::string Repeated(const std::string& text, int count)
{
    std::string repeated;
    while (count-- > 0)
        repeated += text;
    return repeated;
}

TEST_F(FaceStatement, After25MessagesOneMoreClosesTheList)
{
    ConsoleApp::Instance().Strings().Set(33339, L"%d bogus faces, no more.\n");
    ConsoleApp::Instance().Strings().Set(33343, L"%d bad corners, no more.\n");
    const struct
    {
        const char* what;
        std::string lines;
        std::size_t prints;
        const char* last;
        int bogusIndices;
    } cases[] = {
        {"25 faces", Repeated("f 1\n", 25), 25, "Encountered bogus mesh face.\n", 0},
        {"30 faces", Repeated("f 1\n", 30), 26, "25 bogus faces, no more.\n", 0},
        {"30 corners", Repeated("f 1 2 9\n", 30), 26, "25 bad corners, no more.\n", 30},
        {"both in one face", Repeated("f 8 9 1/1\n", 20), 26, "25 bad corners, no more.\n", 40},
    };
    for (const auto& [what, lines, prints, last, bogusIndices] : cases) {
        SCOPED_TRACE(what);
        const CReadOBJ& reader = Parsed(Lists + lines + "v 9 9 9\n");
        ASSERT_EQ(Journal().prints.size(), prints);
        EXPECT_EQ(Journal().prints.back(), last);
        EXPECT_EQ(reader.BogusIndexCount, bogusIndices);
        EXPECT_EQ(reader.vertices.Count(), 6) << "reading goes on";
    }
}

using PointStatement = ReaderTest;

TEST_F(PointStatement, AnIndexOfNothingEndsTheParse)
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
        CReadOBJ& reader = Open(Lists + lines);
        EXPECT_FALSE(reader.Parse());
        EXPECT_EQ(reader.BogusIndexCount, bogusIndices);
        EXPECT_TRUE(Journal().prints.empty());
        const CReadOBJ::Geometry& geometry = reader.currentGroup->GeometryToFill();
        EXPECT_EQ(geometry.points.Count(), 0);
        EXPECT_EQ(geometry.cloudEnds.Count(), clouds);
    }
}

} // namespace
