#include "console_host/app/profile_store.h"
#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr const wchar_t* Section = L"Plug-Ins\\1234\\Settings";

int ReadInt(ProfileStore& store, const wchar_t* entry, int otherwise = -99)
{
    int value = otherwise;
    const bool read = store.ReadInt(Section, entry, value);
    EXPECT_TRUE(read || value == otherwise);
    return value;
}

TEST(ProfileStore, KeepsEntriesFromOneRunToTheNext)
{
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.Path() / "kelvo" / "settings.ini";
    constexpr int Lowest = std::numeric_limits<int>::min();
    {
        ProfileStore store(path);
        store.WriteInt(Section, L"Lowest", Lowest);
        store.WriteBool(Section, L"On", true);
        store.WriteBool(L" [odd]=; \u00E4\n", L"#a=b\t", false);
        EXPECT_TRUE(store.Save());
    }
    ProfileStore store(path);
    bool on = false;
    bool odd = true;
    EXPECT_EQ(ReadInt(store, L"Lowest"), Lowest);
    EXPECT_TRUE(store.ReadBool(Section, L"On", on) && on);
    EXPECT_TRUE(store.ReadBool(L" [odd]=; \u00E4\n", L"#a=b\t", odd));
    EXPECT_FALSE(odd);
    EXPECT_FALSE(store.ReadBool(L"other", L"On", on));
}

TEST(ProfileStore, TreatsValuesOfAnotherTypeAsMissing)
{
    const TemporaryFolder folder;
    const std::string header = "[Plug-Ins\\1234\\Settings]\n";
    const struct
    {
        std::string contents;
        int number; ///< of the entry "E", -99: missing
    } cases[] = {
        {header + "E=7", 7},
        {"\xEF\xBB\xBF" + header + "; remark\n\n  E = 7  \r\n", 7},
        {header + "E=2147483647", 2147483647},
        {header + "E=2147483648", -99},
        {header + "E=-2147483649", -99},
        {header + "E=7.0", -99},
        {header + "E=7 x", -99},
        {header + "E=", -99},
        {header + "E=0x7", -99},
        {header + "E=true", -99},
        {header + "e=7", -99},
        {header + "E", -99},
        {"E=7", -99},
        {"[other]\nE=7", -99},
        {header + "[broken\nE=7", -99},
        {header + "E=1\nE=2", 2},
        {std::string("\0\xFF\x80[", 4), -99},
        {"", -99},
    };
    for (const auto& one : cases) {
        ProfileStore store(folder.Write("settings.ini", one.contents));
        EXPECT_EQ(ReadInt(store, L"E"), one.number) << one.contents;
    }
    for (const std::string value : {"true", "false", "1", "0", "2", "yes", ""}) {
        ProfileStore store(folder.Write("settings.ini", header + "E=" + value));
        bool read = false;
        const bool known = value != "2" && value != "yes" && !value.empty();
        EXPECT_EQ(store.ReadBool(Section, L"E", read), known) << value;
        EXPECT_EQ(read, value == "true" || value == "1") << value;
    }
}

TEST(ProfileStore, KeepsWhatOthersWroteAndWritesOnlyChanges)
{
    const TemporaryFolder folder;
    const auto path = folder.Write("settings.ini", "[other]\nname=some text\n");
    ProfileStore store(path);
    store.WriteInt(Section, L"E", 3);
    EXPECT_TRUE(store.Save());
    EXPECT_NE(folder.Read("settings.ini").find("name=some text"), std::string::npos);

    std::filesystem::remove(path);
    store.WriteInt(Section, L"E", 3);
    EXPECT_TRUE(store.Save());
    EXPECT_FALSE(std::filesystem::exists(path)) << "nothing was changed";
}

TEST(ProfileStore, ReportsAFailedSave)
{
    const TemporaryFolder folder;
    // A file where a folder would have to be.
    folder.Write("file", "x");
    ProfileStore store(folder.Path() / "file" / "settings.ini");
    store.WriteInt(Section, L"E", 3);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(store.Save());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot save"), std::string::npos);
    EXPECT_EQ(ReadInt(store, L"E"), 3);

    // What could not be read is not replaced.
    testing::internal::CaptureStderr();
    ProfileStore unreadable(folder.Path());
    unreadable.WriteInt(Section, L"E", 3);
    EXPECT_FALSE(unreadable.Save());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("not saved"), std::string::npos);
}

TEST(ProfileStore, DoesNotReplaceWhatIsNoSettingsFile)
{
    const TemporaryFolder folder;
    const struct
    {
        std::string contents;
        bool isTaken;
    } cases[] = {
        {"", true},
        {" \r\n\n", true},
        {"; remark\n# another\n[a]\nb\n", true},
        {"# a library\nnewmtl a\n[a]\n", false},
        {"# a model\n", false},
        {"{\"imports\": []}\n", false},
        {"[a\n", false},
        {"b=1\n[a]\n", false},
        {std::string("[a]\n\0", 5), false},
    };
    for (const auto& one : cases) {
        ProfileStore store(folder.Write("settings.ini", one.contents));
        store.WriteInt(Section, L"E", 3);
        testing::internal::CaptureStderr();
        EXPECT_EQ(store.Save(), one.isTaken) << one.contents;
        const bool isSaid =
            testing::internal::GetCapturedStderr().find("not a settings file") != std::string::npos;
        EXPECT_NE(isSaid, one.isTaken) << one.contents;
        EXPECT_EQ(folder.Read("settings.ini") == one.contents, !one.isTaken) << one.contents;
    }
}

} // namespace
