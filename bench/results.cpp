#include "bench/results.h"

#include <array>
#include <cstdio>
#include <optional>

namespace {

/// How many times as fast `reader` is to be as `other`.
struct SpeedAim
{
    const char* scene;
    const char* reader;
    const char* other;
    double atLeast;
};

constexpr std::array<SpeedAim, 3> SpeedAims{{
    {"quads", "parse", "tinyobjloader", 5.0},
    {"quads", "import", "tinyobjloader", 2.0},
    {"quads", "import", "assimp", 6.0},
}};

/// How many bytes of memory a byte of input may take.
struct MemoryAim
{
    const char* scene;
    double atMost;
};

constexpr std::array<MemoryAim, 2> MemoryAims{{{"quads", 2.5}, {"triangles", 4.5}}};

std::optional<Result> Find(const Results& results, std::string_view scene, std::string_view reader)
{
    const auto inScene = results.find(scene);
    if (inScene != results.end())
        for (const Result& result : inScene->second.readers)
            if (result.reader == reader)
                return result;
    return std::nullopt;
}

void PrintVerdict(bool reached)
{
    std::puts(reached ? "reached" : "MISSED");
}

void PrintSpeedAim(const SpeedAim& aim, const Results& results)
{
    const auto reader = Find(results, aim.scene, aim.reader);
    const auto other = Find(results, aim.scene, aim.other);
    if (!reader || !other)
        return;
    const double ratio = other->seconds / reader->seconds;
    std::printf("  %-9s %6s is %5.2f times as fast as %-14s at least %.1f  ", aim.scene, aim.reader,
                ratio, aim.other, aim.atLeast);
    PrintVerdict(ratio >= aim.atLeast);
}

void PrintMemoryAim(const MemoryAim& aim, const Results& results)
{
    const auto result = Find(results, aim.scene, "import");
    if (!result)
        return;
    const double share = result->growth / results.find(aim.scene)->second.bytes;
    std::printf("  %-9s import takes %4.2f bytes for a byte of input  at most %.1f   ", aim.scene,
                share, aim.atMost);
    PrintVerdict(share <= aim.atMost);
}

} // namespace

void PrintScene(const Scene& scene, const SceneResults& results)
{
    std::printf("%s: %s, %.1f MB\n", scene.name.c_str(), scene.what.c_str(), results.bytes / 1e6);
    std::printf("  %-14s %9s %8s %24s\n", "", "seconds", "MB/s", "memory for each byte");
    for (const Result& result : results.readers)
        std::printf("  %-14s %9.4f %8.1f %24.2f\n", result.reader.c_str(), result.seconds,
                    results.bytes / 1e6 / result.seconds, result.growth / results.bytes);
    std::puts("");
    std::fflush(stdout);
}

void PrintRatios(const Results& results)
{
    std::puts("Ratios of the best repetitions, processor time");
    for (const SpeedAim& aim : SpeedAims)
        PrintSpeedAim(aim, results);
    for (const MemoryAim& aim : MemoryAims)
        PrintMemoryAim(aim, results);
}
