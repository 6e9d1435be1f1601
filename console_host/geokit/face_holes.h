#pragma once

#include "console_host/geokit/face_bounds.h"
#include "console_host/geokit/loop_shape.h"

/// Returns the lines of a loop that was given, as far as they are left.
LoopPolygon PolygonOf(const DomainLoop& loop, const ParameterPlane& plane);

/// `shapes` are the loops that were given; their polygons are moved from.
///
/// Makes a face of each outer loop and puts each inner loop into the smallest outer one that holds
/// it. Inner loops that lie in none, cross another loop or lie within another inner loop are
/// dropped and noted.
std::vector<FaceBounds> PlaceHoles(std::vector<WalkedLoop> loops, std::vector<LoopShape>& shapes,
                                   const ParameterPlane& plane, BrepRepairReport& report);
