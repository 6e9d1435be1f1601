#include "console_host/app/console_app.h"
#include "console_host/runtime/allocation_failures.h"
#include "tests/failing_new.h"
#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// Calls `run` with each of its allocations failing, one after the other, until none fails: each
/// failure is noted, and nothing is leaked. Returns how many failed.
int FailEach(const std::function<bool()>& run)
{
    EXPECT_TRUE(run()) << "what lives as long as the program is made here";
    for (long nth = 1; nth < 1000; ++nth) {
        const long before = LiveAllocations();
        const long failures = AllocationFailures();
        FailNew(nth);
        const bool isDone = run();
        FailNew(0);
        EXPECT_EQ(LiveAllocations(), before) << nth;
        if (isDone)
            return static_cast<int>(nth - 1);
        EXPECT_GT(AllocationFailures(), failures) << nth;
    }
    return 0;
}

TEST(ImageMemory, AnAllocationThatFailsIsNotedAndNothingIsLeaked)
{
    ConsoleApp::Instance();
    const TemporaryFolder folder;
    for (const char* name : {"interlaced.png", "rgba16.png", "rle.tga", "rgb.bmp"}) {
        SCOPED_TRACE(name);
        const std::wstring path =
            WidePath(fs::path(PROJECT_FOLDER) / "fuzz" / "seeds" / "images" / name);
        EXPECT_GT(FailEach([&] { return CKelvoDib().ReadFromFile(path.c_str()) != 0; }), 2);
    }
    const CKelvoDib image = MakeImage(9, 9, 32, [](int x, int y) -> Rgba { return {x, y, 0, 9}; });
    const std::wstring path = WidePath(folder / "a.png");
    EXPECT_GT(FailEach([&] { return image.WriteToFile(path.c_str()) != 0; }), 5);
}

} // namespace
