#pragma once

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

/// A fresh folder, which goes with the test.
class TestFolder
{
public:
    TestFolder()
    {
        const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
        m_path = std::filesystem::path(testing::TempDir()) /
                 (std::string("importobj_") + test->test_suite_name() + "_" + test->name());
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }

    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& name) const
    {
        return m_path / name;
    }

    [[nodiscard]] std::size_t FileCount() const
    {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
    std::filesystem::path m_path;
};
