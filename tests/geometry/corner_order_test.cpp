#include "geometry/corner_order.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <tuple>

namespace {

void Compare(std::vector<V_TN_IDX> corners)
{
    using Key = std::tuple<int, int, int>; // position, normal, texture coordinate
    std::set<Key> expected;
    for (const V_TN_IDX& corner : corners)
        expected.emplace(corner.vi, corner.ni, corner.ti);
    SortDistinct(corners);
    std::vector<Key> sorted;
    for (const V_TN_IDX& corner : corners)
        sorted.emplace_back(corner.vi, corner.ni, corner.ti);
    ASSERT_EQ(sorted, std::vector<Key>(expected.begin(), expected.end()));
}

TEST(CornerOrder, IsThatOfASet)
{
    Compare({});
    Compare({V_TN_IDX()});
    Compare(std::vector<V_TN_IDX>(100));
    Compare({{5, 2, 1}, {5, 1, 2}, {5, -1, 1}, {-1, 9, 9}, {5, 2, -1}});

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
