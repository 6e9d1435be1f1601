#include "console_host/runtime/terminal_input.h"

#include "host/geokit/string.h"

#include <array>
#include <io.h>
#include <string>
#include <windows.h>

namespace {

constexpr wchar_t EndOfInputKey = 0x1A; // Ctrl+Z

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

} // namespace

bool IsTerminal(std::FILE* stream)
{
    return ConsoleOf(stream) != nullptr;
}

ByteReader MakeByteReader(std::FILE* stream)
{
    if (HANDLE console = ConsoleOf(stream); console != nullptr)
        return ConsoleReader(console);
    return [stream] { return std::fgetc(stream); };
}
