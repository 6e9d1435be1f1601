#pragma once

#include "objreader/corner.h"

#include <vector>

/// Puts corners into the order of CompareCorners and leaves one of each.
void SortDistinct(std::vector<V_TN_IDX>& corners);
