#pragma once

#include "bench/results.h"

#include <optional>
#include <string>
#include <vector>

/// A figure that is a ratio of two results, and what it is to be.
struct Comparison
{
    enum class Aim
    {
        None,
        AtMost,
        AtLeast
    };

    std::string what;
    double ratio = 0.0;
    Aim aim = Aim::None;
    double limit = 0.0;

    [[nodiscard]] bool IsMissed() const
    {
        return (aim == Aim::AtMost && ratio > limit) || (aim == Aim::AtLeast && ratio < limit);
    }
};

/// Returns the comparisons of a scene, as far as the readers they need were run.
[[nodiscard]] std::vector<Comparison> Compare(const SceneResults& results, unsigned threadCount);

/// Returns the part, 0 to 1, of an import on one thread that several threads cannot share: the
/// sequential stages, and what belongs to no stage. Nothing when no stage was timed.
[[nodiscard]] std::optional<double> SequentialShare(const SceneResults& results);

/// Returns how many times as fast so many cores are as one when they share all but this part.
[[nodiscard]] double SpeedOnCores(double sequentialShare, double cores);

/// Returns the time of all stages in seconds.
[[nodiscard]] double SumOfStages(const StageTimes& stages);
