#include "bench/comparisons.h"

#include "bench/readers.h"

#include <algorithm>

namespace {

using Aim = Comparison::Aim;

constexpr double ThreadsPayFrom = 50e6; ///< bytes of a file
constexpr double ManyCores = 16.0;

double Seconds(const StageTimes& stages, std::size_t stage)
{
    return std::chrono::duration<double>(stages.Of(static_cast<ImportStage>(stage))).count();
}

double SequentialSeconds(const StageTimes& stages)
{
    double seconds = 0.0;
    for (std::size_t i = 0; i < ImportStages.size(); ++i)
        if (ImportStages[i].sequential)
            seconds += Seconds(stages, i);
    return seconds;
}

void CompareOneThread(const SceneResults& results, std::vector<Comparison>& comparisons)
{
    const Result* const import = results.Find(ImportReader);
    const Result* const parse = results.Find(ParseReader);
    const Result* const numbers = results.Find(NumbersReader);
    const SceneAims& aims = results.scene.aims;
    if (parse != nullptr && numbers != nullptr)
        comparisons.push_back({"parse / numbers alone", parse->processor / numbers->processor});
    if (import == nullptr || parse == nullptr)
        return;
    comparisons.push_back(
        {"import / parse", import->processor / parse->processor, Aim::AtMost, aims.importPerParse});
    comparisons.push_back({"memory / bytes of input", import->growth / results.bytes,
                           aims.memoryPerByte > 0.0 ? Aim::AtMost : Aim::None, aims.memoryPerByte});
}

void CompareThreads(const SceneResults& results, unsigned threadCount,
                    std::vector<Comparison>& comparisons)
{
    const Result* const one = results.Find(ImportReader);
    const Result* const several = results.Find(ThreadedImportReader);
    const bool large = results.bytes > ThreadsPayFrom;
    if (const auto share = SequentialShare(results)) {
        comparisons.push_back({"sequential share", *share, large ? Aim::AtMost : Aim::None, 0.15});
        comparisons.push_back({"16 cores / one, projected", SpeedOnCores(*share, ManyCores)});
    }
    if (one == nullptr || several == nullptr)
        return;
    comparisons.push_back({std::to_string(threadCount) + " threads / one",
                           one->seconds / several->seconds, large ? Aim::AtLeast : Aim::None, 1.6});
    comparisons.push_back({"memory on threads / on one", several->growth / one->growth,
                           large ? Aim::AtMost : Aim::None, 1.15});
}

void CompareOthers(const SceneResults& results, std::vector<Comparison>& comparisons)
{
    for (const char* const own : {ParseReader, ImportReader})
        for (const char* const other : {"tinyobjloader", "assimp"}) {
            const Result* const ownResult = results.Find(own);
            const Result* const otherResult = results.Find(other);
            if (ownResult != nullptr && otherResult != nullptr)
                comparisons.push_back({std::string(other) + " / " + own,
                                       otherResult->processor / ownResult->processor});
        }
}

} // namespace

const Result* SceneResults::Find(std::string_view reader) const
{
    const auto found = std::ranges::find(readers, reader, &Result::reader);
    return found != readers.end() ? &*found : nullptr;
}

double SumOfStages(const StageTimes& stages)
{
    double seconds = 0.0;
    for (std::size_t i = 0; i < ImportStages.size(); ++i)
        seconds += Seconds(stages, i);
    return seconds;
}

std::optional<double> SequentialShare(const SceneResults& results)
{
    const Result* const one = results.Find(ImportReader);
    if (one == nullptr || SumOfStages(one->stages) == 0.0)
        return std::nullopt;
    const Result* const several = results.Find(ThreadedImportReader);
    const double rest = std::max(0.0, one->seconds - SumOfStages(one->stages));
    const double sequential = SequentialSeconds(several != nullptr ? several->stages : one->stages);
    return (sequential + rest) / one->seconds;
}

double SpeedOnCores(double sequentialShare, double cores)
{
    return 1.0 / (sequentialShare + (1.0 - sequentialShare) / cores);
}

std::vector<Comparison> Compare(const SceneResults& results, unsigned threadCount)
{
    std::vector<Comparison> comparisons;
    CompareOneThread(results, comparisons);
    CompareThreads(results, threadCount, comparisons);
    CompareOthers(results, comparisons);
    return comparisons;
}
