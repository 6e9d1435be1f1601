#pragma once

#include "host/geokit/brep.h"

#include <array>

/// Where a trim starts and ends, in space and in the parameter plane (z is not used).
struct TrimEnds
{
    std::array<GK_3dPoint, 2> point;
    std::array<GK_3dPoint, 2> uv;
};

/// The surface that a trim runs on.
const GK_Surface& TrimSurface(const GK_Brep& brep, const GK_BrepTrim& trim);

TrimEnds EndsOf(const GK_Brep& brep, const GK_BrepTrim& trim);

/// The ends are at one place: within the tolerance in space, and not across a seam of the surface,
/// so that the straight way between them in the parameter plane stays there.
bool EndsMeet(const GK_Surface& surface, const TrimEnds& a, std::size_t endOfA, const TrimEnds& b,
              std::size_t endOfB, double tolerance);

/// Gives every trim a 2D curve of its own.
void SeparateTrimCurves(GK_Brep& brep);

/// Makes the domain of a trim increasing, which turns its 2D curve round where it is not, and makes
/// direction and vertices of the trim agree with its edge by comparing where they run. The curve
/// must be the trim's own.
void AgreeWithEdge(GK_Brep& brep, GK_BrepTrim& trim);

/// Turns a trim round that agrees with its edge; it still does. The curve must be the trim's own.
void FlipTrim(GK_Brep& brep, GK_BrepTrim& trim);

/// Twice the area that a loop encloses in the parameter plane, positive when counter-clockwise.
double SignedArea(const GK_Brep& brep, const GK_BrepLoop& loop);
