#include "geometry/corner_order.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <tuple>
#include <vector>

namespace {

/// By position, normal, texture coordinate; equal corners in the order in which they stand.
std::vector<int> ReferenceOrder(const std::vector<V_TN_IDX>& corners)
{
    const auto key = [&corners](int i) {
        const V_TN_IDX& corner = corners[static_cast<std::size_t>(i)];
        return std::tuple(corner.vi, corner.ni, corner.ti);
    };
    std::vector<int> order(corners.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return key(a) < key(b); });
    return order;
}

void Compare(const std::vector<V_TN_IDX>& corners)
{
    const GK_SimpleArray<int> order = SortCorners(corners);
    ASSERT_EQ(std::vector<int>(order.begin(), order.end()), ReferenceOrder(corners));
}

TEST(CornerOrder, IsThatOfAPlainSort)
{
    Compare({});
    Compare({V_TN_IDX()});
    Compare(std::vector<V_TN_IDX>(100));
    Compare({{0, 5, 2, 1}, {0, 5, 1, 2}, {0, 5, -1, 1}, {0, -1, 9, 9}, {0, 5, 2, -1}});

    // Few corners of many positions and many corners of few.
    std::mt19937 random(4);
    for (const unsigned int positions : {1U, 10U, 399U, 400U, 401U, 100000U, 2147483646U})
        for (const unsigned int others : {1U, 3U, 1000U})
            for (const int lowest : {-1, 0, 1000}) {
                if (positions > 1000000 && lowest > 0)
                    continue;
                std::vector<V_TN_IDX> corners(200);
                for (V_TN_IDX& corner : corners) {
                    corner.vi = lowest + static_cast<int>(random() % positions);
                    corner.ti = static_cast<int>(random() % others) - 1;
                    corner.ni = static_cast<int>(random() % others) - 1;
                }
                Compare(corners);
            }
}

} // namespace
