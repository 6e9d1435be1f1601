#include "console_host/app/string_table.h"
#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

TEST(StringTable, ReturnsTheTextOfAnId)
{
    const TemporaryFolder folder;
    testing::internal::CaptureStderr();
    StringTable table = StringTable::Load(folder.Write(
        "de.txt", "\xEF\xBB\xBF"
                  "1\tH\xC3\xA4user\r\n\n2\ta\\tb\\n\\\\\\x\nnonsense\n3 \tno\n4\t\n5\tx\ty"));
    const std::string notes = testing::internal::GetCapturedStderr();
    EXPECT_NE(notes.find("line 4"), std::string::npos);
    EXPECT_NE(notes.find("line 5"), std::string::npos);
    EXPECT_STREQ(table.Localize(L"houses", 1), L"H\u00E4user");
    EXPECT_STREQ(table.Localize(L"two", 2), L"a\tb\n\\\\x");
    EXPECT_STREQ(table.Localize(L"three", 3), L"three");
    EXPECT_STREQ(table.Localize(L"four", 4), L"");
    EXPECT_STREQ(table.Localize(L"five", 5), L"x\ty");
    EXPECT_THROW((void)StringTable::Load(folder.Path() / "absent"), std::runtime_error);
}

TEST(StringTable, UsesNoTextThatTakesOtherArguments)
{
    StringTable table;
    table.Set(1, L"Datei mit %i Fehlern bei %S");
    table.Set(2, L"%S: %i");
    table.Set(3, L"50%% von %5i");
    table.Set(4, L"%s");
    testing::internal::CaptureStderr();
    EXPECT_STREQ(table.Localize(L"%i faults at %S", 1), L"Datei mit %i Fehlern bei %S");
    EXPECT_STREQ(table.Localize(L"%i: %S", 2), L"%i: %S");
    EXPECT_STREQ(table.Localize(L"%i", 3), L"50%% von %5i");
    EXPECT_STREQ(table.Localize(L"plain", 4), L"plain");
    EXPECT_STREQ(table.Localize(L"plain", 4), L"plain");
    const std::string notes = testing::internal::GetCapturedStderr();
    EXPECT_NE(notes.find("text 2 "), std::string::npos);
    EXPECT_EQ(notes.find("text 4 "), notes.rfind("text 4 ")) << "noted once";
}

} // namespace
