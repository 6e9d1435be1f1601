#include "tests/objreader/reader_test.h"

#include <gtest/gtest.h>

namespace {

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

using GroupStatements = ReaderTest;

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
        {"order of names, not of the file",
         "g b\ng a\ng c\ng aa",
         {",,", "a,, (a)", "aa,, (aa)", "b,, (b)", "c,, (c)"}},
        {"bytes in order of their values",
         "o {\no Z\no a\no \x7Eq",
         {",,", ",Z,", ",a,", ",{,", ",~q,"}},
        {"order of objects before materials",
         "o b\nusemtl m\no a\nusemtl n",
         {",,", ",a,m", ",a,n", ",b,", ",b,m"}},
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

} // namespace
