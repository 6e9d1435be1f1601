#include "console_host/runtime/terminal.h"

#include "host/geokit/string.h"

#include <array>
#include <cerrno>
#include <io.h>
#include <string>
#include <windows.h>

namespace {

constexpr wchar_t EndOfInputKey = 0x1A; // Ctrl+Z

/// Returns the console that a stream is, or null.
HANDLE ConsoleOf(std::FILE* stream)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the platform gives handles as integers
    auto* const handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0 ? handle : nullptr;
}

/// Reading a console byte by byte would lose what its code page lacks.
class ConsoleReader
{
public:
    explicit ConsoleReader(HANDLE console) : m_console(console) {}

    int operator()()
    {
        if (m_next == m_text.size() && !Fill())
            return EOF;
        return static_cast<unsigned char>(m_text[m_next++]);
    }

private:
    bool Fill()
    {
        std::array<wchar_t, 1024> units{};
        DWORD count = 0;
        if (ReadConsoleW(m_console, units.data(), static_cast<DWORD>(units.size()), &count,
                         nullptr) == 0 ||
            count == 0 || units[0] == EndOfInputKey)
            return false;
        m_text = GK_wString(std::wstring(units.data(), count)).Utf8();
        m_next = 0;
        return true;
    }

    HANDLE m_console;
    std::string m_text;
    std::size_t m_next = 0;
};

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

bool IsTerminal(std::FILE* stream)
{
    return ConsoleOf(stream) != nullptr;
}

int TerminalWidth(std::FILE* stream)
{
    HANDLE console = ConsoleOf(stream);
    CONSOLE_SCREEN_BUFFER_INFO information{};
    if (console == nullptr || GetConsoleScreenBufferInfo(console, &information) == 0)
        return 0;
    return information.srWindow.Right - information.srWindow.Left + 1;
}

bool ShowsColours(std::FILE* stream)
{
    HANDLE console = ConsoleOf(stream);
    DWORD mode = 0;
    const wchar_t* const noColour = _wgetenv(L"NO_COLOR");
    return console != nullptr && (noColour == nullptr || *noColour == L'\0') &&
           GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void WriteErrorsAtOnce(std::string_view utf8) noexcept
{
    _write(_fileno(stderr), utf8.data(), static_cast<unsigned int>(utf8.size()));
}

NextByte ReadUtf8(std::FILE* stream)
{
    if (HANDLE console = ConsoleOf(stream); console != nullptr)
        return ConsoleReader(console);
    return [stream] { return std::fgetc(stream); };
}

bool WriteUtf8(std::FILE* stream, std::string_view utf8)
{
    HANDLE console = ConsoleOf(stream);
    if (console == nullptr)
        return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
    std::fflush(stream);
    return WriteToConsole(console, GK_wString(utf8).View());
}
