#include "console_host/geokit/equal_positions.h"

#include <mutex>
#include <numeric>
#include <tuple>
#include <vector>

namespace {

/// Tells quickly which positions may have an equal one: those whose hash shares one of many places
/// with that of another position.
class SharedPlaces
{
public:
    SharedPlaces(std::span<const GK_3fPoint> positions, KelvoWorkSharing* threads)
    {
        constexpr std::size_t PlacesPerPosition = 8;
        const std::size_t placeCount = std::bit_ceil(positions.size() * PlacesPerPosition + 64);
        m_shift = 64 - std::countr_zero(placeCount);
        m_taken.resize(placeCount / 64);
        m_shared.resize(placeCount / 64);
        KelvoForEachRange(threads, positions.size(), [&](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i)
                Take(Place(PositionHash(positions[i])), threads != nullptr);
        });
    }

    [[nodiscard]] bool Contains(std::uint64_t hash) const
    {
        const std::uint64_t place = Place(hash);
        return (m_shared[place / 64] & Bit(place)) != 0;
    }

private:
    [[nodiscard]] std::uint64_t Place(std::uint64_t hash) const { return hash >> m_shift; }
    static std::uint64_t Bit(std::uint64_t place) { return std::uint64_t{1} << (place % 64); }

    /// Notes a position at this place. Which one of several comes first makes no difference.
    void Take(std::uint64_t place, bool sharedByThreads)
    {
        const std::uint64_t bit = Bit(place);
        std::uint64_t& taken = m_taken[place / 64];
        std::uint64_t& shared = m_shared[place / 64];
        if (!sharedByThreads) {
            shared |= taken & bit;
            taken |= bit;
        } else if ((std::atomic_ref(taken).fetch_or(bit, std::memory_order_relaxed) & bit) != 0) {
            std::atomic_ref(shared).fetch_or(bit, std::memory_order_relaxed);
        }
    }

    int m_shift = 0;
    std::vector<std::uint64_t> m_taken;
    std::vector<std::uint64_t> m_shared;
};

/// Returns the indices of the positions that may have an equal one, ascending.
std::vector<int> FindCandidates(std::span<const GK_3fPoint> positions, KelvoWorkSharing* threads)
{
    const SharedPlaces shared(positions, threads);
    std::vector<int> candidates;
    std::mutex mutex;
    KelvoForEachRange(threads, positions.size(), [&](std::size_t begin, std::size_t end) {
        std::vector<int> found;
        for (std::size_t i = begin; i < end; ++i)
            if (shared.Contains(PositionHash(positions[i])))
                found.push_back(static_cast<int>(i));
        const std::lock_guard lock(mutex);
        candidates.insert(candidates.end(), found.begin(), found.end());
    });
    if (threads != nullptr)
        std::sort(candidates.begin(), candidates.end());
    return candidates;
}

/// Candidates in buckets by the hashes of their positions, ascending in each bucket.
class Buckets
{
public:
    Buckets(std::span<const GK_3fPoint> positions, std::span<const int> candidates)
    {
        const std::size_t bucketCount = std::bit_ceil(candidates.size() / 2 + 2);
        const int shift = 64 - std::countr_zero(bucketCount);
        const auto bucketOf = [&](int i) {
            return static_cast<int>(PositionHash(positions[static_cast<std::size_t>(i)]) >> shift);
        };
        m_ends.SetCount(static_cast<int>(bucketCount));
        m_members.SetCount(static_cast<int>(candidates.size()));
        for (const int i : candidates)
            ++m_ends[bucketOf(i)];
        int sum = 0;
        for (int& end : m_ends)
            end = sum += end;
        // Filled from the end, each end moves down to its bucket's beginning.
        for (std::size_t i = candidates.size(); i-- > 0;)
            m_members[--m_ends[bucketOf(candidates[i])]] = candidates[i];
    }

    [[nodiscard]] int Count() const { return m_ends.Count(); }

    std::span<int> Members(int bucket)
    {
        const int next = bucket + 1 < Count() ? m_ends[bucket + 1] : m_members.Count();
        return {m_members.begin() + m_ends[bucket], m_members.begin() + next};
    }

private:
    GK_SimpleArray<int> m_ends;
    GK_SimpleArray<int> m_members;
};

} // namespace

GK_SimpleArray<int> FirstEqualPositions(std::span<const GK_3fPoint> positions,
                                        KelvoWorkSharing* threads)
{
    const std::vector<int> candidates = FindCandidates(positions, threads);
    GK_SimpleArray<int> first;
    if (candidates.empty())
        return first;
    first.SetCount(static_cast<int>(positions.size()));
    std::iota(first.begin(), first.end(), 0);

    const auto at = [&](int i) { return positions[static_cast<std::size_t>(i)]; };
    const auto before = [&](int i, int j) {
        return std::tuple(PositionKey(at(i)), i) < std::tuple(PositionKey(at(j)), j);
    };
    bool anyEqual = false;
    Buckets buckets(positions, candidates);
    for (int bucket = 0; bucket < buckets.Count(); ++bucket) {
        const std::span<int> members = buckets.Members(bucket);
        if (members.size() > 1)
            std::sort(members.begin(), members.end(), before);
        int lowest = -1;
        for (const int i : members) {
            if (lowest < 0 || at(lowest) != at(i))
                lowest = i;
            first[i] = lowest;
            anyEqual |= lowest != i;
        }
    }
    if (!anyEqual)
        first.Destroy();
    return first;
}
