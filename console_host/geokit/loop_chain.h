#pragma once

#include "console_host/geokit/loop_piece.h"

/// The result of chaining the pieces of a loop.
struct LoopChain
{
    /// The piece after which the loop does not go on; -1 when the loop closes.
    std::ptrdiff_t gapAfter = -1;

    /// How often the loop runs around the surface in u and in v.
    std::array<int, 2> winding{};
};

/// Chains the pieces of a loop, which are at least one: turns them, and when the order given does
/// not close reorders them, so that each ends nearest to where the next starts; shifts them by
/// whole periods, so that the loop goes on across seams without a leap. Only along a pole, which
/// is one point, may the end of one piece and the start of the next lie apart.
///
/// Work grows with the number of pieces; its square where a loop of up to a thousand is reordered.
LoopChain ChainPieces(std::vector<LoopPiece>& pieces, const ParameterPlane& plane);

/// Splits pieces that do not make one loop, in their order, into loops that each run around the
/// surface, in one or several pieces. Returns two at least, or none when they are no such loops.
std::vector<std::vector<LoopPiece>> RingsOf(const std::vector<LoopPiece>& pieces,
                                            const ParameterPlane& plane);
