#pragma once

#include "console_host/runtime/unfinished_file.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

/// Writes a file that takes the place of the one at its path when it is whole, and not before:
/// under a name beside it that nobody can guess or prepare, created for this purpose, never through
/// a link. What is not committed leaves the old file as it was and nothing beside it, also when a
/// signal ends the program. What is no plain file (a pipe, a device, the program's own output by a
/// name) is written to directly.
class FileReplacement
{
public:
    /// What is replaced when a link stands at the path.
    enum class Links
    {
        Follow, ///< the file that it leads to: for a path that the user named
        Replace ///< the link: for a path that was made from what stands in a file
    };

    /// Creates the new file. Throws std::runtime_error, saying why in a few words.
    FileReplacement(const std::filesystem::path& path, Links links);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Removes the new file, unless it is committed.
    ~FileReplacement();

    /// The stream to write to, until Commit; it stays the object's.
    [[nodiscard]] std::FILE* Stream() const { return m_stream.get(); }

    /// Makes the file durable and puts it at its path. Throws std::runtime_error, saying why.
    void Commit();

private:
    struct CloseFile
    {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    std::filesystem::path m_target;
    std::optional<UnfinishedFile> m_fresh; ///< none when the target is written to directly
    std::unique_ptr<std::FILE, CloseFile> m_stream;
};

/// Replaces a file whole. Throws std::runtime_error, saying why in a few words.
void ReplaceFile(const std::filesystem::path& path, std::string_view contents,
                 FileReplacement::Links links);
