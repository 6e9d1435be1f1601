#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
#include "tests/temporary_folder.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;
using Links = FileReplacement::Links;

std::set<std::string> NamesIn(const fs::path& folder)
{
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.insert(Utf8(entry.path().filename()));
    return names;
}

TEST(FileReplacement, PutsTheFileInPlaceWhenItIsWholeAndNotBefore)
{
    const TemporaryFolder folder;
    const fs::path path = folder.Write("a", "old");
    {
        FileReplacement first(path, Links::Follow);
        FileReplacement second(path, Links::Follow);
        EXPECT_EQ(NamesIn(folder.Path()).size(), 3U) << "each has a name of its own";
        std::fputs("first", first.Stream());
        std::fputs("second", second.Stream());
        EXPECT_EQ(folder.Read("a"), "old");
        second.Commit();
        EXPECT_EQ(folder.Read("a"), "second");
        first.Commit();
        EXPECT_EQ(folder.Read("a"), "first");
        FileReplacement given(path, Links::Follow);
        std::fputs("given up", given.Stream());
    }
    EXPECT_EQ(folder.Read("a"), "first");
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
}

TEST(FileReplacement, IsRemovedWhenSomethingEndsTheProgram)
{
    const TemporaryFolder folder;
    const fs::path path = folder.Write("a", "old");
    {
        // Some systems remove an open file only when it is closed, as the end of a program does.
        const FileReplacement file(path, Links::Follow);
        RemoveUnfinishedFiles();
    }
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"a"});
    EXPECT_EQ(folder.Read("a"), "old");
}

TEST(FileReplacement, SaysWhyItCannotWrite)
{
    const TemporaryFolder folder;
    fs::create_directories(folder / "taken" / "content");
    EXPECT_THROW(WriteInPlaceOf(folder / "missing" / "a", "", Links::Follow), std::runtime_error);
    EXPECT_THROW(WriteInPlaceOf(folder / "taken", "", Links::Follow), std::runtime_error);
    EXPECT_EQ(WhyUnwritable(folder / "taken"), "a folder, not a file");
    EXPECT_EQ(WhyUnwritable(folder / "missing" / "a"), "no such folder");
    EXPECT_EQ(WhyUnwritable(folder / "a"), "");
    EXPECT_EQ(NamesIn(folder.Path()), std::set<std::string>{"taken"});
}

TEST(SameFile, IsRecognisedByIdentityAndNotByName)
{
    const TemporaryFolder folder;
    const fs::path path = folder.Write("a", "a");
    folder.Write("b", "a");
    fs::create_hard_link(path, folder / "hard");
    EXPECT_TRUE(IsSameFile(path, folder / "." / "a"));
    EXPECT_TRUE(IsSameFile(path, folder / "hard"));
    EXPECT_TRUE(IsSameFile(folder / "new", folder / "." / "new"));
    EXPECT_FALSE(IsSameFile(path, folder / "b"));
    EXPECT_FALSE(IsSameFile(path, folder / "new"));
    EXPECT_FALSE(IsSameFile(folder / "new", folder / "new2"));
}

#ifndef _WIN32
TEST(FileReplacement, FollowsTheLinksOfTheUserAndNoOther)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "deep");
    fs::create_symlink("deep/link", folder / "chain");
    fs::create_symlink("../file", folder / "deep" / "link");
    WriteInPlaceOf(folder / "chain", "new", Links::Follow);
    EXPECT_EQ(folder.Read("file"), "new") << "also when the link led nowhere";
    EXPECT_TRUE(IsSameFile(folder / "chain", folder / "file"));

    WriteInPlaceOf(folder / "chain", "image", Links::Replace);
    EXPECT_EQ(folder.Read("file"), "new");
    EXPECT_FALSE(fs::is_symlink(folder / "chain"));
    EXPECT_EQ(folder.Read("chain"), "image");
}

TEST(FileReplacement, KeepsThePermissions)
{
    const TemporaryFolder folder;
    const fs::path path = folder.Write("a", "old");
    constexpr fs::perms Private = fs::perms::owner_read | fs::perms::owner_write;
    for (const fs::perms permissions : {Private, Private | fs::perms::group_read}) {
        fs::permissions(path, permissions);
        WriteInPlaceOf(path, "new", Links::Follow);
        EXPECT_EQ(fs::status(path).permissions(), permissions);
    }
}

TEST(FileReplacement, WritesToWhatIsNoPlainFileAsItIs)
{
    const fs::path null = "/dev/null";
    WriteInPlaceOf(null, "x", Links::Follow);
    EXPECT_EQ(KindOfFile(null), FileKind::Special);
    EXPECT_THROW(WriteInPlaceOf("/dev/full", "x", Links::Follow), std::runtime_error);
    testing::internal::CaptureStdout();
    WriteInPlaceOf("/dev/stdout", "x", Links::Follow);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "x");
}
#endif

} // namespace
