#include "console_host/runtime/folder_names.h"
#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <system_error>

namespace {

bool Exists(const std::string& path)
{
    std::error_code error;
    return std::filesystem::exists(path, error);
}

/// Returns the path as it is found part by part, ignoring case.
std::string FindWithoutCase(std::string_view path)
{
    std::string found;
    while (!path.empty()) {
        const std::size_t slashes = std::min(path.find_first_not_of('/'), path.size());
        found += path.substr(0, slashes);
        path.remove_prefix(slashes);
        const std::string_view part = path.substr(0, path.find('/'));
        if (Exists(found + std::string(part))) {
            found += part;
        } else {
            const std::string name =
                FolderNames::Instance().Find(found.empty() ? "." : found, part);
            if (name.empty())
                return found.append(path);
            found += name;
        }
        path.remove_prefix(part.size());
    }
    return found;
}

std::filesystem::path EnvironmentPath(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

} // namespace

std::filesystem::path NativePath(std::wstring_view path)
{
    GK_wString slashed{std::wstring(path)};
    slashed.Replace(L'\\', L'/');
    std::string utf8 = slashed.Utf8();
    // The system accepts no longer path, so its parts would not be found either.
    if (utf8.size() < PATH_MAX && !Exists(utf8))
        utf8 = FindWithoutCase(utf8);
    return utf8;
}

std::wstring WidePath(const std::filesystem::path& path)
{
    return std::wstring(GK_wString(std::string_view(path.native())).View());
}

std::filesystem::path PathFromUtf8(std::string_view utf8)
{
    return std::string(utf8);
}

std::string Utf8Path(const std::filesystem::path& path)
{
    return path.native();
}

std::FILE* OpenNative(const std::filesystem::path& path, const char* mode)
{
    return std::fopen(path.c_str(), mode);
}

std::filesystem::path UserSettingsFolder()
{
    // A relative folder here has to be ignored.
    if (std::filesystem::path folder = EnvironmentPath("XDG_CONFIG_HOME"); folder.is_absolute())
        return folder;
    const std::filesystem::path home = EnvironmentPath("HOME");
    return home.empty() ? home : home / ".config";
}

std::filesystem::path ProgramFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}
