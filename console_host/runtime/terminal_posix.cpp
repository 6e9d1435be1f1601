#include "console_host/runtime/terminal.h"

#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

bool IsTerminal(std::FILE* stream)
{
    return isatty(fileno(stream)) != 0;
}

int TerminalWidth(std::FILE* stream)
{
    winsize size{};
    return ioctl(fileno(stream), TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

bool ShowsColours(std::FILE* stream)
{
    const auto valueOf = [](const char* variable) {
        const char* value = std::getenv(variable);
        return std::string_view(value != nullptr ? value : "");
    };
    const std::string_view kind = valueOf("TERM");
    return IsTerminal(stream) && valueOf("NO_COLOR").empty() && !kind.empty() && kind != "dumb";
}

void WriteErrorsAtOnce(std::string_view utf8) noexcept
{
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, utf8.data(), utf8.size());
}

NextByte ReadUtf8(std::FILE* stream)
{
    return [stream] { return std::fgetc(stream); };
}

bool WriteUtf8(std::FILE* stream, std::string_view utf8)
{
    return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
}
