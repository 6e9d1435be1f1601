#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/framework/work_note.h"
#include "console_host/runtime/allocation_failures.h"
#include "plugin/import_obj_plugin.h"
#include "tests/failing_new.h"

#include "host/app/file_type.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <new>

namespace {

using FailNth = void (*)(long nth) noexcept;

void FailNone(long) noexcept {}

/// Imports an example, the n-th allocation of which fails.
bool Import(const char* example, CKelvoDoc& doc, FailNth failNth = FailNone, long nth = 0,
            ImportJournal* journal = nullptr)
{
    const auto path = std::filesystem::path(PROJECT_FOLDER) / "examples" / example;
    CKelvoFileReadOptions options;
    options.SetMode(ReadModeAskOnCommandLine, true);
    CImportOBJPlugIn plugIn;
    const std::wstring fileName = path.wstring();
    failNth(nth);
    const bool result = plugIn.ReadFile(fileName.c_str(), 0, doc, options);
    failNth(0);
    ImportJournal written = ConsoleApp::Instance().TakeJournal();
    if (journal != nullptr)
        *journal = std::move(written);
    return result;
}

/// How many imports had which outcome.
struct Outcomes
{
    int failures = 0;
    int withoutOneObject = 0; ///< which was not refused, in an import that continued to its end
};

/// Imports an example with its n-th allocation failing, for every n until none fails.
Outcomes ImportWithEachFailure(const char* example, FailNth failNth)
{
    // What lives as long as the program is made by the first import.
    ConsoleApp::Instance().SetPrintStream(nullptr);
    ConsoleDoc whole(0.001);
    EXPECT_TRUE(Import(example, whole));
    Outcomes outcomes;
    // A report for which there is no memory may be lost without effect on the import, so an import
    // that succeeds need not be the one without a failure.
    for (int successes = 0, nth = 1; successes < 20; ++nth) {
        const long before = LiveAllocations();
        bool result = false;
        {
            ConsoleDoc doc(0.001);
            ImportJournal journal;
            result = Import(example, doc, failNth, nth, &journal);
            if (journal.redrawn && journal.refused.empty() &&
                doc.ObjectCount() == whole.ObjectCount() - 1)
                ++outcomes.withoutOneObject;
        }
        EXPECT_EQ(LiveAllocations(), before) << "allocation " << nth;
        EXPECT_EQ(WorkNote::Instance().Depth(), 0) << "allocation " << nth;
        successes = result ? successes + 1 : 0;
        outcomes.failures += result ? 0 : 1;
    }
    return outcomes;
}

class OutOfMemory : public testing::TestWithParam<const char*>
{
};

TEST_P(OutOfMemory, EndsTheImportAndLeavesNothing)
{
    EXPECT_GT(ImportWithEachFailure(GetParam(), FailNew).failures, 20);
    EXPECT_GT(ImportWithEachFailure(GetParam(), FailAllocation).failures, 5);
}

TEST_P(OutOfMemory, TheDocumentKeepsWhatItHad)
{
    ConsoleDoc doc(0.001);
    ASSERT_TRUE(Import(GetParam(), doc));
    const int before = doc.ObjectCount();
    EXPECT_FALSE(Import(GetParam(), doc, FailAllocation, 3));
    EXPECT_GE(doc.ObjectCount(), before);
    EXPECT_TRUE(Import(GetParam(), doc));
}

TEST(OutOfMemoryForAnObject, CostsThisObjectOnly)
{
    for (const char* example : {"house.obj", "sphere.obj", "bezier_curves.obj"}) {
        const Outcomes outcomes = ImportWithEachFailure(example, FailNew);
        EXPECT_GT(outcomes.withoutOneObject, 0) << example;
    }
}

INSTANTIATE_TEST_SUITE_P(Examples, OutOfMemory,
                         testing::Values("house.obj", "faulty.obj", "points.obj"));

} // namespace
