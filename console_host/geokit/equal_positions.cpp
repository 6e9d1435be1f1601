#include "console_host/geokit/equal_positions.h"

#include "console_host/geokit/position_hash.h"

#include <tuple>

namespace {

/// Position indices in buckets of equal hashes, ascending in each bucket.
class Buckets
{
public:
    explicit Buckets(std::span<const GK_3fPoint> positions)
    {
        const int count = static_cast<int>(positions.size());
        const std::size_t bucketCount = std::bit_ceil(positions.size() / 2 + 2);
        const int shift = 64 - std::countr_zero(bucketCount);
        const auto bucketOf = [&](int i) {
            return static_cast<int>(PositionHash(positions[static_cast<std::size_t>(i)]) >> shift);
        };
        m_ends.SetCount(static_cast<int>(bucketCount));
        for (int i = 0; i < count; ++i)
            ++m_ends[bucketOf(i)];
        int sum = 0;
        for (int& end : m_ends)
            end = sum += end;
        // Filled from behind, each end moves down to its bucket's beginning.
        m_members.SetCount(count);
        for (int i = count - 1; i >= 0; --i)
            m_members[--m_ends[bucketOf(i)]] = i;
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

GK_SimpleArray<int> FirstEqualPositions(std::span<const GK_3fPoint> positions)
{
    const auto at = [&](int i) { return positions[static_cast<std::size_t>(i)]; };
    const auto before = [&](int i, int j) {
        return std::tuple(PositionKey(at(i)), i) < std::tuple(PositionKey(at(j)), j);
    };
    GK_SimpleArray<int> first;
    first.SetCount(static_cast<int>(positions.size()));
    Buckets buckets(positions);
    for (int bucket = 0; bucket < buckets.Count(); ++bucket) {
        const std::span<int> members = buckets.Members(bucket);
        if (members.size() > 1)
            std::sort(members.begin(), members.end(), before);
        int lowest = -1;
        for (const int i : members) {
            if (lowest < 0 || at(lowest) != at(i))
                lowest = i;
            first[i] = lowest;
        }
    }
    return first;
}
