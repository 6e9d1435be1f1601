#pragma once

#include <filesystem>

/// A shared library loaded at run time, unloaded when the object goes.
class Library
{
public:
    using Function = void (*)();

    /// Throws ProgramError, which names the file and the reason, when it cannot be loaded.
    explicit Library(const std::filesystem::path& path);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    /// The function that the library exports under this plain name, or null.
    [[nodiscard]] Function Find(const char* name) const;

private:
    void* m_handle = nullptr;
};
