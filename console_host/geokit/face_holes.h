#pragma once

#include "console_host/geokit/face_bounds.h"
#include "console_host/geokit/loop_polygon.h"

/// The lines of a loop that was given, as far as they are left.
LoopPolygon PolygonOf(const DomainLoop& loop, const ParameterPlane& plane);

/// Makes a face of each outer loop and puts each inner loop into the smallest outer one that holds
/// it. Inner loops that lie in none, cross another loop or lie within another inner loop are
/// dropped and noted.
std::vector<FaceBounds> PlaceHoles(std::vector<WalkedLoop> loops, const ParameterPlane& plane,
                                   BrepRepairReport& report);
