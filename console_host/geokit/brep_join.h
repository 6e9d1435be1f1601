#pragma once

#include "host/geokit/brep.h"

/// Gives trim ends at one place one vertex: the end of each trim and the start of the next in its
/// loop, which must meet; and ends anywhere else that are within `near` of each other, as long as
/// every edge is much longer than that. Vertices move to the middle of what they join. Edges that
/// collapse to a point go, and their trims stay without an edge. Work grows as n log n at most.
void JoinTrimEnds(GK_Brep& brep, double near);
