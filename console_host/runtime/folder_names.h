#pragma once

#include <ctime>
#include <map>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>

/// Finds names in folders, ignoring case. A folder is read again only when it has changed, so that
/// looking for many names that do not exist costs one reading.
class FolderNames
{
public:
    /// Returns those of this thread.
    static FolderNames& Instance();

    /// Returns the first name in byte order that equals `name` except for case; empty when there is
    /// none.
    std::string Find(const std::string& folder, std::string_view name);

    /// Returns how many folders have been read so far.
    [[nodiscard]] int ReadCount() const { return m_readCount; }

private:
    using Names = std::map<std::wstring, std::string>; ///< by their folded forms

    struct Listing
    {
        timespec changed{}; ///< the folder, as of the reading
        bool isSettled = false;
        Names names;
    };

    const Names& NamesIn(const std::string& folder);
    Names Read(const std::string& folder);

    std::map<std::pair<dev_t, ino_t>, Listing> m_listings;
    int m_readCount = 0;
};
