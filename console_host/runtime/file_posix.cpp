#include "console_host/runtime/native_path.h"

#include "host/geokit/string.h"
#include "host/runtime/file.h"

#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The flags of open() for a mode of fopen; -1 for what is no mode.
int OpenFlags(std::string_view mode)
{
    const bool both = mode.find('+') != std::string_view::npos;
    switch (mode.empty() ? '\0' : mode.front()) {
    case 'r':
        return both ? O_RDWR : O_RDONLY;
    case 'w':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_TRUNC;
    case 'a':
        return (both ? O_RDWR : O_WRONLY) | O_CREAT | O_APPEND;
    default:
        return -1;
    }
}

bool IsPlain(int descriptor, int flags)
{
    struct stat status
    {
    };
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    const bool isToBeRead = (flags & O_ACCMODE) == O_RDONLY;
    char bytes[4096];
    return status.st_size > 0 || !isToBeRead || pread(descriptor, bytes, sizeof bytes, 0) <= 0;
}

/// The folder's own path, then the name as it stands in it.
std::filesystem::path KeyOf(const std::filesystem::path& path)
{
    std::error_code error;
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    const std::filesystem::path canonical = std::filesystem::canonical(folder, error);
    return error ? path.lexically_normal() : canonical / path.filename();
}

} // namespace

// NOLINTNEXTLINE(*-reserved-identifier): the name that it has on Windows
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode)
{
    if (path == nullptr || mode == nullptr)
        return nullptr;
    const std::string narrowMode = GK_wString(mode).Utf8();
    const int flags = OpenFlags(narrowMode);
    if (flags < 0)
        return nullptr;
    constexpr mode_t ReadAndWrite = 0666;
    // Not to wait for the other end of a pipe.
    const int descriptor =
        open(NativePath(path).c_str(), flags | O_NONBLOCK | O_CLOEXEC, ReadAndWrite);
    if (descriptor < 0)
        return nullptr;
    std::FILE* stream =
        IsPlain(descriptor, flags) ? fdopen(descriptor, narrowMode.c_str()) : nullptr;
    if (stream == nullptr)
        close(descriptor);
    return stream;
}

bool IsPlainFile(std::FILE* stream)
{
    return IsPlain(fileno(stream), O_RDONLY);
}

std::filesystem::path FileKey(const wchar_t* name)
{
    return KeyOf(NativePath(name));
}

std::filesystem::path FileKey(const char* name)
{
    return KeyOf(name);
}
