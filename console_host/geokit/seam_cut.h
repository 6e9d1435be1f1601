#pragma once

#include "console_host/geokit/piece_samples.h"

/// A piece that lies within the domain: on one side of it, or nowhere along a seam or pole.
struct DomainPiece
{
    LoopPiece piece;
    Uv periods{};             ///< by which it was shifted into the domain
    std::optional<Side> side; ///< the seam or pole that it runs along
    bool afterSeam = false;   ///< a seam or pole that stood before it in the loop was taken out
};

/// Cuts the pieces of a loop, whose samples stand beside them, where they cross a seam of the
/// surface or begin or end to run along a seam or a pole, and shifts what comes of it into the
/// domain. What runs along a seam goes to the side that has the loop's inside, its left, within
/// the domain.
std::vector<DomainPiece> CutAtSeams(const std::vector<LoopPiece>& pieces,
                                    const std::vector<PieceSamples>& samples,
                                    const ParameterPlane& plane);

/// Cuts a piece that runs along a side where it passes the given parameters of that side. Pieces
/// come in the order of the loop.
std::vector<DomainPiece> CutAlongSide(const DomainPiece& piece, const std::vector<double>& values,
                                      const ParameterPlane& plane);

/// Takes seams out of a chained loop that places them elsewhere than the surface does: pieces along
/// a line of constant parameter that is run along again in the other direction, whole periods away.
/// `samples` stand beside the pieces.
///
/// Returns the closed loops that are left, none when seams are all there was; the loop itself when
/// it has no such seam. Work grows with the square of the pieces along such lines; a loop with more
/// than a thousand of them is returned as it is.
std::vector<std::vector<LoopPiece>> WithoutStraySeams(const std::vector<LoopPiece>& pieces,
                                                      const std::vector<PieceSamples>& samples,
                                                      const ParameterPlane& plane);
