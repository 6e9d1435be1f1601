#pragma once

#include "console_host/geokit/piece_samples.h"

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
