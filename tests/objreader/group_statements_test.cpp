#include "tests/objreader/reader_test.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

using Names = std::vector<std::string>;

/// "group,object,material (all names of the group statement)"
std::string Shown(const CReadOBJ::Group_Object& record)
{
    std::string shown = std::string(record.groupName->View()) + ',' +
                        std::string(record.objectName->View()) + ',' +
                        std::string(record.materialName->View());
    if (!record.groupNames || record.groupNames->names.IsEmpty())
        return shown;
    shown += " (";
    for (const GK_String* const name : record.groupNames->names)
        shown += std::string(name->View()) + ' ';
    shown.back() = ')';
    return shown;
}

Names Records(const CReadOBJ& reader)
{
    Names records;
    for (const auto& record : reader.groupObjects)
        records.push_back(Shown(*record));
    return records;
}

class GroupStatements : public ReaderTest
{
};

TEST_F(GroupStatements, EachCombinationOfNamesHasOneRecord)
{
    const struct
    {
        const char* statement;
        const char* current;
    } steps[] = {
        {"v 0 0 0", ",,"},
        {"g wall exterior", "wall,, (wall exterior)"},
        {"usemtl brick", "wall,,brick (wall exterior)"},
        {"o house", "wall,house,brick (wall exterior)"},
        {"g roof", "roof,house,brick (roof)"},
        {"usemtl tile", "roof,house,tile (roof)"},
        {"g wall", "wall,house,tile (wall)"},
        {"usemtl brick", "wall,house,brick (wall exterior)"},
    };
    std::string text;
    for (const auto& [statement, current] : steps) {
        text += std::string(statement) + '\n';
        EXPECT_EQ(Shown(*Parsed(text).currentGroup), current) << text;
    }
    EXPECT_THAT(Records(Parsed(text)),
                ElementsAre(",,", "roof,house,brick (roof)", "roof,house,tile (roof)",
                            "wall,, (wall exterior)", "wall,,brick (wall exterior)",
                            "wall,house,brick (wall exterior)", "wall,house,tile (wall)"));
}

TEST_F(GroupStatements, NamesAndTheOrderOfRecords)
{
    struct Options
    {
        bool reverse = false;
        bool ignoreTextures = false;
        bool morphTarget = false;
    };
    const struct
    {
        const char* what;
        const char* text;
        Names records;
        Options options = {};
    } cases[] = {
        {"nothing", "", {",,"}},
        {"order of names, not of the file",
         "g b\ng a\ng c\ng aa",
         {",,", "a,, (a)", "aa,, (aa)", "b,, (b)", "c,, (c)"}},
        {"bytes in order of their values",
         "o {\no Z\no a\no \x7Eq",
         {",,", ",Z,", ",a,", ",{,", ",~q,"}},
        {"order of objects before materials",
         "o b\nusemtl m\no a\nusemtl n",
         {",,", ",a,m", ",a,n", ",b,", ",b,m"}},
        {"case counts", "g Wall\ng wall", {",,", "Wall,, (Wall)", "wall,, (wall)"}},
        {"group is another word for g", "GROUP a b\nG c", {",,", "a,, (a b)", "c,, (c)"}},
        {"the last name is the key", "g a b c", {",,", "c,, (a b c)"}, {.reverse = true}},
        {"no group name", "g a\nusemtl m\ng", {",,", ",,m", "a,, (a)", "a,,m (a)"}},
        {"no group name, reversed",
         "g a\nusemtl m\ng",
         {",,", ",,m", "a,, (a)", "a,,m (a)"},
         {.reverse = true}},
        {"a name twice", "g a a", {",,", "a,, (a a)"}},
        {"no object or material name", "o a\no\nusemtl b\nusemtl", {",,", ",a,", ",a,b"}},
        {"words are joined with one space",
         "o front \t  door\no front door\nusemtl  a\tb c",
         {",,", ",front door,", ",front door,a b c"}},
        {"a path keeps its spaces", "usemtl a\\b  c \td", {",,", ",,a\\b  c  d"}},
        {"names of the first group statement stay",
         "g a b\ng a c\no x\ng a d\ng a\no y",
         {",,", "a,, (a b)", "a,x, (a c)", "a,y, (a)"}},
        {"materials ignored",
         "g a\nusemtl m\ng b\nusemtl n\nusemtl",
         {",,", "a,, (a)", "b,, (b)"},
         {.ignoreTextures = true}},
        {"a morph target is one record", "g a\no b\nusemtl c", {",,"}, {.morphTarget = true}},
    };
    for (const auto& [what, text, records, options] : cases) {
        SCOPED_TRACE(what);
        CReadOBJ& reader = Open(text);
        reader.ReverseGroupOrder = options.reverse;
        reader.IgnoreTextures = options.ignoreTextures;
        reader.ImportAsMorphTarget = options.morphTarget;
        EXPECT_TRUE(reader.Parse());
        EXPECT_EQ(Records(reader), records);
        EXPECT_EQ(static_cast<std::size_t>(reader.GroupObjectCount()), records.size());
    }
}

TEST_F(GroupStatements, GeometryGoesToTheRecordOfItsNames)
{
    const CReadOBJ& reader = Parsed("v 0 0 0\nv 1 0 0\nf 1 2 1\ng b\nf 1 1 2\nf 1 2 2\n"
                                    "g a\np 1\ng b\nf 2 2 1\ng c\n");
    Names contents;
    for (const auto& record : reader.groupObjects) {
        const CReadOBJ::Geometry* const geometry = record->geometry.get();
        contents.push_back(Shown(*record) + ": " +
                           (geometry == nullptr
                                ? "nothing"
                                : std::to_string(geometry->faces.Count()) + " faces, " +
                                      std::to_string(geometry->points.Count()) + " points"));
    }
    EXPECT_THAT(contents, ElementsAre(",,: 1 faces, 0 points", "a,, (a): 0 faces, 1 points",
                                      "b,, (b): 3 faces, 0 points", "c,, (c): nothing"));
}

} // namespace
