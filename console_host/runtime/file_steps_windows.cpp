#include "console_host/runtime/file_steps.h"

#include <fcntl.h>
#include <io.h>
#include <system_error>
#include <windows.h>

namespace {

[[noreturn]] void ThrowLastError()
{
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

std::FILE* OpenStream(const std::filesystem::path& path, DWORD disposition)
{
    constexpr DWORD Share = FILE_SHARE_READ | FILE_SHARE_DELETE;
    HANDLE const handle = CreateFileW(path.c_str(), GENERIC_WRITE, Share, nullptr, disposition,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    // NOLINTNEXTLINE(*-no-int-to-ptr, *-old-style-cast): as the platform defines it
    if (handle == INVALID_HANDLE_VALUE)
        ThrowLastError();
    const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), _O_BINARY);
    std::FILE* stream = descriptor >= 0 ? _fdopen(descriptor, "wb") : nullptr;
    if (stream != nullptr)
        return stream;
    const int error = errno;
    if (descriptor >= 0)
        _close(descriptor);
    else
        CloseHandle(handle);
    throw std::system_error(error, std::generic_category());
}

} // namespace

std::FILE* CreateFresh(const std::filesystem::path& fresh, const std::filesystem::path&)
{
    return OpenStream(fresh, CREATE_NEW);
}

bool NamesOpenStream(const std::filesystem::path&)
{
    return false;
}

std::FILE* OpenSpecial(const std::filesystem::path& path)
{
    return OpenStream(path, OPEN_EXISTING);
}

void MakeDurable(std::FILE* stream)
{
    if (std::fflush(stream) != 0)
        throw std::system_error(errno, std::generic_category());
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    if (FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)))) == 0)
        ThrowLastError();
}

void MoveInto(const std::filesystem::path& fresh, const std::filesystem::path& target)
{
    constexpr DWORD How = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    // Another program may have the file open for a moment: one that replaces or scans it.
    constexpr int Attempts = 50;
    constexpr DWORD Pause = 20;
    for (int attempt = 1; MoveFileExW(fresh.c_str(), target.c_str(), How) == 0; ++attempt) {
        const DWORD error = GetLastError();
        const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!mayPass || attempt == Attempts)
            throw std::system_error(static_cast<int>(error), std::system_category());
        Sleep(Pause);
    }
}
