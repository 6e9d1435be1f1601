// What the program writes, and what it never replaces.

#include "console_host/runtime/file_replacement.h"
#include "objimport/platform.h"
#include "tests/json_values.h"
#include "tests/objimport/process.h"
#include "tests/temporary_folder.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

/// Runs objimport with the product on a copy of the house and what belongs to it.
class WrittenFiles : public testing::Test
{
protected:
    WrittenFiles()
    {
        fs::copy(fs::path(PROJECT_FOLDER) / "examples", folder.Path(), fs::copy_options::recursive);
        names = Names();
    }

    ProcessResult Run(std::vector<std::string> arguments, const std::string& before = "",
                      const char* input = "house.obj") const
    {
        arguments.push_back(At(input));
        return RunObjimport(arguments, "", before);
    }

    [[nodiscard]] std::string At(const char* name) const { return Utf8(folder / name); }

    [[nodiscard]] std::set<std::string> Names() const
    {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
            found.insert(Utf8(entry.path()));
        return found;
    }

    /// Expects a run to refuse these arguments, which endanger a file.
    void ExpectRefused(const std::vector<std::string>& arguments, const char* endangered,
                       const char* reason, const char* input = "house.obj") const
    {
        const std::string before = ReadBytes(folder / endangered);
        const ProcessResult result = Run(arguments, "", input);
        EXPECT_EQ(result.status, 2) << reason;
        EXPECT_THAT(result.errors, HasSubstr(reason));
        EXPECT_EQ(ReadBytes(folder / endangered), before) << reason;
    }

    TemporaryFolder folder;
    std::set<std::string> names; ///< of the files at first
};

TEST_F(WrittenFiles, NeverReplaceWhatIsReadOrWrittenOtherwise)
{
    fs::create_hard_link(folder / "house.obj", folder / "same.json");
    folder.Write("strings.txt", "1\ta\n");
    folder.Write("s.ini", "");
    const std::string s = At("s.ini");
    ExpectRefused({"--settings", s, "--json", At("same.json")}, "house.obj", "replace the input");
    ExpectRefused({"--settings", s, "--json", s}, "s.ini", "would replace the settings");
    ExpectRefused({"--settings", At("new"), "--json", At("new")}, "s.ini", "replace the settings");
    ExpectRefused({"--settings", At("house.obj")}, "house.obj", "would replace the input");
    ExpectRefused({"--settings", s, "--strings", At("strings.txt"), "--json", At("strings.txt")},
                  "strings.txt", "would replace the string table");
    ExpectRefused({"--settings", s, "--json", At("house.mtl")}, "house.mtl",
                  "that the import has read");
    ExpectRefused({"--settings", s, "--json", At("maps/brick.png")}, "maps/brick.png", "a texture",
                  "textured.obj");
    ExpectRefused({"--settings", At("house.mtl")}, "house.mtl", "not a settings file");
    EXPECT_FALSE(fs::exists(folder / "new"));
}

#ifndef _WIN32
TEST_F(WrittenFiles, StayAsTheyWereWhenTheyCannotBeWrittenWhole)
{
    folder.Write("out.json", "old");
    names = Names();
    const ProcessResult result =
        Run({"--groups", "none", "--json", At("out.json")}, "ulimit -f 8; ");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("out.json: File too large"));
    EXPECT_EQ(folder.Read("out.json"), "old");
    EXPECT_EQ(Names(), names);
}

TEST_F(WrittenFiles, AreNotTouchedWhileTheUserIsAsked)
{
    folder.Write("out.json", "old");
    names = Names();
    // The prompt waits until its output is closed.
    const ProcessResult result =
        Run({"--settings", At("s.ini"), "--prompt", "--json", At("out.json")},
            "sleep 2 | timeout -s TERM 1 ");
    EXPECT_NE(result.status, 0);
    EXPECT_EQ(folder.Read("out.json"), "old");
    EXPECT_EQ(Names(), names);
}

TEST_F(WrittenFiles, LeaveNothingBesideThemWhenASignalEndsTheProgram)
{
    folder.Write("out.json", "old");
    names = Names();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        EXPECT_EXIT(
            {
                RemoveUnfinishedFilesAtTheEnd();
                const FileReplacement file(folder / "out.json", FileReplacement::Links::Follow);
                std::fputs("half", file.Stream());
                std::raise(signal);
                std::_Exit(0);
            },
            testing::KilledBySignal(signal), "");
    EXPECT_EQ(folder.Read("out.json"), "old");
    EXPECT_EQ(Names(), names);
}

TEST_F(WrittenFiles, SettingsAreSavedByEachOfTwoRunsAtOnce)
{
    const std::string run = OBJIMPORT " -q --settings '" + At("s.ini") + "' '" + At("house.obj") +
                            "' 2>>'" + At("errors") + "'";
    for (int pair = 0; pair < 5; ++pair) {
        fs::remove(folder / "s.ini");
        EXPECT_EQ(std::system((run + " & " + run + " & wait").c_str()), 0);
        EXPECT_EQ(folder.Read("errors"), "");
        EXPECT_THAT(folder.Read("s.ini"), HasSubstr("HowToAddGs="));
    }
}

TEST_F(WrittenFiles, AFileThatOpensAndCannotBeReadIsNotImported)
{
    const ProcessResult result =
        RunObjimport({"--settings", At("s.ini"), "--json", At("out.json"), "/proc/self/mem"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(JsonAt(folder.Read("out.json"), "/imports/0/outcome"), "failed");
    EXPECT_THAT(result.output, HasSubstr("Errors occurred reading this file"));
}

#ifndef __SANITIZE_ADDRESS__ // which takes address space without bounds
TEST_F(WrittenFiles, SayWhenTheAddressSpaceIsUsedUp)
{
    constexpr int Vertices = 300'000;
    std::string text;
    for (int i = 1; i <= Vertices; ++i)
        text += "v " + std::to_string(i) + ".125 0 " + std::to_string(i % 7) + "\n";
    for (int i = 3; i <= Vertices; ++i)
        text += "f -1 -2 -" + std::to_string(i) + "\n";
    folder.Write("large.obj", text);
    const ProcessResult result = Run({"--settings", At("s.ini"), "--json", At("out.json")},
                                     "ulimit -v 60000; ", "large.obj");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("out of memory; the reading ended before its end"));
    EXPECT_EQ(JsonAt(folder.Read("out.json"), "/imports/0/outcome"), "out of memory");
}
#endif

TEST_F(WrittenFiles, ErrorsCannotSteerATerminal)
{
    const std::string name = "\x1B[31m\n\xC2\x9B\xE2\x80\xAE";
    const std::string shown = "\\x1B[31m\\x0A\\x9B\\u202E";
    fs::create_directory(folder / name);
    const std::string bad = At(name.c_str());
    const std::vector<std::string> runs[] = {{bad},
                                             {At("house.obj"), "--settings", bad},
                                             {At("house.obj"), "--strings", bad},
                                             {At("house.obj"), "--module", bad},
                                             {At("house.obj"), "--json", bad},
                                             {"--run", name},
                                             {"--x" + name}};
    for (const std::vector<std::string>& arguments : runs) {
        const ProcessResult result = RunObjimport(arguments);
        EXPECT_EQ(result.errors.find('\x1B'), std::string::npos);
        EXPECT_THAT(result.errors, HasSubstr(shown));
    }
}
#endif

} // namespace
