#pragma once

#include "host/geokit/interval.h"
#include "host/geokit/simple_array.h"

/// Knot order - 2 to knot count - 1, or [0, 0] when there are no such knots.
GK_Interval KnotDomain(const GK_SimpleArray<double>& knots, int order, int count);

/// Maps the knots linearly so that their domain becomes [t0, t1]; knots at its ends become exactly
/// those. False, and nothing changed, when the domain is empty or t0 is not below t1.
bool MapKnots(GK_SimpleArray<double>& knots, const GK_Interval& domain, double t0, double t1);

/// Where a parameter goes when a domain is turned round; its ends are exchanged exactly.
double MirrorParameter(const GK_Interval& domain, double t);
