#pragma once

#include "bench/scenes.h"
#include "objreader/stage_times.h"

#include <string>
#include <vector>

/// What one reader took for one scene.
struct Result
{
    std::string reader;
    double seconds = 0.0;   ///< of the best repetition, by the clock on the wall
    double processor = 0.0; ///< seconds of all processors together, of the best repetition
    double growth = 0.0;    ///< peak memory beyond what the process had before, in bytes
    StageTimes stages;      ///< of the best repetition
};

struct SceneResults
{
    Scene scene;
    double bytes = 0.0; ///< of the scene's file
    std::vector<Result> readers;

    /// Returns the result of a reader, or null when it was not run.
    [[nodiscard]] const Result* Find(std::string_view reader) const;
};

/// Prints what each reader took, the shares of the stages, and how the results compare with what
/// is aimed at. `threadCount` is that of the import on several threads.
void PrintScene(const SceneResults& results, unsigned threadCount);

/// Prints one line for each scene, as a table in Markdown.
void PrintTable(const std::vector<SceneResults>& results);

/// Returns how many aims were missed in all.
[[nodiscard]] int CountMissed(const std::vector<SceneResults>& results, unsigned threadCount);
