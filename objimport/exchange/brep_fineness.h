#pragma once

#include "objimport/exchange/brep_geometry.h"

#include <cstddef>

/// How a brep is divided into triangles.
struct BrepFineness
{
    Placing placing;   ///< in which the brep has a size of about 1000, around the origin
    double size = 0.0; ///< longest side of its box, in the document's unit; 0 or infinite: none
    double tolerance = 0.0; ///< in the document's unit
    std::size_t mostTriangles = 0;
};

/// Returns the fineness for a tolerance that is asked for: at most a thousandth of the brep's size,
/// at least a fifty-thousandth, and as much more as keeps the number of triangles in proportion
/// to what the brep consists of.
BrepFineness FinenessOf(const GK_Brep& brep, double tolerance);
