#include "console_host/runtime/terminal_output.h"

bool WriteUtf8(std::FILE* stream, std::string_view utf8)
{
    return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size();
}
