#pragma once

#include "console_host/vxkit/planar_polygon.h"

/// Cuts a polygon of any number of corners, which turns to the left, into triangles while a line
/// sweeps over it, in some n log n steps. The polygon may touch itself. False when its sides cross.
bool TriangulateBySweep(std::span<const PlanarPoint> points, TriangleWriter& triangles);
