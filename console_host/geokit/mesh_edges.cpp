#include "console_host/geokit/mesh_edges.h"

#include <span>

namespace {

/// Every one of the values, an even number of them, stands twice and not more often. Sorts them.
bool StandInPairs(std::span<int> values)
{
    std::sort(values.begin(), values.end());
    for (std::size_t i = 0; i < values.size(); i += 2) {
        const bool more = i + 2 < values.size() && values[i + 1] == values[i + 2];
        if (values[i] != values[i + 1] || more)
            return false;
    }
    return true;
}

} // namespace

EdgeBuckets::EdgeBuckets(int vertexCount, std::size_t partCount)
    : m_bucketCount(static_cast<std::size_t>(vertexCount >> BucketBits) + 1),
      m_lowersPerBucket(std::min(vertexCount, BucketSize)), m_places(partCount * m_bucketCount),
      m_ends(m_bucketCount)
{
}

void EdgeBuckets::MakeRoom()
{
    std::size_t place = 0;
    for (std::size_t bucket = 0; bucket < m_bucketCount; ++bucket) {
        for (std::size_t i = bucket; i < m_places.size(); i += m_bucketCount)
            place += std::exchange(m_places[i], place);
        m_ends[bucket] = place;
    }
    m_lowers = std::make_unique_for_overwrite<std::uint16_t[]>(place);
    m_uppers = std::make_unique_for_overwrite<int[]>(place);
}

bool EdgeBuckets::AllInPairs(std::size_t bucket) const
{
    const std::size_t first = bucket == 0 ? 0 : m_ends[bucket - 1];
    const std::span lowers(m_lowers.get() + first, m_ends[bucket] - first);
    std::vector<std::size_t> ends(static_cast<std::size_t>(m_lowersPerBucket));
    for (const std::uint16_t lower : lowers)
        ++ends[lower];
    std::size_t sum = 0;
    for (std::size_t& end : ends) {
        if (end % 2 != 0)
            return false;
        end = sum += end;
    }
    const auto uppers = std::make_unique_for_overwrite<int[]>(sum);
    for (std::size_t i = 0; i < lowers.size(); ++i)
        uppers[--ends[lowers[i]]] = m_uppers[first + i];
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const std::size_t end = i + 1 < ends.size() ? ends[i + 1] : sum;
        if (!StandInPairs({uppers.get() + ends[i], end - ends[i]}))
            return false;
    }
    return true;
}
