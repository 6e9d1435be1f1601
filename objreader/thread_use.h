#pragma once

#include "objreader/thread_team.h"

#include <cstddef>
#include <cstdint>

/// How a file is read and built with several threads. The sizes are those from which it is worth
/// it; tests set smaller ones.
struct ThreadUse
{
    ThreadTeam& team;
    std::size_t startAfter = std::size_t{1} << 20; ///< bytes that are read by one thread first
    std::size_t blockSize = std::size_t{1} << 19;  ///< bytes that each thread reads at a time
    std::int64_t manyCorners = 1 << 17;            ///< a mesh of so many is made by all threads

    /// Returns the team for what follows the reading of so many bytes: null when one thread does.
    [[nodiscard]] ThreadTeam* TeamAfter(std::size_t bytes) const
    {
        return bytes < startAfter || team.ThreadCount() < 2 ? nullptr : &team;
    }
};
