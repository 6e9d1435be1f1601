#pragma once

#include "host/geokit/curve.h"

/// A straight line in the parameter plane from one point to another (z is not used), over a domain.
std::unique_ptr<GK_Curve> MakeLineCurve(const GK_3dPoint& from, const GK_3dPoint& to,
                                        const GK_Interval& domain);
