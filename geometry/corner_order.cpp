#include "geometry/corner_order.h"

#include <algorithm>
#include <cstdint>

namespace {

struct VertexRange
{
    std::int64_t first = 0;
    std::int64_t count = 0;
};

bool ComesBefore(const V_TN_IDX& a, const V_TN_IDX& b)
{
    return CompareCorners(a, b) < 0;
}

VertexRange RangeOfVertices(const std::vector<V_TN_IDX>& corners)
{
    const auto [least, largest] =
        std::minmax_element(corners.begin(), corners.end(),
                            [](const V_TN_IDX& a, const V_TN_IDX& b) { return a.vi < b.vi; });
    return {least->vi, std::int64_t{largest->vi} - least->vi + 1};
}

/// Distributes the corners to their vertices, which leaves only the few corners of each vertex to
/// be sorted.
std::vector<V_TN_IDX> SortByVertex(const std::vector<V_TN_IDX>& corners, const VertexRange& range)
{
    const auto slot = [&range](const V_TN_IDX& corner) {
        return static_cast<std::size_t>(corner.vi - range.first);
    };
    std::vector<std::size_t> ends(static_cast<std::size_t>(range.count));
    for (const V_TN_IDX& corner : corners)
        ++ends[slot(corner)];
    std::size_t start = 0;
    for (std::size_t& end : ends) {
        start += end;
        end = start - end;
    }
    std::vector<V_TN_IDX> sorted(corners.size());
    for (const V_TN_IDX& corner : corners)
        sorted[ends[slot(corner)]++] = corner;

    auto first = sorted.begin();
    for (const std::size_t end : ends) {
        const auto last = sorted.begin() + static_cast<std::ptrdiff_t>(end);
        std::sort(first, last, ComesBefore);
        first = last;
    }
    return sorted;
}

} // namespace

void SortDistinct(std::vector<V_TN_IDX>& corners)
{
    if (corners.empty())
        return;
    const VertexRange range = RangeOfVertices(corners);
    constexpr std::int64_t SlotsPerCorner = 8;
    if (range.count <= SlotsPerCorner * static_cast<std::int64_t>(corners.size()))
        corners = SortByVertex(corners, range);
    else
        std::sort(corners.begin(), corners.end(), ComesBefore);
    corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
}
