#pragma once

#include <ctime>
#include <map>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>

/// Finds names in folders without regard to case. A folder is read again only when it has changed,
/// so that looking for many names that are not there costs one reading.
class FolderNames
{
public:
    /// Those of this thread.
    static FolderNames& Instance();

    /// The first name in byte order that equals `name` but for case; empty when there is none.
    std::string Find(const std::string& folder, std::string_view name);

    /// How many folders have been read so far.
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
