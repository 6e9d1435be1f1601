#pragma once

#include "bench/scenes.h"

#include <map>
#include <string>
#include <vector>

/// What one reader took for one scene.
struct Result
{
    std::string reader;
    double seconds = 0.0; ///< processor time of the best repetition
    double growth = 0.0;  ///< peak memory beyond what the process had before, in bytes
};

struct SceneResults
{
    double bytes = 0.0; ///< of the scene's file
    std::vector<Result> readers;
};

/// All results by the scenes' names.
using Results = std::map<std::string, SceneResults, std::less<>>;

void PrintScene(const Scene& scene, const SceneResults& results);

/// Compares the readers with one another and with what is aimed at, as far as they were run.
void PrintRatios(const Results& results);
