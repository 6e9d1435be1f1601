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
    options.SetMode(100, true);
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

TEST(Printable, HoldsNoControlCharacters)
{
    EXPECT_EQ(Printable("a\tb\n\x1B[31m\r\x7F"), "a\tb\n?[31m??");
    EXPECT_EQ(Printable("\xC2\x9B"
                        "31m \xC3\x84 \xC2\xA0"),
              "?31m \xC3\x84 \xC2\xA0");
}

} // namespace
