// Whole runs of the program in which one call fails: an allocation, an opening, a writing.

#include "console_host/app/console_app.h"
#include "objimport/program.h"
#include "tests/failing_new.h"
#include "tests/json_values.h"
#include "tests/objimport/faults/failing_calls.h"
#include "tests/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// How a run ended.
struct Ended
{
    int status = 0;
    std::string errors;
    std::string json;
    long leaks = 0;
};

class Faults : public testing::TestWithParam<const char*>
{
protected:
    Faults()
    {
        fs::copy(fs::path(PROJECT_FOLDER) / "examples", folder / "examples",
                 fs::copy_options::recursive);
        whole = RunWith(Call::Allocate, 0);
        // What lives as long as the program was made by the first run.
        EXPECT_EQ(whole.status, 0);
        EXPECT_NE(whole.json, "");
    }

    /// Runs the program with its n-th call of a kind failing.
    Ended RunWith(Call call, long nth)
    {
        const fs::path json = folder.Write("out.json", "old");
        testing::internal::CaptureStderr();
        const long before = LiveAllocations();
        int status = 0;
        {
            std::vector<std::string> arguments = {"--quiet",
                                                  "--module",
                                                  BUILD_FOLDER "/bin/ImportOBJ.so",
                                                  "--settings",
                                                  Utf8(folder / "s.ini"),
                                                  "--json",
                                                  Utf8(json),
                                                  Utf8(folder / "examples" / GetParam())};
            fs::remove(folder / "s.ini");
            FailCall(call, nth);
            status = RunProgram(std::move(arguments));
            FailCall(call, 0);
        }
        ConsoleApp& app = ConsoleApp::Instance();
        app.TakeJournal();
        app.SetProfile(std::make_unique<ProfileStore>());
        app.FilesRead().clear();
        const long leaks = LiveAllocations() - before;
        return {status, testing::internal::GetCapturedStderr(), folder.Read("out.json"), leaks};
    }

    /// Returns whether nothing is lost, or a loss is reported.
    [[nodiscard]] bool IsHonest(const Ended& ended, bool mayBeSaidInTheJson) const
    {
        if (ended.status == 0 && ended.json == whole.json)
            return true;
        if (ended.status == 0)
            return mayBeSaidInTheJson && ended.json != "old" &&
                   JsonAt(ended.json, "/imports/0/prints") !=
                       JsonAt(whole.json, "/imports/0/prints");
        if (ended.errors.empty() && ended.status != 1)
            return false;
        return ended.status == 2 ? ended.json == "old" || ended.json == whole.json
                                 : JsonAt(ended.json, "/imports/0/outcome") != "imported";
    }

    /// Runs the program with every n-th call failing until none fails any more; every `step`-th
    /// only, unless FAULTS asks for all.
    void FailEach(Call call, long step, const char* expected)
    {
        if (std::getenv("FAULTS") != nullptr)
            step = 1;
        long runs = 0;
        long losses = 0;
        for (long nth = 1, harmless = 0; harmless < 40; nth += step, ++runs) {
            const Ended ended = RunWith(call, nth);
            ASSERT_TRUE(IsHonest(ended, call == Call::Open || call == Call::Read))
                << "call " << nth << ", status " << ended.status << ", " << ended.errors;
            ASSERT_EQ(ended.leaks, 0) << "call " << nth;
            ASSERT_EQ(FilesLeft(), 0) << "call " << nth;
            harmless = ended.status == 0 ? harmless + 1 : 0;
            losses += ended.status != 0 ? 1 : 0;
            const bool isSaid = ended.errors.find(expected) != std::string::npos;
            ASSERT_TRUE(isSaid || ended.status == 0) << ended.errors;
        }
        EXPECT_GT(losses, 0);
        RecordProperty("runs", static_cast<int>(runs));
        std::printf("%s: %ld runs, %ld of them failed\n", GetParam(), runs, losses);
    }

    /// Returns the number of files that were begun and not removed.
    [[nodiscard]] int FilesLeft() const
    {
        int count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
            count += entry.path().extension() == ".tmp" ? 1 : 0;
        return count;
    }

    TemporaryFolder folder;
    Ended whole;
};

TEST_P(Faults, AnAllocationThatFailsIsSaid)
{
    FailEach(Call::Allocate, 29, "out of memory");
}

TEST_P(Faults, AnAllocationOfTheKernelThatFailsIsSaid)
{
    FailEach(Call::KernelAllocate, 1, "out of memory");
}

TEST_P(Faults, AFileThatCannotBeOpenedIsNamed)
{
    FailEach(Call::Open, 1, "cannot");
}

TEST_P(Faults, AFileThatCannotBeReadIsNotImported)
{
    FailEach(Call::Read, 1, "");
}

TEST_P(Faults, AFileThatCannotBeWrittenIsNamed)
{
    FailEach(Call::Write, 1, "cannot");
}

INSTANTIATE_TEST_SUITE_P(Examples, Faults,
                         testing::Values("house.obj", "textured.obj", "trimmed_surface.obj"));

} // namespace
