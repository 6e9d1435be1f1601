#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

inline std::string Utf8(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// Returns the contents of a file; a test that asks for one that cannot be read fails.
inline std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream) << path << " cannot be read";
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A folder of a test's own, removed with the object.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(test.test_suite_name()) + "." + test.name() + ".";
        std::replace(name.begin(), name.end(), '/', '.'); // of tests with parameters
        do {
            m_path = std::filesystem::temp_directory_path() /
                     (name + std::to_string(std::random_device()()));
        } while (!std::filesystem::create_directory(m_path));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& name) const
    {
        return m_path / name;
    }

    /// Writes a file of the folder, with folders on the way, and returns its path.
    // NOLINTNEXTLINE(modernize-use-nodiscard): what is wanted is often only the file
    std::filesystem::path Write(const std::filesystem::path& name, std::string_view contents) const
    {
        std::filesystem::path path = m_path / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << contents;
        return path;
    }

    /// Returns the contents of a file of the folder; empty when there is none.
    [[nodiscard]] std::string Read(const std::filesystem::path& name) const
    {
        std::ifstream stream(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    std::filesystem::path m_path;
};
