#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A folder of the run's own, removed at its end.
class OwnFolder
{
public:
    OwnFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "importobj-fuzz-XXXXXX");
        if (mkdtemp(name.data()) == nullptr)
            std::abort();
        m_path = name;
    }

    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;
    ~OwnFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    static const OwnFolder& OfTheRun()
    {
        static const OwnFolder folder;
        return folder;
    }

    /// Writes a file of the folder; returns its path.
    [[nodiscard]] std::filesystem::path Write(const char* name, std::string_view bytes) const
    {
        std::filesystem::path path = m_path / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }

private:
    std::filesystem::path m_path;
};

inline std::string_view Text(const unsigned char* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes off and returns what stands before the next separator.
inline std::string_view TakePart(std::string_view& rest, char separator)
{
    const std::string_view part = rest.substr(0, rest.find(separator));
    rest.remove_prefix(std::min(part.size() + 1, rest.size()));
    return part;
}

/// Ends the run as a finding when a promise is broken.
inline void Expect(bool promise)
{
    if (!promise)
        std::abort();
}
