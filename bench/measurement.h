#pragma once

#include "bench/readers.h"
#include "bench/results.h"

/// Reads the file `repetitions` times with each reader and returns the best of each; the memory is
/// not measured. The readers take turns, so that a slow moment of the machine hits them all alike;
/// those of other libraries, which are no aim, read only once.
[[nodiscard]] std::vector<Result> TimeReaders(const std::vector<NamedReader>& readers,
                                              const std::string& path, int repetitions);
