#include "geometry/corner_order.h"

#include <algorithm>
#include <cstdint>

namespace {

struct VertexRange
{
    std::int64_t first = 0;
    std::int64_t count = 0;
};

VertexRange RangeOfVertices(std::span<const V_TN_IDX> corners)
{
    const auto [least, largest] =
        std::minmax_element(corners.begin(), corners.end(),
                            [](const V_TN_IDX& a, const V_TN_IDX& b) { return a.vi < b.vi; });
    return {least->vi, std::int64_t{largest->vi} - least->vi + 1};
}

/// Orders positions of corners, falling back on the positions themselves.
struct ByCorner
{
    std::span<const V_TN_IDX> corners;

    bool operator()(int a, int b) const
    {
        const int order = CompareCorners(corners[static_cast<std::size_t>(a)],
                                         corners[static_cast<std::size_t>(b)]);
        return order != 0 ? order < 0 : a < b;
    }
};

GK_SimpleArray<int> SortByComparing(std::span<const V_TN_IDX> corners)
{
    GK_SimpleArray<int> order;
    order.Reserve(static_cast<int>(corners.size()));
    for (int i = 0; i < static_cast<int>(corners.size()); ++i)
        order.Append(i);
    std::sort(order.begin(), order.end(), ByCorner{corners});
    return order;
}

/// Distributes the corners to their vertices, which leaves only the few corners of each vertex to
/// be sorted. The faces of a record mostly use most of its vertices, so the table is well filled.
GK_SimpleArray<int> SortByVertex(std::span<const V_TN_IDX> corners, const VertexRange& range)
{
    const auto slot = [&range](const V_TN_IDX& corner) {
        return static_cast<int>(corner.vi - range.first);
    };

    GK_SimpleArray<int> ends;
    ends.SetCount(static_cast<int>(range.count));
    for (const V_TN_IDX& corner : corners)
        ++ends[slot(corner)];
    int start = 0;
    for (int& end : ends) {
        start += end;
        end = start - end;
    }

    GK_SimpleArray<int> order;
    order.SetCount(static_cast<int>(corners.size()));
    for (int i = 0; i < order.Count(); ++i)
        order[ends[slot(corners[static_cast<std::size_t>(i)])]++] = i;

    int first = 0;
    for (const int end : ends) {
        if (!std::is_sorted(order.begin() + first, order.begin() + end, ByCorner{corners}))
            std::sort(order.begin() + first, order.begin() + end, ByCorner{corners});
        first = end;
    }
    return order;
}

} // namespace

GK_SimpleArray<int> SortCorners(std::span<const V_TN_IDX> corners)
{
    if (corners.empty())
        return {};
    const VertexRange range = RangeOfVertices(corners);
    const bool dense = range.count <= 2 * static_cast<std::int64_t>(corners.size());
    return dense ? SortByVertex(corners, range) : SortByComparing(corners);
}
