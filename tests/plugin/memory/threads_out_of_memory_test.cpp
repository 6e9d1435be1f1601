// Allocations that fail while several threads read and build.

#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/runtime/allocation_failures.h"
#include "plugin/read_obj.h"
#include "tests/failing_new.h"
#include "tests/temporary_folder.h"

#include <chrono>
#include <cstddef>
#include <gtest/gtest.h>
#include <iterator>
#include <new>
#include <thread>

namespace {

using FailNth = void (*)(long nth) noexcept;

/// Rows of squares in groups of their own, each with an n-gon, a face that is wrong, and points.
std::string Squares()
{
    std::string text;
    for (int row = 0; row < 4; ++row) {
        text += "g row" + std::to_string(row) + "\nusemtl m" + std::to_string(row % 2) + '\n';
        for (int i = 0; i < 12; ++i)
            text += "v " + std::to_string(i / 2) + ' ' + std::to_string(row) + ' ' +
                    std::to_string(i % 2) + "\nvt 0." + std::to_string(i) + " 0\n";
        for (int i = 0; i < 10; i += 2)
            text += "f -1/-1 -2/-2 -4/-4 -3/-3\nv 9 9 9\nvt 0 0\nf 1 2 99999\n";
        text += "f -1 -2 -5 -7 -9\np 1 2 3\n";
    }
    return text;
}

class ThreadsOutOfMemory : public testing::TestWithParam<FailNth>
{
protected:
    ThreadsOutOfMemory() { ConsoleApp::Instance().SetPrintStream(nullptr); }
    ThreadsOutOfMemory(const ThreadsOutOfMemory&) = delete;
    ThreadsOutOfMemory& operator=(const ThreadsOutOfMemory&) = delete;
    ~ThreadsOutOfMemory() override { ConsoleApp::Instance().TakeJournal(); }

    /// Imports with three threads, which share every step. Returns whether it came to its end, with
    /// a true result.
    [[nodiscard]] bool Import(CKelvoDoc& doc) const
    {
        const CKelvoFileReadOptions options;
        bool result = false;
        try {
            CReadOBJ reader(m_path.wstring().c_str(), doc, options);
            reader.SetThreadCount(3);
            reader.Threads().startAfter = 0;
            reader.Threads().blockSize = 100;
            reader.Threads().manyCorners = 30;
            result = reader.Parse();
            result = reader.Build() && result;
        } catch (const std::bad_alloc&) {
            result = false;
        }
        ConsoleApp::Instance().TakeJournal();
        return result;
    }

    static std::ptrdiff_t RunningThreads()
    {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    }

    /// Whether no more threads than `before` run; one that has ended may still be listed for a
    /// moment.
    static bool AllThreadsEnd(std::ptrdiff_t before)
    {
        for (int tries = 0; tries < 5000 && RunningThreads() > before; ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return RunningThreads() <= before;
    }

private:
    TemporaryFolder m_folder;
    std::filesystem::path m_path = m_folder.Write("squares.obj", Squares());
};

TEST_P(ThreadsOutOfMemory, LeaveNothingBehindAndLoseNothingUnsaid)
{
    ConsoleDoc whole(0.001);
    ASSERT_TRUE(Import(whole));
    ASSERT_GT(whole.ObjectCount(), 4);
    // A sanitizer may have started one of its own.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const std::ptrdiff_t threads = RunningThreads();
    int failed = 0;
    int successes = 0;
    for (long nth = 1; successes < 20; ++nth) {
        SCOPED_TRACE(nth);
        const long blocks = LiveAllocations();
        const long failures = AllocationFailures();
        {
            ConsoleDoc doc(0.001);
            GetParam()(nth);
            const bool result = Import(doc);
            GetParam()(0);
            const bool hadMemory = AllocationFailures() == failures;
            successes = hadMemory ? successes + 1 : 0;
            failed += hadMemory ? 0 : 1;
            EXPECT_LE(doc.ObjectCount(), whole.ObjectCount());
            if (hadMemory) {
                EXPECT_TRUE(result);
                EXPECT_EQ(doc.ObjectCount(), whole.ObjectCount());
            }
        }
        EXPECT_EQ(LiveAllocations(), blocks);
        EXPECT_TRUE(AllThreadsEnd(threads));
    }
    EXPECT_GT(failed, 20);
}

INSTANTIATE_TEST_SUITE_P(NewAndKernel, ThreadsOutOfMemory,
                         testing::Values(FailNew, FailAllocation));

} // namespace
