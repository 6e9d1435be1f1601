#pragma once

#include "objreader/thread_team.h"

#include <atomic>
#include <cstddef>

/// Calls `work` for each index below `count`, on all threads of the team in any order; without a
/// team, or for a single index, on this thread in their order. An exception ends the rest and is
/// passed on.
template <class Work>
void ForEachIndex(ThreadTeam* team, std::size_t count, const Work& work)
{
    if (team == nullptr || team->Count() < 2 || count < 2) {
        for (std::size_t i = 0; i < count; ++i)
            work(i);
        return;
    }
    std::atomic<std::size_t> next = 0;
    team->Run([&](unsigned /*thread*/) {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                work(i);
        } catch (...) {
            next = count;
            throw;
        }
    });
}
