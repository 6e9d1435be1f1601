#pragma once

#include "bench/readers.h"

#include <string>
#include <string_view>

/// Reads the file in this process and prints on standard output by how many bytes the process grew
/// at its largest. For a process that does nothing else.
void PrintGrowth(std::string_view reader, unsigned threadCount, const std::string& path);

/// Returns the same, measured in a fresh child process of this program. Throws std::runtime_error
/// when the child fails.
[[nodiscard]] double MeasureGrowth(std::string_view reader, unsigned threadCount,
                                   const std::string& path);

/// The option, known to the program's `main` alone, on which a child calls PrintGrowth.
inline constexpr std::string_view GrowthOption = "--growth";
