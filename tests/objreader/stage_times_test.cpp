#include "objreader/stage_times.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(StageTimes, AddsTheTimesOfThreadsStageByStage)
{
    StageTimes first;
    first.Add(ImportStage::ReadBytes, 5ns);
    first.Add(ImportStage::HandOver, 7ns);
    StageTimes second;
    second.Add(ImportStage::HandOver, 30ns);
    second.Add(ImportStage::Normals, 1ns);
    first.Add(second);

    EXPECT_EQ(first.Of(ImportStage::ReadBytes), 5ns);
    EXPECT_EQ(first.Of(ImportStage::HandOver), 37ns);
    EXPECT_EQ(first.Of(ImportStage::Normals), 1ns);
    EXPECT_EQ(first.Of(ImportStage::PlainLines), 0ns);
}

TEST(StageTimes, NamesEachStageOnce)
{
    EXPECT_EQ(static_cast<std::size_t>(ImportStage::HandOver) + 1, ImportStages.size());
    for (std::size_t i = 0; i < ImportStages.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(ImportStages[i].name, ImportStages[j].name);
}

/// Waits until the clock has moved.
StageTimes::Clock::time_point LaterThan(StageTimes::Clock::time_point moment)
{
    StageTimes::Clock::time_point now = moment;
    while (now == moment)
        now = StageTimes::Clock::now();
    return now;
}

TEST(StageLaps, DividesTheTimeSinceConstruction)
{
    StageTimes times;
    const auto start = StageTimes::Clock::now();
    StageLaps laps(times);
    const auto middle = LaterThan(StageTimes::Clock::now());
    laps.Lap(ImportStage::MeshVertices);
    LaterThan(StageTimes::Clock::now());
    laps.Lap(ImportStage::MeshFaces);
    const auto end = StageTimes::Clock::now();

    EXPECT_GT(times.Of(ImportStage::MeshVertices), 0ns);
    EXPECT_GT(times.Of(ImportStage::MeshFaces), 0ns);
    EXPECT_LE(times.Of(ImportStage::MeshFaces), end - middle);
    EXPECT_LE(times.Of(ImportStage::MeshVertices) + times.Of(ImportStage::MeshFaces), end - start);
}

TEST(StageLaps, CountsAsOftenAsItsWeight)
{
    StageTimes once;
    StageTimes never;
    StageTimes often;
    StageLaps outer(often, 1000);
    StageLaps inner(once, 1);
    StageLaps none(never, 0);
    LaterThan(StageTimes::Clock::now());
    none.Lap(ImportStage::Normals);
    inner.Lap(ImportStage::Normals);
    outer.Lap(ImportStage::Normals);

    EXPECT_EQ(never.Of(ImportStage::Normals), 0ns);
    EXPECT_GE(often.Of(ImportStage::Normals), 1000 * once.Of(ImportStage::Normals));
}

TEST(StageSampling, WeighsAsMuchAsThereIs)
{
    for (const int interval : {1, 2, 17, 61}) {
        StageSampling sampling(interval);
        int weight = 0;
        for (int piece = 1; piece <= 1000; ++piece) {
            weight += sampling.NextWeight();
            EXPECT_LE(std::abs(weight - piece), interval) << interval << ", " << piece;
        }
    }
}

} // namespace
