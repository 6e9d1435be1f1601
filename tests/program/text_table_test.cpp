#include "console_host/program/text_table.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTable, AlignsByWhatATerminalShows)
{
    TextTable table({{"#", TextTable::Align::Right}, {"name"}, {"last"}});
    table.AddRow({"9", "\xC3\xA4pfel", "x"});
    table.AddRow({"10", "\xE6\x9C\xA8", ""});
    testing::internal::CaptureStdout();
    {
        TextOutput output(stdout);
        table.Write(output);
        EXPECT_EQ(output.Finish(), "");
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "   #  name   last\n"
                                                      "   9  \xC3\xA4pfel  x\n"
                                                      "  10  \xE6\x9C\xA8\n");
}

TEST(TextTable, ShortensBetweenCharacters)
{
    EXPECT_EQ(Shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(Shortened("abcdefg", 6), "abc...");
    EXPECT_EQ(Shortened("\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4", 4), "\xC3\xA4...");
    EXPECT_EQ(DisplayWidth("e\xCC\x81\xE6\x9C\xA8"), 3);
}

} // namespace
