#include "objimport/found_files.h"

#include "console_host/runtime/files.h"
#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"
#include "host/runtime/split_path.h"

#include <algorithm>

namespace {

std::wstring Wide(const std::string& utf8)
{
    return std::wstring(GK_wString(std::string_view(utf8)).View());
}

/// Returns whether a name says where its file is: with drive, folder, name and extension.
bool IsFull(std::wstring_view name)
{
    const PathParts parts = SplitPath(name);
    return !parts.drive.empty() && !parts.dir.empty() && !parts.fname.empty() && !parts.ext.empty();
}

bool HasLongPart(std::wstring_view name)
{
    constexpr std::size_t MostInAPart = 255;
    const PathParts parts = SplitPath(name);
    return std::max({parts.dir.size(), parts.fname.size(), parts.ext.size()}) > MostInAPart;
}

/// Returns the end of a path that takes the place of a name.
std::string EndOf(const std::filesystem::path& path, const std::string& name)
{
    const std::string whole = Utf8Path(path);
    return whole.size() >= name.size() ? whole.substr(whole.size() - name.size()) : whole;
}

/// Returns whether names are the same, whichever separators stand between their folders.
bool IsSameName(std::string a, std::string b)
{
    std::replace(a.begin(), a.end(), '\\', '/');
    std::replace(b.begin(), b.end(), '\\', '/');
    return a == b;
}

std::optional<FoundFile> PlainFileAt(const std::filesystem::path& path, const std::string& name)
{
    if (KindOfFile(path) != FileKind::Plain)
        return std::nullopt;
    const std::string shown = Utf8Path(std::filesystem::path(path).make_preferred());
    FoundFile found{WidePath(path), shown, EndOf(path, name), true};
    found.sameCase = IsSameName(found.writtenAs, name);
    return found;
}

} // namespace

FilesBeside::FilesBeside(const std::filesystem::path& objFile) : m_folder(objFile.parent_path()) {}

/// Looks for a library in the current folder first.
std::optional<FoundFile> FilesBeside::FindLibrary(const std::string& name)
{
    if (const std::filesystem::path unchanged(name); KindOfFile(unchanged) == FileKind::Plain)
        return FoundFile{WidePath(AbsolutePath(unchanged)), name, name, true};
    return IsFull(Wide(name)) ? std::nullopt : FindBeside(name);
}

std::optional<FoundFile> FilesBeside::FindTexture(const std::string& name)
{
    const std::wstring wide = Wide(name);
    if (IsFull(wide) && !HasLongPart(wide))
        return PlainFileAt(NativePath(wide), name);
    return FindBeside(name);
}

std::optional<FoundFile> FilesBeside::FindBeside(const std::string& name) const
{
    const std::wstring wide = Wide(name);
    if (wide.empty() || HasLongPart(wide))
        return std::nullopt;
    const std::wstring folder = m_folder.empty() ? L"" : WidePath(m_folder) + L"/";
    return PlainFileAt(NativePath(folder + wide), name);
}
