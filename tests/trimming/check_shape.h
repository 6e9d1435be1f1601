#pragma once

#include "tests/trimming/trimmed_shapes.h"

/// Returns what an import of a file with these shapes makes of them otherwise than they say, a text
/// for each fault; empty when all is as it must be.
std::vector<std::string> ImportFaults(const std::vector<TrimmedShape>& shapes,
                                      const Writing& writing, double tolerance);

/// Returns the shape at another size and place.
TrimmedShape Placed(TrimmedShape shape, double scale, double offset);
