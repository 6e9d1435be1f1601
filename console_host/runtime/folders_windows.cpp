#include "console_host/runtime/folders.h"

#include <string>
#include <windows.h>

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
