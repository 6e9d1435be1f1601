#pragma once

#include "host/geokit/nurbs_curve.h"

#include <array>
#include <memory>
#include <vector>

/// A cubic in Bezier form over [t0, t1].
struct HermitePiece
{
    double t0;
    double t1;
    double tolerance; ///< within it the piece is what it should be
    std::array<GK_3dPoint, 4> points;

    /// Returns the point at a fraction 0 to 1 of the way.
    [[nodiscard]] GK_3dPoint PointAt(double fraction) const;
};

/// Returns one curve of pieces that each begin where the one before ends, or within the tolerance
/// of it: of degree 1 when all are straight, else of degree 3, smooth where they are.
std::unique_ptr<GK_NurbsCurve> JoinPieces(const std::vector<HermitePiece>& pieces);
