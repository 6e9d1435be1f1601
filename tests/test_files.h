#pragma once

#include "tests/temporary_folder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

using Bytes = std::vector<unsigned char>;

inline Bytes FileBytes(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteFile(const std::filesystem::path& path, std::string_view text)
{
    std::ofstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.write(text.data(), static_cast<std::streamsize>(text.size())).flush())
        << path;
}

inline void WriteFile(const std::filesystem::path& path, const Bytes& bytes)
{
    WriteFile(path, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

/// A folder of a test's own, with paths into it.
class TestFolder : public TemporaryFolder
{
public:
    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& name) const
    {
        return Path() / name;
    }

    [[nodiscard]] std::size_t FileCount() const
    {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(Path()), {}));
    }
};
