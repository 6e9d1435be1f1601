#pragma once

#include "tests/trimming/trimmed_shapes.h"

#include <cstdint>

/// A file that a modeller might write, with what its import must make of it.
struct RandomFile
{
    std::vector<TrimmedShape> shapes;
    Writing writing;
    double tolerance = 1e-3;
};

/// Returns the file of a seed; the same on every platform.
RandomFile MakeRandomFile(std::uint32_t seed);
