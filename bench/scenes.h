#pragma once

#include <functional>
#include <string>
#include <vector>

/// What an import of a scene on one thread is to reach.
struct SceneAims
{
    double importPerParse = 2.0; ///< times of the parse alone, at most
    double memoryPerByte = 0.0;  ///< bytes of memory for a byte of the file, at most; 0: no aim
};

/// A kind of file that the benchmarks read. Every run writes the same bytes for the same size.
struct Scene
{
    std::string name;
    std::string what;
    /// The size when none is asked for, in millions of bytes.
    double megabytes = 100.0;
    /// Writes a file of about `bytes` bytes. Throws std::runtime_error when it cannot be written.
    std::function<void(const std::string& path, std::size_t bytes)> write;
    SceneAims aims{};
};

/// Returns all scenes. One that is joined from the OBJ files of a folder comes last, when a folder
/// is named.
[[nodiscard]] std::vector<Scene> Scenes(const std::string& modelFolder);
