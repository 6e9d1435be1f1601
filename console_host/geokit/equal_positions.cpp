#include "console_host/geokit/equal_positions.h"

#include <numeric>
#include <tuple>
#include <vector>

namespace {

/// Finds quickly which positions may have an equal one: those whose hash falls on the same one of
/// many places as that of another position.
class SharedPlaces
{
public:
    explicit SharedPlaces(std::span<const GK_3fPoint> positions)
    {
        constexpr std::size_t PlacesPerPosition = 8;
        const std::size_t placeCount = std::bit_ceil(positions.size() * PlacesPerPosition + 64);
        m_shift = 64 - std::countr_zero(placeCount);
        m_taken.resize(placeCount / 64);
        m_shared.resize(placeCount / 64);
        for (const GK_3fPoint& position : positions) {
            const std::uint64_t place = Place(PositionHash(position));
            const std::uint64_t bit = Bit(place);
            m_shared[place / 64] |= m_taken[place / 64] & bit;
            m_taken[place / 64] |= bit;
        }
    }

    [[nodiscard]] bool Contains(std::uint64_t hash) const
    {
        const std::uint64_t place = Place(hash);
        return (m_shared[place / 64] & Bit(place)) != 0;
    }

private:
    [[nodiscard]] std::uint64_t Place(std::uint64_t hash) const { return hash >> m_shift; }
    static std::uint64_t Bit(std::uint64_t place) { return std::uint64_t{1} << (place % 64); }

    int m_shift = 0;
    std::vector<std::uint64_t> m_taken;
    std::vector<std::uint64_t> m_shared;
};

/// The indices of the positions that may have an equal one, in buckets by their hashes, ascending
/// in each bucket.
class Buckets
{
public:
    explicit Buckets(std::span<const GK_3fPoint> positions)
    {
        const SharedPlaces shared(positions);
        std::size_t count = 0;
        for (const GK_3fPoint& position : positions)
            count += shared.Contains(PositionHash(position)) ? 1U : 0U;
        if (count == 0)
            return;

        const std::size_t bucketCount = std::bit_ceil(count / 2 + 2);
        const int shift = 64 - std::countr_zero(bucketCount);
        m_ends.SetCount(static_cast<int>(bucketCount));
        m_members.SetCount(static_cast<int>(count));
        for (const GK_3fPoint& position : positions)
            if (const std::uint64_t hash = PositionHash(position); shared.Contains(hash))
                ++m_ends[static_cast<int>(hash >> shift)];
        int sum = 0;
        for (int& end : m_ends)
            end = sum += end;
        // Filled from behind, each end moves down to its bucket's beginning.
        for (std::size_t i = positions.size(); i-- > 0;)
            if (const std::uint64_t hash = PositionHash(positions[i]); shared.Contains(hash))
                m_members[--m_ends[static_cast<int>(hash >> shift)]] = static_cast<int>(i);
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
    GK_SimpleArray<int> first;
    first.SetCount(static_cast<int>(positions.size()));
    std::iota(first.begin(), first.end(), 0);

    const auto at = [&](int i) { return positions[static_cast<std::size_t>(i)]; };
    const auto before = [&](int i, int j) {
        return std::tuple(PositionKey(at(i)), i) < std::tuple(PositionKey(at(j)), j);
    };
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
