#include "plugin/developer_information.h"
#include "tests/json_values.h"
#include "tests/objimport/process.h"
#include "tests/temporary_folder.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// Runs objimport with the scripted module.
class Program : public testing::Test
{
protected:
    /// Settings are kept in the test's folder unless the arguments name them.
    ProcessResult Run(std::vector<std::string> arguments, const std::string& outputFile = "",
                      const std::string& before = "")
    {
        arguments.insert(arguments.begin(), {"--module", SCRIPTED_MODULE});
        if (std::find(arguments.begin(), arguments.end(), "--settings") == arguments.end())
            arguments.insert(arguments.begin(), {"--settings", Settings()});
        return RunObjimport(arguments, outputFile, before);
    }

    [[nodiscard]] std::string Script(const std::string& name, const std::string& words) const
    {
        return Utf8(
            folder.Write(std::filesystem::path(std::u8string(name.begin(), name.end())), words));
    }

    [[nodiscard]] std::string Settings() const { return Utf8(folder.Path() / "s.ini"); }

    TemporaryFolder folder;
};

void ExpectOneLine(const ProcessResult& result, const std::string& text)
{
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, StartsWith("objimport: "));
    EXPECT_THAT(result.errors, HasSubstr(text));
    EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1) << result.errors;
}

TEST_F(Program, NamesTheFileThatCannotBeReadBeforeImportingAnything)
{
    const std::string good = Script("good.txt", "state");
    ExpectOneLine(Run({good, "absent.obj"}),
                  "cannot read absent.obj: no such file; nothing was imported (--each imports");
    ExpectOneLine(Run({"absent.obj"}), "cannot read absent.obj: no such file\n");
    ExpectOneLine(Run({good, folder.Path().string()}), "a folder, not a file");
    ExpectOneLine(Run({"--json", good, good}), "the JSON would replace the input");
    ExpectOneLine(Run({"--json", folder.Path().string(), good}), "cannot write");
    ExpectOneLine(Run({"--strings", "absent.txt", good}), "string table absent.txt");
    ExpectOneLine(Run({"--settings", folder.Path().string(), good}), "cannot read the settings");
    EXPECT_EQ(folder.Read("good.txt"), "state");
}

TEST_F(Program, NamesTheModuleThatIsNone)
{
    const std::string good = Script("good.txt", "state");
    const std::string text = Script("text.so", "no module");
    const auto run = [&](const std::string& module) {
        return RunObjimport({"--module", module, good});
    };
    ExpectOneLine(run("absent.so"), "absent.so: no such file");
    ExpectOneLine(run(text), text);
    ExpectOneLine(run(NO_MODULE), "lacks the export KelvoPlugIn");
    ExpectOneLine(run(UNREGISTERED_MODULE), "exports no import plug-in");
}

TEST_F(Program, ShowsWhatTheModuleSaysOfItself)
{
    const ProcessResult about = Run({"--about"});
    EXPECT_EQ(about.status, 0);
    for (const char* text : {"Scripted\n", "1.0\n", "01000000-0000-0000-0000-000000000000\n",
                             "Script (*.txt), extension txt\n"})
        EXPECT_THAT(about.output, HasSubstr(text));
    using namespace DeveloperInformation;
    for (const GK_wString text : {Organization, Country, Phone, Fax, Email, Website, UpdateUrl})
        EXPECT_THAT(about.output, HasSubstr(text.Utf8() + "\n"));
    std::string address = GK_wString(Address).Utf8();
    address.replace(address.find("\r\n"), 2, "\n" + std::string(22, ' '));
    EXPECT_THAT(about.output, HasSubstr(address + "\n"));
    for (const int version : {SdkVersion, SdkServiceRelease})
        EXPECT_THAT(about.output, HasSubstr(std::to_string(version) + "\n"));
    const std::string strings = Script("de.txt", "1\tGeskriptet");
    EXPECT_THAT(Run({"--strings", strings, "--about"}).output, HasSubstr("Geskriptet\n"));
    EXPECT_FALSE(std::filesystem::exists(Settings()));
    EXPECT_THAT(Run({"--version"}).output, StartsWith("objimport "));
    EXPECT_THAT(Run({"--help"}).output, HasSubstr("reverse-groups"));
}

