#pragma once

#include "host/geokit/curve.h"

#include <vector>

/// A curve as a line through points of it, from its start to its end.
struct CurveLine
{
    std::vector<GK_3dPoint> points;
    bool isCoarse = false; ///< the line follows the curve less closely than was asked for
};

/// Returns a line that stays within the tolerance (above 0) of a valid curve, and within a
/// thousandth of the curve's size. Its work is bounded, far above what curves need that people
/// draw; where the bound is reached, the line is coarse. A curve of degree 1 is its own line.
/// Throws std::bad_alloc when out of memory.
CurveLine LineOfCurve(const GK_Curve& curve, double tolerance);
