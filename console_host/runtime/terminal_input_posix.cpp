#include "console_host/runtime/terminal_input.h"

#include <unistd.h>

bool IsTerminal(std::FILE* stream)
{
    return isatty(fileno(stream)) != 0;
}

ByteReader MakeByteReader(std::FILE* stream)
{
    return [stream] { return std::fgetc(stream); };
}
