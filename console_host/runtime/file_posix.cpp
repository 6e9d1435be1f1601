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

/// Pipes and devices may never end, and a folder is no file.
bool IsPlainFile(int descriptor)
{
    struct stat status
    {
    };
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
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
    std::FILE* stream = IsPlainFile(descriptor) ? fdopen(descriptor, narrowMode.c_str()) : nullptr;
    if (stream == nullptr)
        close(descriptor);
    return stream;
}
