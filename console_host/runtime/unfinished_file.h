#pragma once

#include <filesystem>

/// A file that is removed unless it is finished: by the destructor, or by RemoveUnfinishedFiles
/// when something ends the program.
class UnfinishedFile
{
public:
    /// Takes charge of a path, at which there need not be a file yet.
    explicit UnfinishedFile(std::filesystem::path path);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// Removes the file, unless it is finished.
    ~UnfinishedFile();

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

    /// Gives up the charge: the file is finished, or another's.
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
