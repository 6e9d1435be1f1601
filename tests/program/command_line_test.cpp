#include "console_host/app/profile_store.h"
#include "console_host/program/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(CommandLine, TakesEveryOption)
{
    CommandLine commandLine;
    ASSERT_FALSE(
        commandLine.Read({"--json", "-", "a.obj", "--settings=s", "--strings", "t", "--module", "m",
                          "--tolerance", "0.5", "--zoom", "--dialog", "-q", "--", "-b.obj"}));
    EXPECT_THAT(commandLine.files, testing::ElementsAre("a.obj", "-b.obj"));
    EXPECT_EQ(commandLine.json + commandLine.settings + commandLine.strings + commandLine.module,
              "-stm");
    EXPECT_EQ(commandLine.tolerance, 0.5);
    EXPECT_TRUE(commandLine.zoom && commandLine.quiet && !commandLine.about);
    EXPECT_EQ(commandLine.asking, Asking::Dialog);
    EXPECT_FALSE(commandLine.switches.AnyGiven());
}

TEST(CommandLine, TurnsSwitchesIntoSettings)
{
    constexpr GK_UUID Id{{0xAB}};
    constexpr const wchar_t* Section = L"Plug-Ins\\AB000000-0000-0000-0000-000000000000\\Settings";
    constexpr struct
    {
        const char* name;
        const wchar_t* entry;
    } switches[] = {{"object-names", L"UseONames"},
                    {"reverse-groups", L"ReverseGroupOrder"},
                    {"morph-target", L"ImportAsMorphTarget"},
                    {"ignore-textures", L"IgnoreTextures"},
                    {"z-up", L"ZUp"},
                    {"split-textures", L"Split32bitTextures"}};
    for (const auto& one : switches)
        for (const bool on : {false, true}) {
            CommandLine commandLine;
            ASSERT_FALSE(commandLine.Read({std::string(on ? "--" : "--no-") + one.name, "a"}));
            ProfileStore store;
            commandLine.switches.WriteTo(store, Id);
            for (const auto& other : switches) {
                bool value = !on;
                EXPECT_EQ(store.ReadBool(Section, other.entry, value), &one == &other);
                EXPECT_EQ(value, &one == &other ? on : !on) << one.name;
            }
        }
    int value = 0;
    for (const char* choice : {"none", "groups", "layers", "names"}) {
        CommandLine commandLine;
        ASSERT_FALSE(commandLine.Read({"--groups", choice, "a"}));
        ProfileStore store;
        commandLine.switches.WriteTo(store, Id);
        int stored = -1;
        EXPECT_TRUE(store.ReadInt(Section, L"HowToAddGs", stored));
        EXPECT_EQ(stored, value++);
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
