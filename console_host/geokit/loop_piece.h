#pragma once

#include "console_host/geokit/parameter_plane.h"

#include "host/geokit/brep.h"
#include "host/geokit/nurbs_curve.h"

#include <memory>
#include <vector>

/// A step of a loop as plain data: a part of a curve in the parameter plane, run through in one of
/// the two directions, and the curve in space along it.
struct LoopPiece
{
    std::shared_ptr<const GK_NurbsCurve> curve;
    GK_Interval part;       ///< of the curve; increases
    bool backwards = false; ///< the loop runs from the part's end to its start
    Uv shift{};             ///< whole periods that are added to the curve's points

    std::shared_ptr<const GK_Curve> edgeCurve; ///< null when the piece has no edge
    GK_Interval edgePart;                      ///< of the edge curve; increases
    bool edgeTurned = false;                   ///< the edge curve's part runs against the curve's
    int edge = -1;                             ///< of the brep that the piece was taken from

    int number = 0; ///< in its loop as it was given, from 1

    [[nodiscard]] Uv At(double t) const;
    [[nodiscard]] Uv Start() const { return At(part[backwards ? 1 : 0]); }
    [[nodiscard]] Uv End() const { return At(part[backwards ? 0 : 1]); }

    /// Returns the piece between two parameters (t0 below t1) of its part.
    [[nodiscard]] LoopPiece Between(double t0, double t1) const;
};

/// Returns the pieces of a loop of a brep whose curves are valid, in their order. `plane` is that
/// of the surface. The brep stays as it is.
std::vector<LoopPiece> PiecesOf(const GK_Brep& brep, const GK_BrepLoop& loop,
                                const ParameterPlane& plane);

/// Reverses the direction of a loop.
void TurnLoop(std::vector<LoopPiece>& pieces);
