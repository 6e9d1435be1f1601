#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"
#include "tests/temporary_folder.h"

#include "host/geokit/string.h"
#include "host/runtime/file.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace {

struct CloseFile
{
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

/// The first bytes of a file opened by its wide path; "none" when it cannot be opened.
std::string FirstBytes(const std::wstring& path)
{
    const std::unique_ptr<std::FILE, CloseFile> stream(_wfopen(path.c_str(), L"rb"));
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

TEST(WideOpen, NeverOpensWhatMayNotEnd)
{
    EXPECT_EQ(FirstBytes(L"/dev/zero"), "none");
    EXPECT_EQ(_wfopen(L"/dev/null", L"nonsense"), nullptr);
}
#endif

TEST(WholeFiles, SayWhyTheyCannotBeRead)
{
    const TemporaryFolder folder;
    EXPECT_EQ(ReadWholeFile(folder.Write("a", "one")), "one");
    EXPECT_THROW((void)ReadWholeFile(folder.Path()), std::runtime_error);
    EXPECT_EQ(WhyUnreadable(folder.Path()), "a folder, not a file");
    EXPECT_EQ(WhyUnreadable(folder.Path() / "absent"), "no such file");
}

} // namespace
