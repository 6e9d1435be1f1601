#pragma once

#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"

#include <span>

/// For each position, the lowest index of one that equals it; its own when there is none before it.
/// A position with a coordinate that is not a number equals none. Work stays near n log n whatever
/// the positions are.
GK_SimpleArray<int> FirstEqualPositions(std::span<const GK_3fPoint> positions);
