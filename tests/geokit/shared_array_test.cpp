#include "host/geokit/shared_array.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

using Array = GK_SharedArray<double>;

std::vector<double> Values(const Array& array)
{
    return {array.begin(), array.end()};
}

TEST(SharedArray, CopiesShareUntilOneIsWritten)
{
    const std::vector<double> values{1, 2, 3};
    const struct
    {
        const char* what;
        void (*write)(Array&);
        std::vector<double> written;
    } cases[] = {
        {"an element", [](Array& array) { array[1] = 7; }, {1, 7, 3}},
        {"through the address", [](Array& array) { array.Array()[0] = 7; }, {7, 2, 3}},
        {"in a loop",
         [](Array& array) {
             for (double& x : array)
                 x += 1;
         },
         {2, 3, 4}},
        {"appended", [](Array& array) { array.Append(4); }, {1, 2, 3, 4}},
        {"several appended",
         [](Array& array) {
             const double more[] = {4, 5};
             array.Append(2, more);
         },
         {1, 2, 3, 4, 5}},
        {"resized", [](Array& array) { array.SetCount(2); }, {1, 2}},
        {"removed", [](Array& array) { array.Destroy(); }, {}},
        {"replaced", [](Array& array) { array = {9}; }, {9}},
    };
    for (const auto& [what, write, written] : cases) {
        SCOPED_TRACE(what);
        const Array original{1, 2, 3};
        original.SetMark(5);
        Array copy = original;
        const Array& read = copy;
        EXPECT_EQ(Values(read), values);
        EXPECT_EQ(read[2], 3);
        EXPECT_EQ(copy.Identity(), original.Identity());
        EXPECT_EQ(copy.Mark(), 5U);
        write(copy);
        EXPECT_EQ(Values(copy), written);
        EXPECT_EQ(Values(original), values);
        EXPECT_NE(copy.Identity(), original.Identity());
        EXPECT_EQ(copy.Mark(), 0U);
        EXPECT_EQ(original.Mark(), 5U);
    }
}

TEST(SharedArray, WritesInPlaceWhereNothingIsShared)
{
    Array array{1, 2, 3};
    const void* storage = array.Identity();
    {
        const Array copy = array;
    }
    array[0] = 4;
    EXPECT_EQ(array.Identity(), storage);
    const Array moved = std::move(array);
    EXPECT_EQ(moved.Identity(), storage);
}

// With the thread sanitizer, or by luck, a race shows.
TEST(SharedArray, CopiesAreIndependentInThreads)
{
    Array array;
    array.SetCount(1000);
    std::vector<std::thread> threads;
    std::vector<Array> copies(4, array);
    for (std::size_t i = 0; i < copies.size(); ++i)
        threads.emplace_back([&copy = copies[i], i] {
            for (int round = 0; round < 1000; ++round) {
                const Array another = copy;
                copy[round] = static_cast<double>(i);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < copies.size(); ++i)
        EXPECT_EQ(Values(copies[i]), std::vector<double>(1000, static_cast<double>(i)));
    EXPECT_EQ(Values(array), std::vector<double>(1000, 0.0));
}

} // namespace
