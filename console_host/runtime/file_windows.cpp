#include "host/runtime/file.h"

#include <io.h>
#include <string>
#include <windows.h>

bool IsPlainFile(std::FILE* stream)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    return GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)))) == FILE_TYPE_DISK;
}

std::filesystem::path FileKey(const wchar_t* name)
{
    const DWORD size = GetFullPathNameW(name, 0, nullptr, nullptr);
    std::wstring path(size, L'\0');
    path.resize(GetFullPathNameW(name, size, path.data(), nullptr));
    CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
    return path;
}

std::filesystem::path FileKey(const char* name)
{
    return FileKey(std::filesystem::path(name).c_str());
}
