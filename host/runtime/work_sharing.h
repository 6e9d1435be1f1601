#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>

/// Threads that share a piece of work, lent to an operation for as long as it runs. Whoever lends
/// them owns them. The threads touch only what the operation gives them.
class KelvoWorkSharing
{
public:
    KelvoWorkSharing() = default;
    KelvoWorkSharing(const KelvoWorkSharing&) = delete;
    KelvoWorkSharing& operator=(const KelvoWorkSharing&) = delete;
    virtual ~KelvoWorkSharing() = default;

    /// Returns how many threads there are, the calling one being one of them.
    [[nodiscard]] virtual unsigned ThreadCount() const = 0;

    /// Calls `work` on every thread at the same time, with the number of the thread: 0 is that of
    /// the calling one. Returns when all calls have returned, and passes on an exception that one
    /// of them has thrown. Not to be called from within such work.
    template <class Work>
    void Run(const Work& work)
    {
        const auto call = [](const void* context, unsigned thread) {
            (*static_cast<const Work*>(context))(thread);
        };
        RunTask({&work, call});
    }

protected:
    struct Task
    {
        const void* context = nullptr;
        void (*call)(const void* context, unsigned thread) = nullptr;
    };

    virtual void RunTask(const Task& task) = 0;
};

/// Calls `work` for each index below `count`, on all threads in any order; without threads, or for
/// a single index, on this thread in their order. An exception ends the rest and is passed on.
template <class Work>
void KelvoForEachIndex(KelvoWorkSharing* threads, std::size_t count, const Work& work)
{
    if (threads == nullptr || threads->ThreadCount() < 2 || count < 2) {
        for (std::size_t i = 0; i < count; ++i)
            work(i);
        return;
    }
    std::atomic<std::size_t> next = 0;
    threads->Run([&](unsigned /*thread*/) {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                work(i);
        } catch (...) {
            next = count;
            throw;
        }
    });
}

/// Divides the numbers below `count` into ranges of at least `smallest`, some for each thread, and
/// calls `work` with the beginning and the end of each, as KelvoForEachIndex does. Without threads
/// there is one range.
template <class Work>
void KelvoForEachRangeOf(KelvoWorkSharing* threads, std::size_t count, std::size_t smallest,
                         const Work& work)
{
    constexpr std::size_t RangesPerThread = 8;
    const std::size_t ranges =
        threads == nullptr ? 1
                           : std::clamp<std::size_t>(count / smallest, 1,
                                                     threads->ThreadCount() * RangesPerThread);
    KelvoForEachIndex(threads, ranges,
                      [&](std::size_t i) { work(count * i / ranges, count * (i + 1) / ranges); });
}

/// As KelvoForEachRangeOf, for numbers each of which is little work.
template <class Work>
void KelvoForEachRange(KelvoWorkSharing* threads, std::size_t count, const Work& work)
{
    constexpr std::size_t Smallest = 4096;
    KelvoForEachRangeOf(threads, count, Smallest, work);
}
