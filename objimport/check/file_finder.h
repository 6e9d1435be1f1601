#pragma once

#include <optional>
#include <string>
#include <string_view>

/// A file that a name of a library or texture leads to.
struct FoundFile
{
    std::wstring path; ///< to open it by
    std::string name;  ///< in UTF-8, for messages: as the OBJ file's name was given, with folder
    std::string writtenAs; ///< in UTF-8, the named part as it is on disk
    bool sameCase = true;  ///< it is written on disk as it was named
};

/// Finds the files that an OBJ file names, as its import does.
class FileFinder
{
public:
    FileFinder() = default;
    FileFinder(const FileFinder&) = delete;
    FileFinder& operator=(const FileFinder&) = delete;
    virtual ~FileFinder() = default;

    /// Return nothing when there is no such plain file.
    virtual std::optional<FoundFile> FindLibrary(const std::string& name) = 0;
    virtual std::optional<FoundFile> FindTexture(const std::string& name) = 0;
};
