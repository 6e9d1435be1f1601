#include "tests/objreader/reader_test.h"

#include <gmock/gmock.h>

namespace {

using testing::IsEmpty;

class Parse : public ReaderTest
{
protected:
    /// What a statement adds to a reader that has read three positions.
    std::string EffectOf(const std::string& statement)
    {
        const CReadOBJ& reader = Parsed("v 0 0 0\nv 1 0 0\nv 0 1 0\n" + statement + "\n");
        const CReadOBJ::Geometry& geometry = reader.currentGroup->GeometryToFill();
        const struct
        {
            const char* what;
            int count;
        } counts[] = {
            {"v", reader.vertices.Count() - 3},
            {"vt", reader.texCoords.Count()},
            {"vn", reader.normals.Count()},
            {"vp", reader.paramPoints.Count()},
            {"face", geometry.faces.Count()},
            {"point", geometry.points.Count()},
            {"record", reader.GroupObjectCount() - 1},
            {"print", static_cast<int>(Journal().prints.size())},
        };
        std::string effect;
        for (const auto& [what, count] : counts)
            effect += count != 0 ? what : "";
        return effect;
    }
};

TEST_F(Parse, KeywordsReachTheirStatements)
{
    const struct
    {
        const char* statement;
        const char* effect;
    } cases[] = {
        {"v 1 2 3", "v"},
        {"V 1 2 3", "v"},
        {"vt 1 2", "vt"},
        {"Vt 1 2", "vt"},
        {"vtx 1 2", "vt"},
        {"vn 0 0 1", "vn"},
        {"vN2 0 0 1", "vn"},
        {"vp 1 2", "vp"},
        {"VPoint 1 2", "vp"},
        {"f 1 2 3", "face"},
        {"F 1 2 3", "face"},
        {"f 1 2", "print"},
        {"fo 1 2 3", ""},
        {"p 1", "point"},
        {"P 1", "point"},
        {"g a", "record"},
        {"gRoUp a", "record"},
        {"groups a", ""},
        {"o a", "record"},
        {"usemtl a", "record"},
        {"USEMTL a", "record"},
        {"usemt a", ""},
        {"usemtlx a", ""},
        {"mtllib", ""},
        {"mtllib missing.mtl", "print"},
        {"vertex 1 2 3", ""},
        {"v1 1 2 3", ""},
        {"\tv 1 2 3", "v"},
        {"# v 1 2 3", ""},
        {" # v 1 2 3", ""},
        {"@ 1 2 3", ""},
        {"\xC3\xA4v 1 2 3", "v"},
        {"s 1\ns off\nl 1 2\nlod 3\nbevel on\nend\nmg 1 2\nstep 1 2\nscrv 0 1 1\nsp 1", ""},
        {"bmat u 1\ncon 1\nc_interp on\nctech x\nd_interp on\nshadow_obj x\nstech x\ntrace_obj x",
         ""},
        {"parm u 0 1", ""},
    };
    for (const auto& [statement, effect] : cases)
        EXPECT_EQ(EffectOf(statement), effect) << statement;
}

TEST_F(Parse, EndsWithTheFirstStatementThatFails)
{
    for (const char* const failing : {"v 1 2", "vn 0 0", "vt 1", "vp 1", "p", "p 9"}) {
        SCOPED_TRACE(failing);
        CReadOBJ& reader =
            Open("v 0 0 0\n" + std::string(failing) + "\nv 0 0 0\nf 1 1\ng a\nv 0\n");
        EXPECT_FALSE(reader.Parse());
        EXPECT_EQ(reader.vertices.Count(), 1);
        EXPECT_EQ(reader.GroupObjectCount(), 1);
        EXPECT_THAT(Journal().prints, IsEmpty());
    }
}

TEST_F(Parse, GoesOnToTheEndOfTheFile)
{
    EXPECT_EQ(Parsed("").GroupObjectCount(), 1);
    EXPECT_EQ(Parsed("v 0 0 0\nf\nmtllib x\nnonsense\nv 0 0 \\\n0").vertices.Count(), 2);
    EXPECT_EQ(Parsed("v 0 0 0\r\n\r\nv 0 0 0\r\rv 0 0 0").vertices.Count(), 3);
}

TEST_F(Parse, OfAFileThatCannotBeOpenedGivesFalse)
{
    const CKelvoFileReadOptions options;
    for (const wchar_t* const path : {L"", L"Q:\\no such folder\\missing.obj"}) {
        CReadOBJ reader(path, *doc, options);
        EXPECT_FALSE(reader.Parse());
        EXPECT_EQ(reader.GroupObjectCount(), 1);
        EXPECT_TRUE(reader.Build());
    }
    EXPECT_EQ(doc->ObjectCount(), 0);
    EXPECT_THAT(Journal().prints, IsEmpty());
}

#ifdef __linux__
TEST_F(Parse, OfAFileThatCannotBeReadGivesFalse)
{
    const CKelvoFileReadOptions options;
    // It opens like any file, but its first bytes are nobody's.
    CReadOBJ reader(L"/proc/self/mem", *doc, options);
    EXPECT_FALSE(reader.Parse());
    EXPECT_TRUE(reader.tokenizer.ReadFailed());
}
#endif

TEST_F(Parse, AReaderBeginsWithItsOwnDefaults)
{
    const CKelvoFileReadOptions options;
    ConsoleDoc coarse(0.25);
    const CReadOBJ reader(L"C:\\my files\\a.b.obj", coarse, options);
    EXPECT_EQ(reader.drive.Utf8(), "C:");
    EXPECT_EQ(reader.dir.Utf8(), "\\my files\\");
    EXPECT_EQ(reader.fname.Utf8(), "a.b");
    EXPECT_EQ(reader.ext.Utf8(), ".obj");
    EXPECT_EQ(reader.tolerance, 0.25);
    EXPECT_EQ(reader.HowToAddGs, 1);
    EXPECT_TRUE(reader.UseONames);
}

} // namespace
