#include "console_host/runtime/terminal.h"

#include <unistd.h>

bool IsTerminal(std::FILE* stream)
{
    return isatty(fileno(stream)) != 0;
}

NextByte ReadUtf8(std::FILE* stream)
{
    return [stream] { return std::fgetc(stream); };
}

bool WriteUtf8(std::FILE* stream, std::string_view utf8)
{
    return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
}
