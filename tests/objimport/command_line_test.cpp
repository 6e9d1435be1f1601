#include "console_host/app/profile_store.h"
#include "objimport/command_line.h"

#include <gtest/gtest.h>
#include <optional>
#include <sstream>
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

TEST(CommandLine, TheLastOfRepeatedOptionsCounts)
{
    CommandLine commandLine;
    ASSERT_FALSE(commandLine.Read(
        {"--json",      "a", "--json",      "b",    "--groups", "none",      "--groups",  "LAYERS",
         "--tolerance", "1", "--tolerance", "0.25", "--z-up",   "--no-z-up", "--strings", "s",
         "--strings",   "t", "-q",          "-q",   "first",    "second"}));
    EXPECT_EQ(commandLine.json, "b");
    EXPECT_EQ(commandLine.switches.groups, "layers");
    EXPECT_EQ(commandLine.tolerance, 0.25);
    EXPECT_EQ(commandLine.strings, (std::vector<std::string>{"s", "t"}));
    EXPECT_EQ(commandLine.files, (std::vector<std::string>{"first", "second"}));
    for (const OptionSwitch& one : commandLine.switches.switches)
        EXPECT_EQ(one.value, std::string(one.name) == "z-up" ? std::optional(false) : std::nullopt);
}

TEST(CommandLine, HelpIsInTheWordsOfTheProgram)
{
    testing::internal::CaptureStdout();
    CommandLine commandLine;
    EXPECT_EQ(commandLine.Read({"--help"}), 0);
    const std::string help = testing::internal::GetCapturedStdout();
    for (const char* inner : {"{false}", "Excludes", "TEXT", ":BOOLEAN", "Positionals", "OPTIONS"})
        EXPECT_EQ(help.find(inner), std::string::npos) << inner;
    for (const char* part : {"--[no-]reverse-groups", "-q,--quiet", "settings.ini",
                             "Exit status:", "Examples:", "--each"})
        EXPECT_NE(help.find(part), std::string::npos) << part;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);)
        EXPECT_LE(line.size(), 80U) << line;
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
                                              {"--about", "--run", "command"},
                                              {"--run", "command", "--json", "a", "--zoom"},
                                              {"--run", "command", "--prompt"},
                                              {"-", "-"},
                                              {"--prompt", "-"},
                                              {""},
                                              {"--json", "", "a"}};
    for (const auto& arguments : wrong) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        testing::internal::CaptureStderr();
        CommandLine commandLine;
        EXPECT_EQ(commandLine.Read(arguments), 2);
        const std::string line = testing::internal::GetCapturedStderr();
        EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
        EXPECT_EQ(line.rfind("objimport: ", 0), 0U) << line;
        EXPECT_NE(line.find("(try objimport --help)"), std::string::npos) << line;
        for (const char* inner : {"TEXT", "{", "FLOAT", "required", "argument"})
            EXPECT_EQ(line.find(inner), std::string::npos) << line;
    }
}

} // namespace