TEST_F(Program, ImportsInOrderAndReportsHowItWent)
{
    const std::string first = Script("a \xC3\xA4 \xE6\x9C\xA8.txt", "path point");
    const std::string second = Script("b.txt", "box fail");
    const ProcessResult result = Run({"--json", "-", first, second});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(JsonAt(result.output, "/imports/0/file"), first);
    EXPECT_EQ(JsonAt(result.output, "/imports/0/result"), "true");
    EXPECT_EQ(JsonAt(result.output, "/imports/1/result"), "false");
    EXPECT_EQ(JsonAt(result.output, "/imports/1/boxes/0/text"), "boxed");
    EXPECT_EQ(JsonCount(result.output, "/objects"), 1U);
    EXPECT_THAT(JsonAt(result.output, "/imports/0/prints/0"),
                HasSubstr("a \xC3\xA4 \xE6\x9C\xA8.txt"));
    EXPECT_THAT(result.errors, HasSubstr("caption: boxed\n"));
    EXPECT_THAT(result.errors, HasSubstr("1 object: 1 point\n"));
}

TEST_F(Program, PassesHowToReadToThePlugIn)
{
    const std::string file = Script("a.txt", "state");
    EXPECT_THAT(Run({file}).output, StartsWith("groups 1 zup 0 modes 10 tolerance 0.001\n"));
    EXPECT_THAT(Run({"--zoom", "--tolerance", "0.5", file}).output,
                StartsWith("groups 1 zup 0 modes 11 tolerance 0.5\n"));
    EXPECT_EQ(Run({"--quiet", file}).output, "");
}

TEST_F(Program, KeepsOptionsOfOneRunOutOfTheSettings)
{
    const std::string file = Script("a.txt", "state");
    folder.Write("s.ini", "[Plug-Ins\\01000000-0000-0000-0000-000000000000\\Settings]\n"
                          "HowToAddGs=3\nZUp=false\n");
    EXPECT_THAT(Run({file}).output, StartsWith("groups 3 zup 0"));
    const std::string before = folder.Read("s.ini");
    EXPECT_THAT(Run({"--groups", "layers", "--z-up", file}).output, StartsWith("groups 2 zup 1"));
    EXPECT_EQ(folder.Read("s.ini"), before);
    EXPECT_THAT(Run({file}).output, StartsWith("groups 3 zup 0"));
}

TEST_F(Program, RunsACommandInsteadOfImporting)
{
    EXPECT_EQ(Run({"--run", "SAY"}).output, "groups 1\n");
    EXPECT_EQ(Run({"--run", "say"}).status, 0);
    EXPECT_EQ(Run({"--groups", "names", "--run", "say"}).output, "groups 3\n");
    const ProcessResult cancelled = Run({"--run", "giveup"});
    EXPECT_EQ(cancelled.status, 1);
    EXPECT_THAT(cancelled.output, HasSubstr("giveup: cancelled\n"));
    ExpectOneLine(Run({"--run", "sa"}), "no command sa; the plug-in has say, giveUp");
}

