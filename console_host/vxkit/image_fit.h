#pragma once

#include "console_host/vxkit/surface_image.h"

#include <memory>

/// The result of a fit.
struct ImageFit
{
    enum Outcome
    {
        Made,
        NotFinite,     ///< the image has a point that is not finite
        TooManyPoints, ///< it would take more control points than one curve may have
        TooMuchWork    ///< it would take more work than there is left
    };

    Outcome outcome = Made;
    std::unique_ptr<GK_NurbsCurve> curve; ///< null unless made
    double work = 0.0;                    ///< points of the image computed, at usual degrees
};

/// Fits a curve over the interval that at each parameter is within the tolerance of the image, and
/// within a ten-thousandth of the image's size where that is less, or as close as rounding allows:
/// of degree 1 when the image goes straight from break to break, else of degree 3, made of Hermite
/// pieces that are divided until they fit. A fit that would take too much is given up early.
ImageFit FitImage(SurfaceImage& image, const GK_Interval& interval, double tolerance,
                  double mostWork);
