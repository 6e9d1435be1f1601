// Times this project's reading of OBJ files, and that of other libraries, on files that it writes
// itself.

#include "bench/memory_use.h"
#include "bench/readers.h"
#include "bench/results.h"
#include "bench/scenes.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <exception>
#include <filesystem>
#include <random>

namespace {

struct Arguments
{
    std::string filter;
    std::string modelFolder;
    std::string keepFolder;
    double megabytes = 0.0;
    int repetitions = 7;
};

/// A folder for the scenes, removed at the end.
class ScratchFolder
{
public:
    ScratchFolder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("importobj-bench-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directory(m_path);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    ~ScratchFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] std::string File(std::string_view name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};

/// Keeps the best time of each reader.
class BestTimes : public benchmark::BenchmarkReporter
{
public:
    explicit BestTimes(std::vector<Result>& results) : m_results(results) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                Take(run);
    }

private:
    void Take(const Run& run)
    {
        const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
        for (Result& result : m_results)
            if (result.reader == run.run_name.function_name)
                result.seconds = result.seconds > 0.0 ? std::min(result.seconds, seconds) : seconds;
    }

    std::vector<Result>& m_results;
};

void TimeReader(benchmark::State& state, const NamedReader& named, const std::string& path)
{
    const auto reader = named.make();
    for ([[maybe_unused]] const auto& iteration : state) {
        reader->Read(path);
        state.PauseTiming();
        reader->Forget();
        state.ResumeTiming();
    }
}

void WriteScene(const Scene& scene, const Arguments& arguments, const std::string& path)
{
    const double megabytes = arguments.megabytes > 0.0 ? arguments.megabytes : scene.megabytes;
    scene.write(path, static_cast<std::size_t>(megabytes * 1e6));
}

SceneResults RunScene(const Scene& scene, const Arguments& arguments, const ScratchFolder& folder)
{
    const std::string path = folder.File(scene.name + ".obj");
    WriteScene(scene, arguments, path);

    SceneResults results;
    results.bytes = static_cast<double>(std::filesystem::file_size(path));
    for (const NamedReader& reader : Readers()) {
        results.readers.push_back({.reader = std::string(reader.name)});
        benchmark::RegisterBenchmark(
            results.readers.back().reader.c_str(),
            [reader, path](benchmark::State& state) { TimeReader(state, reader, path); })
            ->Iterations(1)
            ->Repetitions(arguments.repetitions);
    }
    BestTimes reporter(results.readers);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::ClearRegisteredBenchmarks();

    for (Result& result : results.readers)
        result.growth = MeasureGrowth(result.reader, path);
    std::filesystem::remove(path);
    return results;
}

/// The scenes that were asked for. Throws when there are none.
std::vector<Scene> WantedScenes(const Arguments& arguments)
{
    std::vector<Scene> scenes = Scenes(arguments.modelFolder);
    std::erase_if(scenes, [&](const Scene& scene) {
        return scene.name.find(arguments.filter) == std::string::npos;
    });
    if (scenes.empty())
        throw std::runtime_error("no scene has \"" + arguments.filter + "\" in its name");
    return scenes;
}

void KeepScenes(const Arguments& arguments)
{
    for (const Scene& scene : WantedScenes(arguments)) {
        const auto path = std::filesystem::path(arguments.keepFolder) / (scene.name + ".obj");
        WriteScene(scene, arguments, path.string());
        std::printf("%s: %s\n", path.string().c_str(), scene.what.c_str());
    }
}

void RunAll(const Arguments& arguments)
{
    const ScratchFolder folder;
    Results results;
    for (const Scene& scene : WantedScenes(arguments)) {
        const SceneResults sceneResults = RunScene(scene, arguments, folder);
        PrintScene(scene, sceneResults);
        results.emplace(scene.name, sceneResults);
    }
    PrintRatios(results);
}

/// The readers of a scene take turns, so that a slow moment of the machine hits them all alike.
void InitializeBenchmark(const char* program)
{
    std::string name = program;
    std::string interleave = "--benchmark_enable_random_interleaving=true";
    char* arguments[] = {name.data(), interleave.data(), nullptr};
    int count = 2;
    benchmark::Initialize(&count, arguments);
}

int Run(int argc, char** argv)
{
    if (argc == 4 && argv[1] == GrowthOption) {
        PrintGrowth(argv[2], argv[3]);
        return 0;
    }
    Arguments arguments;
    CLI::App app("Times the reading of OBJ files that it writes itself.");
    app.add_option("--filter", arguments.filter, "Only the scenes with this in their names");
    app.add_option("--megabytes", arguments.megabytes, "Size of each scene's file")
        ->check(CLI::PositiveNumber);
    app.add_option("--models", arguments.modelFolder,
                   "Folder of OBJ files to be joined into one more scene")
        ->check(CLI::ExistingDirectory);
    app.add_option("--keep", arguments.keepFolder, "Only write the scenes' files, into this folder")
        ->check(CLI::ExistingDirectory);
    app.add_option("--repetitions", arguments.repetitions, "The best of so many counts (7)")
        ->check(CLI::PositiveNumber);
    CLI11_PARSE(app, argc, argv);
    if (!arguments.keepFolder.empty()) {
        KeepScenes(arguments);
        return 0;
    }
    InitializeBenchmark(argv[0]);
    RunAll(arguments);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_import: %s\n", error.what());
        return 1;
    }
}
