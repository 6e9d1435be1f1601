#include "tests/objreader/read_text.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

/// Returns "group,object,material (all names of the group statement)" of every record.
Names Records(const ObjFile& file)
{
    Names records;
    for (const std::unique_ptr<Group_Object>& record : file.groupObjects) {
        std::string& shown = records.emplace_back(record->groupName->View());
        (shown += ',') += record->objectName->View();
        (shown += ',') += record->materialName->View();
        if (record->groupNames < 0)
            continue;
        shown += " (";
        for (const GK_String* const name :
             file.groupNames[static_cast<std::size_t>(record->groupNames)])
            (shown += name->View()) += ' ';
        shown.back() = ')';
    }
    return records;
}

TEST(GroupStatements, NamesAndTheOrderOfRecords)
{
    const struct
    {
        const char* what;
        const char* text;
        Names records;
        ImportChoices choices = {};
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
        {"the last name is the key", "g a b c", {",,", "c,, (a b c)"}, {.ReverseGroupOrder = true}},
        {"no group name", "g a\nusemtl m\ng", {",,", ",,m", "a,, (a)", "a,,m (a)"}},
        {"no group name, reversed",
         "g a\nusemtl m\ng",
         {",,", ",,m", "a,, (a)", "a,,m (a)"},
         {.ReverseGroupOrder = true}},
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
         {.IgnoreTextures = true}},
        {"a morph target is one record",
         "g a\no b\nusemtl c",
         {",,"},
         {.ImportAsMorphTarget = true}},
    };
    for (const auto& [what, text, records, choices] : cases) {
        SCOPED_TRACE(what);
        const ReadText read(text, choices);
        EXPECT_TRUE(read.parsed);
        EXPECT_EQ(Records(read.file), records);
    }
}

} // namespace
