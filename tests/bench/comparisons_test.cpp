#include "bench/comparisons.h"
#include "bench/readers.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

/// Returns an import of 100 MB: one second on one thread, of which a tenth cannot be shared and a
/// tenth belongs to no stage.
SceneResults OneSecond()
{
    SceneResults results{{"scene", "", 100.0, {}, {2.0, 1.5}}, 100e6, {}};
    Result import{ImportReader, 1.0, 1.0, 140e6, {}};
    import.stages.Add(ImportStage::HandOver, 100ms);
    import.stages.Add(ImportStage::MeshVertices, 800ms);
    results.readers = {
        {NumbersReader, 0.3, 0.2, 0.0, {}}, {ParseReader, 0.9, 0.4, 80e6, {}}, import};
    return results;
}

std::string Missed(const SceneResults& results)
{
    std::string missed;
    for (const Comparison& comparison : Compare(results, 2))
        if (comparison.IsMissed())
            missed += comparison.what + "; ";
    return missed;
}

TEST(Comparisons, FindsTheAimsThatAreMissed)
{
    SceneResults results = OneSecond();
    EXPECT_EQ(Missed(results), "import / parse; sequential share; ");
    results.readers[1].processor = 0.5;
    EXPECT_EQ(Missed(results), "sequential share; ");
    results.readers[2].growth = 151e6;
    EXPECT_EQ(Missed(results), "memory / bytes of input; sequential share; ");
}

TEST(Comparisons, HoldsSeveralThreadsAgainstOne)
{
    SceneResults results = OneSecond();
    results.readers[1].processor = 0.5;
    Result threads = results.readers[2];
    threads.reader = ThreadedImportReader;
    threads.seconds = 0.7;
    threads.growth = 170e6;
    threads.stages = {};
    threads.stages.Add(ImportStage::HandOver, 40ms);
    results.readers.push_back(threads);
    EXPECT_EQ(Missed(results), "2 threads / one; memory on threads / on one; ");
    results.readers.back().seconds = 0.6;
    results.readers.back().growth = 150e6;
    EXPECT_EQ(Missed(results), "");
    results.readers.back().seconds = 0.7;
    results.bytes = 10e6; // small files need not gain by threads
    results.scene.aims = {2.0, 0.0};
    EXPECT_EQ(Missed(results), "");
}

TEST(Comparisons, CountsWhatBelongsToNoStageAsSequential)
{
    SceneResults results = OneSecond();
    EXPECT_NEAR(SequentialShare(results).value_or(0.0), 0.2, 1e-9);
    EXPECT_NEAR(SpeedOnCores(0.2, 16.0), 4.0, 1e-9);
    results.readers[2].stages = {};
    EXPECT_FALSE(SequentialShare(results));
}

} // namespace
