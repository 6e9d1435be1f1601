#include "host/geokit/simple_array.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// Checks that an array of 0, 1, 2, ... keeps its elements.
void ExpectSequence(const GK_SimpleArray<int>& array)
{
    for (int i = 0; i < array.Count(); ++i)
        ASSERT_EQ(array[i], i);
}

} // namespace

// Blocks of some megabytes come from elsewhere than small ones.
TEST(SimpleArray, KeepsItsElementsWhateverSizeItTakes)
{
    constexpr int Million = 1 << 20;
    GK_SimpleArray<int> array;
    while (array.Count() < 5 * Million)
        array.Append(array.Count());
    ExpectSequence(array);

    for (const int count : {3 * Million, 1000, 2 * Million, 10}) {
        array.SetCount(std::min(count, array.Count()));
        array.Shrink();
        EXPECT_EQ(array.Capacity(), array.Count());
        ExpectSequence(array);
        while (array.Count() < count)
            array.Append(array.Count());
        ExpectSequence(array);
    }
}
