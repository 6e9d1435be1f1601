#include "console_host/app/console_app.h"
#include "console_host/app/printable.h"
#include "console_host/framework/work_note.h"
#include "console_host/geokit/allocation_faults.h"

#include "host/app/file_type.h"
#include "host/app/localize.h"
#include "host/app/message_box.h"
#include "host/app/plugin.h"
#include "host/framework/wait_cursor.h"
#include "host/geokit/error.h"
#include "host/geokit/simple_array.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <new>

namespace {

using testing::ElementsAre;

class TestPlugIn : public CKelvoPlugIn
{
public:
    [[nodiscard]] GK_UUID PlugInId() const override { return {}; }
    [[nodiscard]] const wchar_t* PlugInName() const override { return L"test"; }
    [[nodiscard]] const wchar_t* PlugInVersion() const override { return L"1"; }
};

TEST(ConsoleApp, NotesWhatIsPrintedShownAndReported)
{
    ConsoleApp& app = ConsoleApp::Instance();
    app.TakeJournal();
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    KelvoApp().Print(L"%i %S\n", 3, "\xC3\xA4");
    app.SetPrintStream(nullptr);
    KelvoApp().Print(L"unseen");
    app.SetPrintStream(stdout);
    EXPECT_EQ(KelvoMessageBox(L"text", L"caption", MessageBoxExclamation), 1);
    GK_Error("mesh", 0, "Bogus.\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "3 \xC3\xA4\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption: text\n");

    const ImportJournal journal = app.TakeJournal();
    EXPECT_THAT(journal.prints, ElementsAre("3 \xC3\xA4\n", "unseen"));
    ASSERT_EQ(journal.boxes.size(), 1U);
    EXPECT_EQ(journal.boxes[0].flags, 48U);
    ASSERT_EQ(journal.kernelErrors.size(), 1U);
    EXPECT_EQ(journal.kernelErrors[0].text, "Bogus.\n");
    EXPECT_TRUE(app.TakeJournal().prints.empty());
}

TEST(ConsoleApp, KnowsThePlugInsThatExist)
{
    const auto& plugIns = ConsoleApp::Instance().PlugIns();
    {
        TestPlugIn first;
        TestPlugIn second;
        EXPECT_THAT(plugIns, ElementsAre(&first, &second));
    }
    EXPECT_TRUE(plugIns.empty());
}

TEST(ConsoleApp, LocalizesByItsTable)
{
    StringTable strings;
    strings.Set(7, L"sieben");
    ConsoleApp::Instance().SetStrings(strings);
    EXPECT_STREQ(KvLocalizeString(L"seven", 7), L"sieben");
    EXPECT_STREQ(KvLocalizeString(L"eight", 8), L"eight");
    ConsoleApp::Instance().SetStrings({});
}

TEST(FileReadOptions, HoldFlags)
{
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, true);
    options.SetMode(100, true);
    EXPECT_NE(options.Mode(5), 0);
    for (const int flag : {-1, 0, 1, 32, 100})
        EXPECT_EQ(options.Mode(flag), 0) << flag;
    options.SetMode(5, false);
    EXPECT_EQ(options.Mode(5), 0);
}

TEST(WaitCursor, Nests)
{
    const WorkNote& note = WorkNote::Instance();
    {
        const CWaitCursor outer;
        {
            const CWaitCursor inner;
            EXPECT_EQ(note.Depth(), 2);
        }
        EXPECT_EQ(note.Depth(), 1);
    }
    EXPECT_EQ(note.Depth(), 0);
    EXPECT_FALSE(WorkNote::Instance().End());
}

TEST(Allocation, FailsWhenToldTo)
{
    FailAllocation(2);
    GK_SimpleArray<int> array;
    array.Reserve(1);
    EXPECT_THROW(array.Reserve(100), std::bad_alloc);
    EXPECT_EQ(array.Capacity(), 1);
    array.Reserve(100);
    EXPECT_EQ(AllocationCount(), 3);
    FailAllocation(0);
}

TEST(Printable, HoldsNoControlCharacters)
{
    EXPECT_EQ(Printable("a\tb\n\x1B[31m\r\x7F"), "a\tb\n?[31m??");
    EXPECT_EQ(Printable("\xC2\x9B"
                        "31m \xC3\x84 \xC2\xA0"),
              "?31m \xC3\x84 \xC2\xA0");
}

} // namespace
