#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "tests/temporary_folder.h"

#include "host/geokit/string.h"
#include "host/runtime/file.h"

#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <stdexcept>
#ifndef _WIN32
#include "console_host/runtime/folder_names.h"
#endif

namespace {

/// Returns the first bytes of a file opened by its wide path; "none" when it cannot be opened.
std::string FirstBytes(const std::wstring& path)
{
    const KelvoFile stream(_wfopen(path.c_str(), L"rb"));
    char bytes[64];
    return stream == nullptr ? "none"
                             : std::string(bytes, std::fread(bytes, 1, sizeof bytes, stream.get()));
}

TEST(WideOpen, FindsFilesAsWindowsDoes)
{
    const TemporaryFolder folder;
    folder.Write("Models/Wood.PNG", "wood");
    folder.Write(NativePath(L"Models/\u00C4pfel \u6728 \U0001F3E0.obj"), "apples");
    const std::wstring start = WidePath(folder.Path());
    const struct
    {
        const wchar_t* name;
        const char* bytes;
    } cases[] = {
        {L"/Models/Wood.PNG", "wood"},
        {L"\\Models\\Wood.PNG", "wood"},
        {L"/models\\wood.png", "wood"},
        {L"/Models/../MODELS/./WOOD.png", "wood"},
        {L"/Models/\u00C4pfel \u6728 \U0001F3E0.obj", "apples"},
        {L"/models/\u00E4PFEL \u6728 \U0001F3E0.OBJ", "apples"},
        {L"/Models/Wood", "none"},
        {L"/Models", "none"},
        {L"/Models/", "none"},
        {L"/absent/Wood.PNG", "none"},
        {L"/Models/Wood.PNG/x", "none"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(FirstBytes(start + one.name), one.bytes) << GK_wString(one.name).Utf8();
    EXPECT_EQ(FirstBytes(L""), "none");
    EXPECT_EQ(FirstBytes(start + std::wstring(100000, L'/') + std::wstring(100000, L'x')), "none");
}

#ifndef _WIN32
TEST(WideOpen, PrefersTheNameAsWritten)
{
    const TemporaryFolder folder;
    for (const char* name : {"b.mtl", "B.mtl", "B.MTL"})
        folder.Write(name, name);
    const std::wstring start = WidePath(folder.Path()) + L"/";
    EXPECT_EQ(FirstBytes(start + L"b.mtl"), "b.mtl");
    EXPECT_EQ(FirstBytes(start + L"B.mtl"), "B.mtl");
    EXPECT_EQ(FirstBytes(start + L"b.MTL"), "B.MTL");
}

TEST(WideOpen, ReadsAFolderAgainOnlyWhenItHasChanged)
{
    const TemporaryFolder folder;
    folder.Write("Wood.mtl", "wood");
    const std::wstring start = WidePath(folder.Path()) + L"/";
    const auto anHourAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(folder.Path(), anHourAgo);
    const int before = FolderNames::Instance().ReadCount();
    for (int i = 0; i < 1000; ++i)
        EXPECT_EQ(FirstBytes(start + std::to_wstring(i)), "none");
    EXPECT_EQ(FirstBytes(start + L"WOOD.mtl"), "wood");
    EXPECT_EQ(FolderNames::Instance().ReadCount(), before + 1);
    folder.Write("Stone.mtl", "stone");
    EXPECT_EQ(FirstBytes(start + L"STONE.mtl"), "stone");
}

TEST(WideOpen, NeverOpensWhatMayNotEnd)
{
    EXPECT_EQ(FirstBytes(L"/dev/zero"), "none");
    EXPECT_EQ(FirstBytes(L"/proc/self/pagemap"), "none");
    EXPECT_EQ(_wfopen(L"/dev/null", L"nonsense"), nullptr);
}
#endif

TEST(FileKeys, AreTheSameForAllSpellings)
{
    const TemporaryFolder folder;
    const std::string path = Utf8(folder.Write("a/Wood.png", "wood"));
    folder.Write("b/Wood.png", "wood");
    const std::string start = Utf8(folder.Path());
    const std::filesystem::path key = FileKey(path.c_str());
    for (const char* name : {"/a/Wood.png", "/a/./Wood.png", "/b/../a//Wood.png"}) {
        EXPECT_EQ(FileKey((start + name).c_str()), key) << name;
        EXPECT_EQ(FileKey(GK_wString(std::string_view(start + name)).Array()), key) << name;
    }
    EXPECT_EQ(FileKey(GK_wString(std::string_view(start + "\\A\\wood.PNG")).Array()), key);
    EXPECT_NE(FileKey((start + "/b/Wood.png").c_str()), key);
    EXPECT_NE(FileKey((start + "/absent/Wood.png").c_str()), key);
}

TEST(WholeFiles, SayWhyTheyCannotBeRead)
{
    const TemporaryFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Write("a", "one")), "one");
    EXPECT_THROW((void)ReadWholeFile(folder.Path()), std::runtime_error);
    EXPECT_EQ(WhyUnreadable(folder.Path()), "a folder, not a file");
    EXPECT_EQ(WhyUnreadable(folder.Path() / "absent"), "no such file");
}

} // namespace
