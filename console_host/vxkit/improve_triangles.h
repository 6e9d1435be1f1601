#pragma once

#include "console_host/vxkit/planar_polygon.h"

/// Exchanges diagonals of a polygon's triangles, none of which turns to the right, until hardly any
/// angle can be made larger. Narrow triangles whose direction in space is chance go where there is
/// any other choice. Some n log n steps.
void ImproveTriangles(std::span<const PlanarPoint> points, std::span<int> triangles);
