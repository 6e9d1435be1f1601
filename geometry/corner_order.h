#pragma once

#include "objreader/corner.h"

#include "host/geokit/simple_array.h"

#include <span>

/// Returns the positions of the corners in the order of CompareCorners; equal corners in the order
/// in which they stand. The corners must count less than 2^31.
GK_SimpleArray<int> SortCorners(std::span<const V_TN_IDX> corners);
