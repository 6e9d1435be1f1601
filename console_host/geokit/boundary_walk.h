#pragma once

#include "console_host/geokit/seam_cut.h"

#include <string>
#include <variant>

/// A part of a side of the domain, in the direction of the side.
struct SidePart
{
    Side side = Side::South;
    double from = 0.0; ///< of the parameter that varies along the side
    double to = 0.0;
};

using LoopStep = std::variant<LoopPiece, SidePart>;

/// Parameters along seams, by the direction across.
using SeamPlaces = std::array<std::vector<double>, 2>;

/// A loop that was given, within the domain and with the face on its left.
struct DomainLoop
{
    std::vector<DomainPiece> pieces;
    int number = 0; ///< of the loop in the brep, from 1
    GK_BrepLoop::TYPE type = GK_BrepLoop::unknown;
};

/// A loop that bounds a face, closed within the domain.
struct WalkedLoop
{
    std::vector<LoopStep> steps;
    int number = 0;                                ///< of a loop that it is made of
    GK_BrepLoop::TYPE type = GK_BrepLoop::unknown; ///< as given; unknown when the walk made it
    Uv periods{}; ///< by which a loop that was given was shifted into the domain
};

/// The result of a walk.
struct BoundaryWalk
{
    std::vector<WalkedLoop> loops;
    int badLoop = 0;    ///< the loop that bounds nothing, 0 when there is none
    std::string reason; ///< then: why, as a clause
};

/// Takes out of the loops of a face what a walk along the sides of the domain makes again: what
/// runs along a pole, and along a seam what runs there in both directions. The pieces that follow
/// are marked. Returns where the pieces along seams that were taken out begin and end.
SeamPlaces StripSeams(std::vector<DomainLoop>& loops, const ParameterPlane& plane);

/// Returns whether the loop continues from the piece to the next one not directly, but from seam to
/// seam, along a pole or along what was taken out.
bool IsBreak(const DomainPiece& piece, const DomainPiece& next, const ParameterPlane& plane);

/// Returns the first piece of a loop that follows a break; the number of pieces when none does.
std::size_t FirstAfterBreak(const std::vector<DomainPiece>& pieces, const ParameterPlane& plane);

/// Closes loops along the sides of the domain: where a loop arrives at a seam or a pole, the
/// boundary of the face goes on along the sides, counter-clockwise, until a loop departs from them.
/// A loop without pieces stands for the sides themselves. With `natural` they bound the face, and
/// may be walked where they are neither seam nor pole.
BoundaryWalk WalkBoundary(std::vector<DomainLoop> loops, const ParameterPlane& plane, bool natural);
