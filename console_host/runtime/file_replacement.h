#pragma once

#include "console_host/runtime/files.h"

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>

/// A file that is removed unless it is finished: by the destructor, or by RemoveUnfinishedFiles
/// when something ends the program.
class UnfinishedFile
{
public:
    /// Takes charge of a path; the file need not exist yet.
    explicit UnfinishedFile(std::filesystem::path path);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// Removes the file, unless it is finished.
    ~UnfinishedFile();

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

    /// Ends the charge: the file is finished, or is another's.
    void Finish() noexcept { m_ours = m_ours && !TakeFromList(); }

private:
    bool TakeFromList() noexcept;

    std::filesystem::path m_path;
    std::size_t m_place = 0; ///< in the list of all such files
    bool m_ours = true;
};

/// Removes all files that are not finished. May be called from a signal handler, after which the
/// program has to end.
void RemoveUnfinishedFiles() noexcept;

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

    /// Returns the stream to write to, valid until Commit; the object owns it.
    [[nodiscard]] std::FILE* Stream() const { return m_stream.get(); }

    /// Makes the file durable and puts it at its path. Throws std::runtime_error, saying why.
    void Commit();

private:
    std::filesystem::path m_target;
    std::optional<UnfinishedFile> m_fresh; ///< none when the target is written to directly
    KelvoFile m_stream;
};

/// A file for the program's own use, under a name that nobody can guess. It is removed with its
/// owner, or when a signal ends the program.
class TemporaryFile
{
public:
    /// Creates the file in a folder, for this user alone. Throws std::runtime_error, saying why.
    explicit TemporaryFile(const std::filesystem::path& folder);

    [[nodiscard]] const std::filesystem::path& Path() const { return m_file.Path(); }

    /// The stream to write to, until Close; it stays the object's.
    [[nodiscard]] std::FILE* Stream() const { return m_stream.get(); }

    /// Ends the writing. Throws std::runtime_error, saying why, when something was not written.
    void Close();

private:
    UnfinishedFile m_file;
    KelvoFile m_stream;
};

/// Replaces a file whole. Throws std::runtime_error, saying why in a few words.
void WriteInPlaceOf(const std::filesystem::path& path, std::string_view contents,
                    FileReplacement::Links links);
