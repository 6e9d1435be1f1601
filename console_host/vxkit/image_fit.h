#pragma once

#include "console_host/vxkit/surface_image.h"

#include <memory>

/// A curve over the interval that at each parameter is within the tolerance of the image: of degree
/// 1 when the image goes straight from break to break, else of degree 3, made of Hermite pieces
/// that are halved until they fit. Null when that takes too many pieces or too much work, or the
/// image is not finite.
std::unique_ptr<GK_Curve> FitImage(const SurfaceImage& image, const GK_Interval& interval,
                                   double tolerance);
