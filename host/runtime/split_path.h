#pragma once

#include <string_view>

/// The parts of a path, as the product's platform splits it; end to end they are the path again.
struct PathParts
{
    std::wstring_view drive; ///< a letter and its colon
    std::wstring_view dir;   ///< the folder with its final slash, either '/' or '\'
    std::wstring_view fname; ///< the file's name without its extension
    std::wstring_view ext;   ///< from the last '.' of the name on
};

/// Returns the parts of a path by the rules of `_wsplitpath`, without its limits on length. The
/// parts are views of `path`. Any thread; never fails.
PathParts SplitPath(std::wstring_view path);