TEST_F(Program, RunsTheTestCommandOfTheImporter)
{
    const ProcessResult result =
        RunObjimport({"--settings", Settings(), "--run", "TestCrashImportOBJ"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "TestCrashImportOBJ ran.\n");
    EXPECT_EQ(result.errors, "");
}

TEST_F(Program, ImportsEachFileIntoADocumentOfItsOwn)
{
    std::filesystem::create_directory(folder / "b");
    const std::string first = Script("a.txt", "point point");
    const std::string second = Script("b/c.txt", "box point fail");
    const std::string pattern = Utf8(folder / "{name}.json");
    const ProcessResult result = Run({"--each", "--json", pattern, first, "absent.txt", second});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(JsonCount(folder.Read("a.json"), "/objects"), 2U);
    EXPECT_EQ(JsonCount(folder.Read("c.json"), "/objects"), 1U);
    EXPECT_EQ(JsonAt(folder.Read("c.json"), "/imports/0/file"), second);
    EXPECT_THAT(result.errors, HasSubstr("objimport: cannot read absent.txt: no such file\n"));
    EXPECT_THAT(result.errors, HasSubstr(second + ": caption: boxed\n"));
    // Names that are too long for a line are on the next one.
    const std::string lines = std::regex_replace(result.output, std::regex("\n {4}"), " ");
    EXPECT_THAT(lines, HasSubstr("Importing " + first + "\n" + first + ": imported"));
    EXPECT_THAT(result.output, testing::ContainsRegex("3 files\n +file +outcome +objects +lost\n"));
    EXPECT_THAT(result.output, HasSubstr("not imported: no such file"));

    EXPECT_EQ(Run({"--each", first}).status, 0);
    EXPECT_EQ(Run({"--each", first, second}).status, 1);
    ExpectOneLine(Run({"--each", "--json", Utf8(folder / "x.json"), first, second}),
                  "the JSON of " + second + " would replace the JSON of " + first +
                      "; with {name} in its path");
    ExpectOneLine(Run({"--each", "--json", Utf8(folder / "{nam}.json"), first}),
                  "{nam} stands for nothing; {name} and {folder} do");
    ExpectOneLine(Run({"--json", pattern, first}), "under --each only");
    EXPECT_FALSE(std::filesystem::exists(folder / "x.json"));
}

TEST_F(Program, FindsFilesByAPattern)
{
    const std::string first = Script("a1.txt", "point");
    const std::string second = Script("a2.txt", "point point");
    folder.Write("b.txt", "fail");
    const std::string pattern = Utf8(folder.Path()) + "/a?.t*";
    const ProcessResult result = Run({"--json", "-", pattern});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(JsonAt(result.output, "/imports/0/file"), Utf8(folder.Path()) + "/a1.txt");
    EXPECT_EQ(JsonAt(result.output, "/objects/2/import"), "1");
    ExpectOneLine(Run({"x*.obj"}), "cannot read x*.obj: no file has such a name");
}

TEST_F(Program, TakesStandardInput)
{
    const std::string file = Script("a.txt", "point");
#ifdef _WIN32
    const std::string before = "type \"" + file + "\" | ";
#else
    const std::string before = "cat '" + file + "' | ";
#endif
    const ProcessResult result = Run({"--json", "-", "-"}, "", before);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(JsonAt(result.output, "/imports/0/file"), "-");
    EXPECT_EQ(JsonCount(result.output, "/objects"), 1U);
    for (const auto& entry : std::filesystem::directory_iterator("."))
        EXPECT_EQ(Utf8(entry.path().filename()).rfind(".kelvo-", 0), std::string::npos)
            << "left over";
}

TEST_F(Program, NotesFaultsOfThePlugIn)
{
    const ProcessResult waiting = Run({Script("wait.txt", "wait")});
    EXPECT_EQ(waiting.status, 0);
    EXPECT_THAT(waiting.errors, HasSubstr("ReadFile: it did not end its wait cursor"));
    const ProcessResult throwing = Run({Script("throw.txt", "throw"), Script("b.txt", "point")});
    EXPECT_EQ(throwing.status, 1);
    EXPECT_THAT(throwing.errors, HasSubstr("ReadFile: it threw an exception: thrown"));
    EXPECT_THAT(throwing.output, HasSubstr("1 object"));
}

#ifndef _WIN32
TEST_F(Program, SaysThatThereIsNoDisplayForADialog)
{
    const std::vector<std::string> runs[] = {{"--dialog", PROJECT_FOLDER "/examples/house.obj"},
                                             {"--run", "OBJImportOptionsDialog"}};
    for (std::vector<std::string> arguments : runs) {
        arguments.insert(arguments.end(), {"--settings", Settings()});
        ExpectOneLine(RunObjimport(arguments, "", "env -u DISPLAY "), "--prompt");
    }
}

TEST_F(Program, TakesAnyNameThatCanBePassedToThePlugIn)
{
    for (const char* name : {"[", "a,b;c", "'a' \"b\"", "a%%b {c}", " a.obj ", "a\xFF"})
        EXPECT_THAT(Run({Script(name, "point")}).output, HasSubstr("1 object: 1 point\n")) << name;
    // The plug-in would look for "b" in a folder "a", and find the first of two like names.
    folder.Write("a\xFE", "point");
    for (const char* name : {"a\\b", "a\xFF"})
        ExpectOneLine(Run({Script(name, "point")}), "cannot be passed to the plug-in");
}

TEST_F(Program, TakesPipes)
{
    const std::string pipe = Utf8(folder / "pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string before = "echo point point >'" + pipe + "' & ";
    EXPECT_THAT(Run({pipe}, "", before).output, HasSubstr("2 objects: 2 points\n"));
    ExpectOneLine(Run({"/dev/zero"}), "not a plain file");
}

TEST_F(Program, ImportsNothingWhenTheModuleDoesNotStart)
{
    const std::string file = Script("a.txt", "state");
    ExpectOneLine(Run({file}, "", "SCRIPTED_MODULE_FAILS=1 "), "does not start");
    const std::string settings = "[Plug-Ins\\01000000-0000-0000-0000-000000000000\\Settings]\n"
                                 "Stay=false\n";
    folder.Write("s.ini", settings);
    ExpectOneLine(Run({file}), "the plug-in Scripted refused to load");
    EXPECT_EQ(folder.Read("s.ini"), settings);
}

TEST_F(Program, KeepsSettingsInTheUsersFolderOrSaysThatItCannot)
{
    const std::string home = folder.Path().string();
    const std::vector<std::string> arguments = {"--module", SCRIPTED_MODULE,
                                                Script("a.txt", "state")};
    const auto errorsWith = [&](const std::string& environment) {
        const ProcessResult result = RunObjimport(arguments, "", "env -u " + environment + ' ');
        EXPECT_EQ(result.status, 0);
        return result.errors;
    };
    EXPECT_THAT(errorsWith("HOME XDG_CONFIG_HOME=not/absolute"),
                HasSubstr("the settings are not kept"));
    EXPECT_EQ(errorsWith("HOME XDG_CONFIG_HOME=" + home), "");
    EXPECT_THAT(folder.Read("kelvo/settings.ini"), HasSubstr("HowToAddGs=1\n"));
    EXPECT_EQ(errorsWith("XDG_CONFIG_HOME HOME=" + home), "");
    EXPECT_THAT(folder.Read(".config/kelvo/settings.ini"), HasSubstr("HowToAddGs=1\n"));
}

TEST_F(Program, EndsWellWhenNobodyReadsItsOutputAnyMore)
{
    const std::string file = Script("a.txt", "point");
    const std::string json = Utf8(folder / "a.json");
    const std::string pipe = Utf8(folder / "pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const auto run = [&](const std::vector<std::string>& arguments) {
        return Run(arguments, pipe, "true <'" + pipe + R"(' & sh -c 'sleep 0.2; exec "$0" "$@"' )");
    };
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--json", json, file}, {"--about"}, {"--help"}}) {
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
    }
    EXPECT_EQ(JsonCount(folder.Read("a.json"), "/objects"), 1U);
    EXPECT_THAT(run({"--json", "-", file}).errors, HasSubstr("cannot write to standard output"));
}

TEST_F(Program, ReportsOutputThatCannotBeWritten)
{
    const std::string file = Script("a.txt", "point");
    const std::string full = "/dev/full";
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{file},
                                                      {"--json", "-", file},
                                                      {"--about"},
                                                      {"--help"},
                                                      {"--version"},
                                                      {"--run", "say"}}) {
        const ProcessResult result = Run(arguments, full);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.errors, HasSubstr("cannot write to standard output: No space"));
    }
    const ProcessResult result = Run({"--json", full, file});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("cannot write /dev/full: No space"));
}
#endif

} // namespace
