#include "host/geokit/simple_array.h"

#include <algorithm>
#include <gtest/gtest.h>

// Blocks of some megabytes come from elsewhere than small ones.
TEST(SimpleArray, KeepsItsElementsWhateverItsSize)
{
    constexpr int Million = 1 << 20;
    GK_SimpleArray<int> array;
    for (const int count : {5 * Million, 3 * Million, 1000, 2 * Million, 10}) {
        array.SetCount(std::min(count, array.Count()));
        array.Shrink();
        EXPECT_EQ(array.Capacity(), array.Count());
        while (array.Count() < count)
            array.Append(array.Count());
        for (int i = 0; i < count; ++i)
            ASSERT_EQ(array[i], i);
    }
}
