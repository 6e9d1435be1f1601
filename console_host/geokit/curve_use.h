#pragma once

#include "console_host/geokit/loop_piece.h"

#include <unordered_map>

/// Counts how often the loops of a face run along each curve. What lies in a plane has two sides,
/// so a curve bounds a face at most twice; a file can name one a thousand times in a few bytes.
class CurveUse
{
public:
    /// Adds the pieces of a loop. False, and nothing added, when with them a curve would be run
    /// along more than twice.
    bool Add(const std::vector<LoopPiece>& pieces);

private:
    // By the storage that the copies of a curve share: the polynomial spans run through.
    std::unordered_map<const void*, std::int64_t> m_spans;
};
