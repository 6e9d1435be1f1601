#include "tests/temporary_folder.h"
#include "tests/terminal/pseudo_terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::HasSubstr;
using testing::Not;

/// Runs objimport with the scripted module.
class WorkOnATerminal : public testing::Test
{
protected:
    [[nodiscard]] std::vector<std::string> Command() const
    {
        return {BUILD_FOLDER "/bin/objimport",
                "--settings",
                Utf8(m_folder / "settings.ini"),
                "--module",
                BUILD_FOLDER "/test_modules/scripted_module.so",
                Utf8(m_scene)};
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_scene = m_folder.Write("scene.txt", "await point");
};

TEST_F(WorkOnATerminal, NamesTheFileUntilTheWorkIsDone)
{
    PseudoTerminal terminal(Command());
    terminal.ShownUpTo("scene.txt: making objects");
    std::filesystem::remove(m_scene);
    const std::string rest = terminal.ShownUpTo("");
    EXPECT_THAT(rest, testing::StartsWith("\r    "));
    EXPECT_THAT(rest, HasSubstr("imported, 1 object\r\n"));
    EXPECT_EQ(terminal.ExitStatus(), 0);
}

TEST_F(WorkOnATerminal, RemovesItsNoteWhenItIsStopped)
{
    PseudoTerminal terminal(Command());
    terminal.ShownUpTo("scene.txt: making objects");
    terminal.Type("\x03");
    std::string rest = terminal.ShownUpTo("");
    // The terminal shows the key before or after the signal does its work.
    if (const std::size_t key = rest.find("^C"); key != std::string::npos)
        rest.erase(key, 2);
    EXPECT_THAT(rest, HasSubstr("\r    "));
    EXPECT_THAT(rest, testing::EndsWith("\r"));
    EXPECT_EQ(terminal.ExitStatus(), -1) << "a signal ended it";
}

/// Runs objimport on a file with many groups, faults and a missing material.
class SummaryOnATerminal : public testing::Test
{
protected:
    [[nodiscard]] std::string Shown(unsigned short columns, const std::string& environment) const
    {
        std::string text = "v 0 0 0\nv 1 0 0\nv 0 1 0\nl 1 2\n";
        for (int i = 0; i < 2000; ++i) {
            const std::string number = std::to_string(i);
            text += "g part_of_the_assembly_" + number + "\nusemtl paint_" + number + "\nf 1 2 3\n";
        }
        const std::string scene = Utf8(m_folder.Write("scene.obj", text));
        PseudoTerminal terminal({"/usr/bin/env", environment, "TERM=xterm",
                                 BUILD_FOLDER "/bin/objimport", "--settings",
                                 Utf8(m_folder / "settings.ini"), scene},
                                columns);
        return terminal.ShownUpTo("");
    }

    TemporaryFolder m_folder;
};

TEST_F(SummaryOnATerminal, FitsAndShowsWarningsInColour)
{
    for (const int columns : {80, 60}) {
        std::istringstream lines(Shown(static_cast<unsigned short>(columns), "NO_COLOR="));
        std::size_t count = 0;
        for (std::string line; std::getline(lines, line); ++count) {
            const bool hasPathOrColour = line.find_first_of("/\x1B") != std::string::npos;
            EXPECT_TRUE(hasPathOrColour || line.size() <= static_cast<std::size_t>(columns) + 1)
                << line;
        }
        EXPECT_LT(count, 60U);
    }
    EXPECT_THAT(Shown(80, "NO_COLOR="), HasSubstr("\x1B[33m  not read: 1 line (l)"));
    EXPECT_THAT(Shown(80, "NO_COLOR=1"), Not(HasSubstr("\x1B")));
}

} // namespace
