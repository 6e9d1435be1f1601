#pragma once

#include "console_host/geokit/piece_samples.h"

/// Takes seams out of a chained loop that it places elsewhere than the surface does: pieces along a
/// line of constant parameter, run along a second time in the other direction, whole periods apart.
///
/// `samples` stand beside the pieces.
///
/// Returns the closed loops that are left, none when seams are all there was; the loop itself when
/// it has no such seam. Work grows with the square of the pieces, of which there are no more than a
/// thousand in a loop that is looked at.
std::vector<std::vector<LoopPiece>> WithoutStraySeams(const std::vector<LoopPiece>& pieces,
                                                      const std::vector<PieceSamples>& samples,
                                                      const ParameterPlane& plane);
