#include "bench/results.h"

#include "bench/comparisons.h"
#include "bench/readers.h"

#include <algorithm>
#include <cstdio>

namespace {

void PrintReader(const Result& result, double bytes)
{
    std::printf("  %-16s %9.4f %10.4f %8.1f", result.reader.c_str(), result.seconds,
                result.processor, bytes / 1e6 / result.seconds);
    if (result.growth > 0.0)
        std::printf(" %22.2f", result.growth / bytes);
    std::puts("");
}

/// One line: the stages that take a hundredth or more, and what belongs to none of them.
void PrintStages(const Result& import)
{
    const double sum = SumOfStages(import.stages);
    if (sum == 0.0)
        return;
    std::printf("  stages of %s:", import.reader.c_str());
    // The stages of several threads may come to more than the clock on the wall.
    const double whole = std::max(sum, import.seconds);
    for (std::size_t i = 0; i < ImportStages.size(); ++i) {
        const auto time = import.stages.Of(static_cast<ImportStage>(i));
        const double share = std::chrono::duration<double>(time).count() / whole;
        if (share >= 0.01)
            std::printf(" %s %.0f%%,", ImportStages[i].name.data(), share * 100.0);
    }
    std::printf(" rest %.0f%%\n", (1.0 - sum / whole) * 100.0);
}

void PrintComparison(const Comparison& comparison)
{
    std::printf("  %-28s %6.2f", comparison.what.c_str(), comparison.ratio);
    if (comparison.aim != Comparison::Aim::None)
        std::printf("  at %s %.2f  %s",
                    comparison.aim == Comparison::Aim::AtMost ? "most" : "least", comparison.limit,
                    comparison.IsMissed() ? "MISSED" : "reached");
    std::puts("");
}

/// A figure of a table: none when the reader was not run.
void PrintCell(const char* format, double value)
{
    std::printf(" | ");
    if (value > 0.0)
        std::printf(format, value);
}

void PrintRow(const SceneResults& results)
{
    const auto seconds = [&](const char* reader) {
        const Result* const result = results.Find(reader);
        return result != nullptr ? result->seconds : 0.0;
    };
    std::printf("| %s", results.scene.name.c_str());
    PrintCell("%.0f", results.bytes / 1e6);
    for (const char* const reader :
         {BytesReader, NumbersReader, ParseReader, ImportReader, ThreadedImportReader})
        PrintCell("%.3f", seconds(reader));
    const Result* const import = results.Find(ImportReader);
    const Result* const parse = results.Find(ParseReader);
    PrintCell("%.2f", import->processor / parse->processor);
    PrintCell("%.2f", import->growth / results.bytes);
    const auto share = SequentialShare(results);
    PrintCell("%.0f%%", share.value_or(0.0) * 100.0);
    PrintCell("%.1f", share ? SpeedOnCores(*share, 16.0) : 0.0);
    std::puts(" |");
}

} // namespace

void PrintScene(const SceneResults& results, unsigned threadCount)
{
    std::printf("%s: %s, %.1f MB\n", results.scene.name.c_str(), results.scene.what.c_str(),
                results.bytes / 1e6);
    std::printf("  %-16s %9s %10s %8s %22s\n", "", "seconds", "processor", "MB/s",
                "memory for each byte");
    for (const Result& result : results.readers)
        PrintReader(result, results.bytes);
    for (const char* const reader : {ImportReader, ThreadedImportReader})
        if (const Result* const result = results.Find(reader))
            PrintStages(*result);
    for (const Comparison& comparison : Compare(results, threadCount))
        PrintComparison(comparison);
    std::puts("");
    std::fflush(stdout);
}

int CountMissed(const std::vector<SceneResults>& results, unsigned threadCount)
{
    std::ptrdiff_t missed = 0;
    for (const SceneResults& scene : results)
        missed += std::ranges::count_if(Compare(scene, threadCount), &Comparison::IsMissed);
    return static_cast<int>(missed);
}

void PrintTable(const std::vector<SceneResults>& results)
{
    std::puts("| scene | MB | bytes | numbers | parse | import | on threads | import / parse | "
              "memory / byte | sequential | 16 cores |");
    std::puts("|---|---|---|---|---|---|---|---|---|---|---|");
    std::ranges::for_each(results, PrintRow);
}
