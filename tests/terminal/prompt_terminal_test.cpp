#include "tests/temporary_folder.h"
#include "tests/terminal/pseudo_terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* EndOfQuestion = "\r\n> ";
constexpr const char* EndOfInput = "\x04";

/// Runs objimport --prompt with a settings file of its own.
class PromptOnATerminal : public testing::Test
{
protected:
    [[nodiscard]] std::vector<std::string> Command(std::vector<std::string> more = {}) const
    {
        std::vector<std::string> command = {BUILD_FOLDER "/bin/objimport", "--settings",
                                            Utf8(m_folder.Path() / "settings.ini"), "--prompt",
                                            Utf8(m_scene)};
        command.insert(command.end(), more.begin(), more.end());
        return command;
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_scene =
        m_folder.Write("scene.obj", "g wall\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
};

TEST_F(PromptOnATerminal, ShowsWhatTheAnswersChangeAndStartsFromThemNextTime)
{
    {
        PseudoTerminal terminal(Command());
        std::string question = terminal.ShownUpTo(EndOfQuestion);
        EXPECT_THAT(question, HasSubstr("Set Import Options"));
        EXPECT_THAT(question, HasSubstr("ImportOBJGroups         = AsGroups"));
        EXPECT_THAT(question, HasSubstr("ImportOBJObjects        = Yes"));

        terminal.Type("ImportOBJGroups\n");
        EXPECT_THAT(terminal.ShownUpTo("? "), HasSubstr("AsLayers or AsObjectNames <AsGroups>"));
        terminal.Type("AsObjectNames\n");
        question = terminal.ShownUpTo(EndOfQuestion);
        EXPECT_THAT(question, HasSubstr("ImportOBJGroups         = AsObjectNames"));
        EXPECT_THAT(question, Not(HasSubstr("ImportOBJObjects")));

        terminal.Type("importobjo\n");
        EXPECT_THAT(terminal.ShownUpTo(EndOfQuestion), HasSubstr("is not one of the options"));
        terminal.Type("importobjgroups=aslayers\n");
        question = terminal.ShownUpTo(EndOfQuestion);
        EXPECT_THAT(question, HasSubstr("ImportOBJGroups         = AsLayers"));
        EXPECT_THAT(question, HasSubstr("ImportOBJObjects        = Yes"));

        terminal.Type("\n");
        EXPECT_THAT(terminal.ShownUpTo(""), HasSubstr("wall"));
        EXPECT_EQ(terminal.ExitStatus(), 0);
    }
    PseudoTerminal terminal(Command());
    EXPECT_THAT(terminal.ShownUpTo(EndOfQuestion), HasSubstr("ImportOBJGroups         = AsLayers"));
    terminal.Type("\n");
    terminal.ShownUpTo("");
    EXPECT_EQ(terminal.ExitStatus(), 0);
}

TEST_F(PromptOnATerminal, ACancelChangesNothing)
{
    {
        PseudoTerminal terminal(Command());
        terminal.Type("rev\n\n");
        terminal.ShownUpTo("");
        ASSERT_EQ(terminal.ExitStatus(), 0);
    }
    const std::string settings = m_folder.Read("settings.ini");
    ASSERT_THAT(settings, HasSubstr("ReverseGroupOrder=true"));
    for (const char* end : {"cancel\n", EndOfInput}) {
        PseudoTerminal terminal(Command());
        terminal.Type("rev map importobjg=aslay\n");
        terminal.ShownUpTo("AsLayers");
        terminal.ShownUpTo(EndOfQuestion);
        terminal.Type(end);
        EXPECT_THAT(terminal.ShownUpTo(""), HasSubstr("0 objects"));
        EXPECT_EQ(terminal.ExitStatus(), 1);
        EXPECT_EQ(m_folder.Read("settings.ini"), settings);
    }
}

TEST_F(PromptOnATerminal, StartsFromTheSwitchesAndKeepsWhatIsAccepted)
{
    const std::vector<std::string> switches = {"--groups", "layers", "--z-up"};
    for (const char* end : {"cancel\n", "\n"}) {
        PseudoTerminal terminal(Command(switches));
        const std::string question = terminal.ShownUpTo(EndOfQuestion);
        EXPECT_THAT(question, HasSubstr("ImportOBJGroups         = AsLayers"));
        EXPECT_THAT(question, HasSubstr("MapOBJYToKelvoZ         = Yes"));
        EXPECT_FALSE(std::filesystem::exists(m_folder / "settings.ini")) << "kept by a cancel";
        terminal.Type(end);
        terminal.ShownUpTo("");
        terminal.ExitStatus();
    }
    EXPECT_THAT(m_folder.Read("settings.ini"), HasSubstr("HowToAddGs=2\n"));
    EXPECT_THAT(m_folder.Read("settings.ini"), HasSubstr("ZUp=true\n"));
}

TEST_F(PromptOnATerminal, AsksOnStandardErrorAndReadsAnyStandardInput)
{
    std::ostringstream command;
    command << "printf 'map what\\n\\n' |";
    for (const std::string& word : Command({"--json", "-", "--quiet"}))
        command << " '" << word << "'";
    command << " > '" << Utf8(m_folder.Path() / "out") << "' 2> '" << Utf8(m_folder.Path() / "err")
            << "'";
    EXPECT_EQ(std::system(command.str().c_str()), 0);
    EXPECT_EQ(m_folder.Read("out").substr(0, 1), "{");
    EXPECT_EQ(m_folder.Read("err"), "\"what\" is not one of the options.\n");
    EXPECT_THAT(m_folder.Read("settings.ini"), HasSubstr("ZUp=true"));
}

} // namespace
