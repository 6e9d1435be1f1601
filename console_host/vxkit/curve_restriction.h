#pragma once

#include "host/geokit/nurbs_curve.h"

/// Returns the part of a valid curve between two parameters (t0 below t1), clamped at both, as a
/// curve of the same shape and parameters; outside the domain the first or last span continues.
/// Each control point is the blossom of the curve at its knots (L. Ramshaw, "Blossoms are polar
/// forms", 1989), which is equivalent to knot insertion (The NURBS Book, A5.1).
std::unique_ptr<GK_NurbsCurve> RestrictCurve(const GK_NurbsCurve& curve, double t0, double t1);
