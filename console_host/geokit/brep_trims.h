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
