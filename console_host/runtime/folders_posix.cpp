#include "console_host/runtime/folders.h"

#include <cstdlib>
#include <system_error>

namespace {

std::filesystem::path EnvironmentPath(const char* variable)
{
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

} // namespace

std::filesystem::path UserSettingsFolder()
{
    // A relative folder here is to be ignored.
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
