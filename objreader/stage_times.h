#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <string_view>

/// The stages of an import whose times are told apart, in their order.
enum class ImportStage
{
    ReadBytes,    ///< blocks from the stream
    PlainLines,   ///< lines that are read in place
    OtherLines,   ///< lines that are cut into tokens; libraries too
    JoinBlocks,   ///< what several threads have read becomes one
    Attributes,   ///< layer, groups, name and material of a record
    MeshVertices, ///< one for each distinct corner
    MeshFaces,
    Triangulation, ///< of polygons of five corners or more
    CleanUp,       ///< useless faces and vertices
    Normals,
    Closedness, ///< and which side of a closed mesh is the inside
    HandOver    ///< to the document
};

struct ImportStageInfo
{
    std::string_view name;
    bool sequential; ///< never shared among threads
};

/// By ImportStage.
inline constexpr std::array<ImportStageInfo, 12> ImportStages{{
    {"read bytes", true},
    {"plain lines", false},
    {"other lines", true},
    {"join blocks", true},
    {"attributes", true},
    {"mesh vertices", false},
    {"mesh faces", false},
    {"triangulation", false},
    {"clean-up", false},
    {"normals", false},
    {"closedness", false},
    {"hand over", true},
}};

/// The time that each stage of an import has taken.
class StageTimes
{
public:
    using Clock = std::chrono::steady_clock;

    void Add(ImportStage stage, Clock::duration time) { m_times[Index(stage)] += time; }

    /// Adds those of another thread: the sums are times of work, not of the clock on the wall.
    void Add(const StageTimes& other)
    {
        for (std::size_t i = 0; i < m_times.size(); ++i)
            m_times[i] += other.m_times[i];
    }

    [[nodiscard]] Clock::duration Of(ImportStage stage) const { return m_times[Index(stage)]; }

private:
    static constexpr std::size_t Index(ImportStage stage)
    {
        return static_cast<std::size_t>(stage);
    }

    std::array<Clock::duration, ImportStages.size()> m_times{};
};

/// Divides a run of work among stages: each lap adds the time since the last one, or since
/// construction. For one thread.
class StageLaps
{
public:
    /// The times must outlive the object. Each lap counts `weight` times; 0 measures nothing and
    /// costs nothing.
    explicit StageLaps(StageTimes& times, int weight = 1) : m_times(times), m_weight(weight)
    {
        Restart();
    }

    /// Begins the next lap now: what came before is left out.
    void Restart()
    {
        if (m_weight != 0)
            m_start = StageTimes::Clock::now();
    }

    void Lap(ImportStage stage)
    {
        if (m_weight == 0)
            return;
        const StageTimes::Clock::time_point now = StageTimes::Clock::now();
        m_times.Add(stage, (now - m_start) * m_weight);
        m_start = now;
    }

private:
    StageTimes& m_times;
    StageTimes::Clock::time_point m_start;
    int m_weight;
};

/// Chooses which of many short pieces of work are timed, for all the others as well.
class StageSampling
{
public:
    /// One piece of each `interval` stands for all of them: at least 1, best a prime number, which
    /// patterns in a file seldom have.
    explicit StageSampling(int interval) : m_interval(interval), m_countdown(interval / 2) {}

    /// Returns the weight of the next piece: the interval, or 0 for one that is not timed.
    int NextWeight()
    {
        if (m_countdown-- > 0)
            return 0;
        m_countdown = m_interval - 1;
        return m_interval;
    }

private:
    int m_interval;
    int m_countdown;
};
