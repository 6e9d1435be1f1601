// Times this project's reading of OBJ files, and that of other libraries, on files that it writes
// itself.

#include "bench/measurement.h"
#include "bench/memory_use.h"
#include "bench/readers.h"
#include "bench/results.h"
#include "bench/scenes.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <filesystem>
#include <random>
#include <thread>

namespace {

struct Arguments
{
    std::string filter;
    std::string modelFolder;
    std::string keepFolder;
    double megabytes = 0.0;
    int repetitions = 5;
    unsigned threadCount = std::max(1U, std::thread::hardware_concurrency());
    bool ownOnly = false;
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

void WriteScene(const Scene& scene, const Arguments& arguments, const std::string& path)
{
    const double megabytes = arguments.megabytes > 0.0 ? arguments.megabytes : scene.megabytes;
    scene.write(path, static_cast<std::size_t>(megabytes * 1e6));
}

/// Returns the scenes that were asked for. Throws when there are none.
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

std::vector<NamedReader> WantedReaders(const Arguments& arguments)
{
    std::vector<NamedReader> readers = Readers(arguments.threadCount);
    if (arguments.ownOnly)
        std::erase_if(readers,
                      [](const NamedReader& reader) { return reader.kind == ReaderKind::Other; });
    return readers;
}

SceneResults RunScene(const Scene& scene, const Arguments& arguments, const ScratchFolder& folder)
{
    const std::string path = folder.File(scene.name + ".obj");
    WriteScene(scene, arguments, path);
    const std::vector<NamedReader> readers = WantedReaders(arguments);
    SceneResults results{scene, static_cast<double>(std::filesystem::file_size(path)),
                         TimeReaders(readers, path, arguments.repetitions)};
    for (std::size_t i = 0; i < readers.size(); ++i)
        if (readers[i].kind != ReaderKind::Floor)
            results.readers[i].growth = MeasureGrowth(readers[i].name, arguments.threadCount, path);
    std::filesystem::remove(path);
    return results;
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
    std::vector<SceneResults> results;
    for (const Scene& scene : WantedScenes(arguments)) {
        results.push_back(RunScene(scene, arguments, folder));
        PrintScene(results.back(), arguments.threadCount);
    }
    PrintTable(results);
    std::printf("\naims MISSED: %d\n", CountMissed(results, arguments.threadCount));
}

void AddOptions(CLI::App& app, Arguments& arguments)
{
    app.add_option("--filter", arguments.filter, "Only the scenes with this in their names");
    app.add_option("--megabytes", arguments.megabytes, "Size of each scene's file")
        ->check(CLI::PositiveNumber);
    app.add_option("--models", arguments.modelFolder,
                   "Folder of OBJ files to be joined into one more scene")
        ->check(CLI::ExistingDirectory);
    app.add_option("--keep", arguments.keepFolder, "Only write the scenes' files, into this folder")
        ->check(CLI::ExistingDirectory);
    app.add_option("--repetitions", arguments.repetitions, "The best of so many counts (5)")
        ->check(CLI::PositiveNumber);
    app.add_option("--threads", arguments.threadCount,
                   "Of the import on several threads (as many as the machine has cores)")
        ->check(CLI::PositiveNumber);
    app.add_flag("--own", arguments.ownOnly, "Leave the readers of other libraries out");
}

int Run(int argc, char** argv)
{
    if (argc == 5 && argv[1] == GrowthOption) {
        PrintGrowth(argv[2], static_cast<unsigned>(std::stoul(argv[3])), argv[4]);
        return 0;
    }
    Arguments arguments;
    CLI::App app("Times the reading of OBJ files that it writes itself.");
    AddOptions(app, arguments);
    CLI11_PARSE(app, argc, argv);
    if (arguments.keepFolder.empty())
        RunAll(arguments);
    else
        KeepScenes(arguments);
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
