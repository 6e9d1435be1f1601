#include "host/runtime/split_path.h"

#include <gtest/gtest.h>
#include <string>

namespace {

struct Case
{
    std::wstring path;
    std::wstring drive;
    std::wstring dir;
    std::wstring fname;
    std::wstring ext;
};

TEST(SplitPath, CutsWhereThePlatformDoes)
{
    const std::wstring longName(5000, L'n');
    const Case cases[] = {
        {L"C:\\models\\old\\house.obj", L"C:", L"\\models\\old\\", L"house", L".obj"},
        {L"/home/me/house.obj", L"", L"/home/me/", L"house", L".obj"},
        {L"a\\b/c.d", L"", L"a\\b/", L"c", L".d"},
        {L"C:house.obj", L"C:", L"", L"house", L".obj"},
        {L"house", L"", L"", L"house", L""},
        {L"house.", L"", L"", L"house", L"."},
        {L".obj", L"", L"", L"", L".obj"},
        {L"a.b.c", L"", L"", L"a.b", L".c"},
        {L"v1.2\\house", L"", L"v1.2\\", L"house", L""},
        {L"..\\..", L"", L"..\\", L".", L"."},
        {L"folder\\", L"", L"folder\\", L"", L""},
        {L"\\\\server\\share\\x.obj", L"", L"\\\\server\\share\\", L"x", L".obj"},
        {L"C:", L"C:", L"", L"", L""},
        {L":x", L"", L"", L":x", L""},
        {L"", L"", L"", L"", L""},
        {longName + L"/" + longName, L"", longName + L"/", longName, L""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::Message() << one.path.substr(0, 40));
        const PathParts parts = SplitPath(one.path);
        EXPECT_EQ(parts.drive, one.drive);
        EXPECT_EQ(parts.dir, one.dir);
        EXPECT_EQ(parts.fname, one.fname);
        EXPECT_EQ(parts.ext, one.ext);
    }
}

} // namespace
