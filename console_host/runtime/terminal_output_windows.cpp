#include "console_host/runtime/terminal_output.h"

#include "host/geokit/string.h"

#include <cerrno>
#include <io.h>
#include <string>
#include <windows.h>

namespace {

/// Writes to a console, which takes no more than some thousand characters at a time.
bool WriteToConsole(HANDLE console, std::wstring_view text)
{
    constexpr std::size_t Most = 8000;
    while (!text.empty()) {
        std::size_t count = text.size() < Most ? text.size() : Most;
        // A character of two units stays whole.
        if (count < text.size() && (text[count] & 0xFC00) == 0xDC00)
            --count;
        DWORD written = 0;
        if (WriteConsoleW(console, text.data(), static_cast<DWORD>(count), &written, nullptr) ==
                0 ||
            written == 0) {
            errno = EIO;
            return false;
        }
        text.remove_prefix(written);
    }
    return true;
}

} // namespace

bool WriteUtf8(std::FILE* stream, std::string_view utf8)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    auto* const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode) == 0)
        return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
    std::fflush(stream);
    return WriteToConsole(handle, GK_wString(utf8).View());
}
