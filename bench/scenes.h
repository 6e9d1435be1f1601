#pragma once

#include <span>
#include <string>
#include <string_view>

/// A kind of file that the benchmarks read. Every run writes the same bytes for the same size.
struct Scene
{
    std::string_view name;
    std::string_view what;
    /// The size when none is asked for, in millions of bytes.
    double megabytes;
    /// Writes a file of about `bytes` bytes. Throws std::runtime_error when it cannot be written.
    void (*write)(const std::string& path, std::size_t bytes);
};

[[nodiscard]] std::span<const Scene> Scenes();
