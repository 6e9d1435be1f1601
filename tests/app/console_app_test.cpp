#include "console_host/app/printable.h"
#include "console_host/framework/work_note.h"

#include "host/app/file_type.h"
#include "host/framework/wait_cursor.h"

#include <gtest/gtest.h>

namespace {

TEST(FileReadOptions, HoldFlags)
{
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, true);
    EXPECT_NE(options.Mode(5), 0);
    for (const int flag : {-1, 0, 1, 32, 100})
        EXPECT_EQ(options.Mode(flag), 0) << flag;
}

TEST(WaitCursor, Nests)
{
    const CWaitCursor outer;
    {
        const CWaitCursor inner;
        EXPECT_EQ(WorkNote::Instance().Depth(), 2);
    }
    EXPECT_EQ(WorkNote::Instance().Depth(), 1);
}

TEST(Printable, HoldsNothingThatControlsATerminal)
{
    const struct
    {
        std::string_view text;
        const char* shown;
        const char* onOneLine;
    } cases[] = {
        {"a\tb\r\n", "a\tb\r\n", "a\\x09b\\x0D\\x0A"},
        {"\x1B[31m\r\x7F", "\\x1B[31m\\x0D\\x7F", "\\x1B[31m\\x0D\\x7F"},
        {std::string_view("\0.", 2), "\\x00.", "\\x00."},
        // A control character of two bytes, letters, marks that turn the direction of writing.
        {"\xC2\x9B[m \xC3\x84\xC2\xA0", "\\x9B[m \xC3\x84\xC2\xA0", "\\x9B[m \xC3\x84\xC2\xA0"},
        {"\xE2\x80\xAE\xE2\x81\xA6\xE2\x80\xA9", "\\u202E\\u2066\\u2029", "\\u202E\\u2066\\u2029"},
        // Not UTF-8: a lone byte, one cut off, an overlong form, a surrogate.
        {"\x9B \xE6\x9C", "\\x9B \\xE6\\x9C", "\\x9B \\xE6\\x9C"},
        {"\xC0\x9B \xED\xA0\x80", "\\xC0\\x9B \\xED\\xA0\\x80", "\\xC0\\x9B \\xED\\xA0\\x80"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(Printable(one.text), one.shown);
        EXPECT_EQ(PrintableLine(one.text), one.onOneLine);
    }
}

} // namespace
