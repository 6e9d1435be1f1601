#include "objimport/check/unread_lines.h"
#include "objimport/file_pattern.h"
#include "objimport/output_name.h"
#include "objimport/texture_files.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(FilePattern, MatchesAsShellsDo)
{
    const struct
    {
        const char* name;
        const char* pattern;
        bool matches;
    } cases[] = {{"a.obj", "*.obj", true},
                 {".obj", "*.obj", true},
                 {"a.obj", "*.OBJ", false},
                 {"a.obj", "?.obj", true},
                 {"ab.obj", "?.obj", false},
                 {"abcabd", "*ab?", true},
                 {"aab", "*ab", true},
                 {"\xD0\x96.obj", "?.obj", true},
                 {"", "", true},
                 {"", "*", true},
                 {"", "?", false},
                 {"a", "", false},
                 {"abc", "a*b*c*", true},
                 {"abd", "a*b*c*", false}};
    for (const auto& one : cases)
        EXPECT_EQ(MatchesPattern(one.name, one.pattern, false), one.matches)
            << one.name << ' ' << one.pattern;
    EXPECT_TRUE(MatchesPattern("A.Obj", "?.oBJ", true));
    const std::string long_ = std::string(2000, 'a');
    EXPECT_FALSE(MatchesPattern(long_, "*a*a*a*a*a*a*a*a*a*b", false)) << "and soon";
}

TEST(FilePattern, FindsFilesByTheLastPartOfTheirPath)
{
    const TemporaryFolder folder;
    for (const char* name : {"b.obj", "a.obj", ".hidden.obj", "c.mtl"})
        folder.Write(name, "");
    std::filesystem::create_directory(folder / "folder.obj");
    const std::string start = Utf8(folder.Path()) + "/";
    EXPECT_THAT(FilesOfPattern(start + "*.obj"), ElementsAre(start + "a.obj", start + "b.obj"));
    EXPECT_THAT(FilesOfPattern(start + ".*"), ElementsAre(start + ".hidden.obj"));
    EXPECT_THAT(FilesOfPattern(start + "x*"), ElementsAre());
    EXPECT_THAT(FilesOfPattern(start + "absent/*"), ElementsAre());
}

TEST(OutputName, FindsPlaceholdersThatStandForNothing)
{
    for (const char* path :
         {"", "{", "{}", "{name}.json", "a/{folder}{name}", "{a b}", "{1}", "{na"})
        EXPECT_EQ(UnknownPlaceholder(path), "") << path;
    EXPECT_EQ(UnknownPlaceholder("{folder}/{Name}.json"), "{Name}");
    EXPECT_EQ(UnknownPlaceholder("{{file}"), "{file}");
}

TEST(OutputName, TakesPlaceholdersFromTheInput)
{
    const struct
    {
        const char* path;
        const char* input;
        const char* output;
    } cases[] = {{"out.json", "a/b.obj", "out.json"},
                 {"{folder}/{name}.json", "a/b.c.obj", "a/b.c.json"},
                 {"{folder}/{name}.json", "b.obj", "./b.json"},
                 {"{name}{name}{", "b.obj", "bb{"},
                 {"{name}", "{folder}.obj", "{folder}"},
                 {"{name}.json", "-", "stdin.json"}};
    for (const auto& one : cases)
        EXPECT_EQ(OutputName(one.path, one.input), one.output) << one.path;
}

UnreadLines Unread(const std::string& text)
{
    std::FILE* stream = std::tmpfile();
    std::fwrite(text.data(), 1, text.size(), stream);
    std::rewind(stream);
    return FindUnreadLines(stream);
}

TEST(UnreadLines, AreCountedByKeyword)
{
    EXPECT_THAT(Unread("").keywords, ElementsAre());
    const UnreadLines found =
        Unread("v 0 0 0\nl 1 2\n# l 1\nvt 0 0\r\nL 1\rf 1 2 \\\nl 3\n"
               " l 5\nvertex 1\nend\nusemtl a  b\nUSEMTL c\nusemtl\ns off\n # s 1\nl");
    EXPECT_THAT(found.keywords, ElementsAre(Pair("l", 4), Pair("vertex", 1)));
    EXPECT_THAT(found.materials, ElementsAre("a b", "c"));
}

TEST(UnreadLines, CountFacesAndNamesThatChange)
{
    const std::string umlaut = "\xC3\x9C";
    const UnreadLines found =
        Unread("f 1 2 3\nf 1 2 \\\n3\nF 1 2\n f\n#f 1 2 3\no W" + umlaut + "\nusemtl W" + umlaut +
               "\r\nusemtl a  b\ng a  b\ng a\tb\ng " + umlaut + " b\nmtllib " + umlaut +
               ".mtl\no C:\\a  b\no a b \ng a \\\nb\ngroup x" + umlaut);
    EXPECT_EQ(found.faces, 4U);
    EXPECT_EQ(found.changedNames, 5U); // W., "a  b", ". b", ".mtl", "x."
    EXPECT_EQ(Unread("v 0 0 0\nf 1 1 1\nv 1\nf 1 1 1\n").faces, 2U);
}

TEST(UnreadLines, OfVeryManyKeywordsAreCountedTogether)
{
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "x" + std::to_string(i) + " 1\n";
    const UnreadLines found = Unread(text);
    ASSERT_EQ(found.keywords.size(), 13U);
    EXPECT_THAT(found.keywords.front(), Pair("x0", 1));
    EXPECT_THAT(found.keywords.back(), Pair("", 5000 - 12));
}

#ifndef _WIN32
TEST(ShellPath, CanBePasted)
{
    const std::string here = std::filesystem::current_path().native();
    EXPECT_EQ(ShellPath("/absent/\xC3\xA4_1.png"), "/absent/\xC3\xA4_1.png");
    EXPECT_EQ(ShellPath("/a b/it's.png"), "'/a b/it'\\''s.png'");
    EXPECT_EQ(ShellPath("/a\x1B"), "'/a\\x1B'");
    EXPECT_EQ(ShellPath(here + "/maps/a.png"), "maps/a.png");
    EXPECT_EQ(ShellPath(here + "/-a.png"), "./-a.png");
    EXPECT_EQ(ShellPath(here + "else/a.png"), here + "else/a.png");
}
#endif

} // namespace
