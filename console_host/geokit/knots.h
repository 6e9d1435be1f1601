#pragma once

#include "host/geokit/interval.h"

#include <span>

/// Returns knot order - 2 to knot count - 1, or [0, 0] when there are no such knots.
GK_Interval KnotDomain(std::span<const double> knots, int order, int count);

/// Maps the knots linearly so that their domain becomes [t0, t1]; knots at its ends become exactly
/// those. Returns false, with nothing changed, when the domain is empty or t0 is not below t1.
bool MapKnots(std::span<double> knots, const GK_Interval& domain, double t0, double t1);

/// Returns a part of a domain, in either direction, with ends that reach beyond the domain by less
/// than a ten-thousandth of it moved to its end: files round their numbers.
GK_Interval CutToDomain(const GK_Interval& part, const GK_Interval& domain);

/// Returns the parameter that takes the place of `t` when the domain is reversed; its ends are
/// exchanged exactly.
double MirrorParameter(const GK_Interval& domain, double t);
