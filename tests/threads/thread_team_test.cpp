#include "objreader/thread_team.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

TEST(ThreadTeam, EveryThreadDoesATaskOnceAndTheCallerIsOneOfThem)
{
    ThreadTeam team(4);
    for (int round = 0; round < 100; ++round) {
        std::array<std::atomic<int>, 4> calls{};
        std::thread::id caller;
        team.Run([&](unsigned thread) {
            ++calls[thread];
            if (thread == 0)
                caller = std::this_thread::get_id();
        });
        EXPECT_EQ(caller, std::this_thread::get_id());
        for (const std::atomic<int>& count : calls)
            EXPECT_EQ(count, 1);
    }
}

TEST(ThreadTeam, PassesOnWhatAThreadThrows)
{
    ThreadTeam team(3);
    for (const unsigned failing : {0U, 1U, 2U}) {
        std::atomic<int> finished = 0;
        const auto work = [&](unsigned thread) {
            if (thread == failing)
                throw std::runtime_error("failed");
            ++finished;
        };
        EXPECT_THROW(team.Run(work), std::runtime_error);
        EXPECT_EQ(finished, 2);
    }
    team.Run([](unsigned) {});
}

TEST(ForEachIndex, CallsEachOnceAndEndsWithAnException)
{
    ThreadTeam team(3);
    std::vector<std::atomic<int>> calls(1000);
    KelvoForEachIndex(&team, calls.size(), [&](std::size_t i) { ++calls[i]; });
    EXPECT_TRUE(std::all_of(calls.begin(), calls.end(), [](const auto& n) { return n == 1; }));
    EXPECT_THROW(KelvoForEachIndex(&team, 1000,
                                   [](std::size_t i) {
                                       if (i == 500)
                                           throw std::bad_alloc();
                                   }),
                 std::bad_alloc);
}

TEST(ForEachRange, CoversAllNumbersOnce)
{
    ThreadTeam team(3);
    for (const std::size_t count : {0U, 1U, 4095U, 100'000U}) {
        std::vector<std::atomic<int>> calls(count);
        for (KelvoWorkSharing* const threads :
             {static_cast<KelvoWorkSharing*>(nullptr), static_cast<KelvoWorkSharing*>(&team)})
            KelvoForEachRange(threads, count, [&](std::size_t begin, std::size_t end) {
                for (std::size_t i = begin; i < end; ++i)
                    ++calls[i];
            });
        EXPECT_TRUE(std::all_of(calls.begin(), calls.end(), [](const auto& n) { return n == 2; }));
    }
}

} // namespace
