#pragma once

#include "host/geokit/curve.h"
#include "host/geokit/point.h"

#include <vector>

class TopoDS_Shape;

/// Returns a curve as an edge. What the library does not take throws std::runtime_error, or its own
/// Standard_Failure.
TopoDS_Shape CurvePart(const GK_Curve& curve);

/// Returns points as vertices.
TopoDS_Shape PointsPart(const std::vector<GK_3dPoint>& points);
