#include "console_host/app/profile_store.h"
#include "objimport/command_line.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

TEST(CommandLine, TurnsSwitchesIntoSettings)
{
    const wchar_t* const section = L"Plug-Ins\\AB000000-0000-0000-0000-000000000000\\Settings";
    constexpr std::pair<const char*, const wchar_t*> Switches[] = {
        {"object-names", L"UseONames"},
        {"reverse-groups", L"ReverseGroupOrder"},
        {"morph-target", L"ImportAsMorphTarget"},
        {"ignore-textures", L"IgnoreTextures"},
        {"z-up", L"ZUp"},
        {"split-textures", L"Split32bitTextures"}};
    for (const bool on : {false, true}) {
        std::vector<std::string> arguments = {"a"};
        for (const auto& one : Switches)
            arguments.push_back(std::string(on ? "--" : "--no-") + one.first);
        CommandLine commandLine;
        ASSERT_FALSE(commandLine.Read(arguments));
        ProfileStore store;
        commandLine.switches.WriteTo(store, {{0xAB}});
        for (const auto& [name, entry] : Switches) {
            bool value = !on;
            EXPECT_TRUE(store.ReadBool(section, entry, value)) << name;
            EXPECT_EQ(value, on) << name;
        }
    }
}

TEST(CommandLine, RefusesWrongUsageInOneLine)
{
    const std::vector<std::string> wrong[] = {{},
                                              {"--groups", "some", "a"},
                                              {"--groups", "1", "a"},
                                              {"--tolerance", "0", "a"},
                                              {"--tolerance", "-1", "a"},
                                              {"--tolerance", "nan", "a"},
                                              {"--tolerance", "x", "a"},
                                              {"--prompt", "--dialog", "a"},
                                              {"--unknown", "a"},
                                              {"--json"},
                                              {"--about", "a"},
                                              {"--run", "command", "a"},
                                              {"--about", "--run", "command"}};
    for (const auto& arguments : wrong) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        testing::internal::CaptureStderr();
        CommandLine commandLine;
        EXPECT_EQ(commandLine.Read(arguments), 2);
        const std::string line = testing::internal::GetCapturedStderr();
        EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
        EXPECT_EQ(line.rfind("objimport: ", 0), 0U) << line;
    }
}

} // namespace
