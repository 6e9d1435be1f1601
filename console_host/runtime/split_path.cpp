#include "host/runtime/split_path.h"

#include <algorithm>

PathParts SplitPath(std::wstring_view path)
{
    PathParts parts;
    if (path.size() >= 2 && path[1] == L':') {
        parts.drive = path.substr(0, 2);
        path.remove_prefix(2);
    }
    const std::size_t slash = path.find_last_of(L"/\\");
    const std::size_t name = slash == std::wstring_view::npos ? 0 : slash + 1;
    parts.dir = path.substr(0, name);
    path.remove_prefix(name);
    const std::size_t dot = std::min(path.rfind(L'.'), path.size());
    parts.fname = path.substr(0, dot);
    parts.ext = path.substr(dot);
    return parts;
}
