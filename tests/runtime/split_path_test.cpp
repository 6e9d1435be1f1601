#include "host/runtime/split_path.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace {

TEST(SplitPath, CutsWhereThePlatformDoes)
{
    const std::wstring longName(5000, L'n');
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"C:\\models\\old\\house.obj", L"C:|\\models\\old\\|house|.obj|"},
        {L"/home/me/house.obj", L"|/home/me/|house|.obj|"},
        {L"a\\b/c.d", L"|a\\b/|c|.d|"},
        {L"C:house.obj", L"C:||house|.obj|"},
        {L"house", L"||house||"},
        {L"house.", L"||house|.|"},
        {L".obj", L"|||.obj|"},
        {L"a.b.c", L"||a.b|.c|"},
        {L"v1.2\\house", L"|v1.2\\|house||"},
        {L"..\\..", L"|..\\|.|.|"},
        {L"folder\\", L"|folder\\|||"},
        {L"\\\\server\\share\\x.obj", L"|\\\\server\\share\\|x|.obj|"},
        {L"C:", L"C:||||"},
        {L":x", L"||:x||"},
        {L"", L"||||"},
        {longName + L"/" + longName, L"|" + longName + L"/|" + longName + L"||"},
    };
    for (const auto& [path, expected] : cases) {
        const auto [drive, dir, fname, ext] = SplitPath(path);
        std::wstring cut;
        for (const std::wstring_view part : {drive, dir, fname, ext})
            cut.append(part).append(L"|");
        EXPECT_EQ(cut, expected);
    }
}

} // namespace
