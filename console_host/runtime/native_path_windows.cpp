#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"

#include <windows.h>

std::filesystem::path NativePath(std::wstring_view path)
{
    return std::wstring(path);
}

std::wstring WidePath(const std::filesystem::path& path)
{
    return path.native();
}

std::filesystem::path PathFromUtf8(std::string_view utf8)
{
    return std::wstring(GK_wString(utf8).View());
}

std::string Utf8Path(const std::filesystem::path& path)
{
    return GK_wString(path.c_str()).Utf8();
}

std::FILE* OpenNative(const std::filesystem::path& path, const char* mode)
{
    return _wfopen(path.c_str(), GK_wString(std::string_view(mode)).Array());
}

std::filesystem::path UserSettingsFolder()
{
    const wchar_t* value = _wgetenv(L"APPDATA");
    return value != nullptr ? value : L"";
}

std::filesystem::path ProgramFolder()
{
    constexpr DWORD LongestPath = 32768;
    std::wstring path(LongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), LongestPath));
    return std::filesystem::path(path).parent_path();
}
