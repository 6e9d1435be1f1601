#include "materials/file_location.h"

#include "host/runtime/split_path.h"

bool IsFullFileName(std::wstring_view name)
{
    const PathParts parts = SplitPath(name);
    return !parts.drive.empty() && !parts.dir.empty() && !parts.fname.empty() && !parts.ext.empty();
}

bool HasShortParts(std::wstring_view name)
{
    constexpr std::size_t MaxPart = 255;
    const PathParts parts = SplitPath(name);
    return parts.dir.size() <= MaxPart && parts.fname.size() <= MaxPart &&
           parts.ext.size() <= MaxPart;
}

FileLocation::FileLocation(std::wstring_view path)
{
    const PathParts parts = SplitPath(path);
    m_folder += parts.drive;
    m_folder += parts.dir;
}

bool FileLocation::CompletePath(GK_wString& path) const
{
    if (path.IsEmpty() || IsFullFileName(path.View()) || !HasShortParts(path.View()))
        return false;
    GK_wString completed = m_folder;
    completed += path.View();
    completed.Replace(L'/', L'\\');
    path = std::move(completed);
    return true;
}
