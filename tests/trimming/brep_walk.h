#pragma once

#include "host/geokit/brep.h"

#include <string>
#include <vector>

/// Returns what is wrong with a brep, a text for each fault; empty when it is sound. Walks faces,
/// loops, trims, edges and vertices with nothing but the accessors of the parts and the evaluation
/// of their curves and surfaces: parts name each other both ways, loops are closed in the parameter
/// plane and in space and run in the right direction, edges lie on their surface along their trims.
/// `tolerance` is that of the document, in its unit.
std::vector<std::string> FaultsOf(const GK_Brep& brep, double tolerance);

/// Returns the corners of a fine polygon along a loop in the parameter plane.
std::vector<GK_2dPoint> Outline(const GK_Brep& brep, const GK_BrepLoop& loop);

/// Returns the area of a polygon, positive when it runs counter-clockwise.
double SignedAreaOf(const std::vector<GK_2dPoint>& polygon);

/// Returns whether a point lies within a polygon.
bool IsInside(const GK_2dPoint& point, const std::vector<GK_2dPoint>& polygon);

/// Returns the area in space of the part of its surfaces that a brep's loops bound, to about 1e-6
/// of it. Loops whose trims do not meet have none.
double AreaOf(const GK_Brep& brep);
