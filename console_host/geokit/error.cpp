#include "host/geokit/error.h"

#include "console_host/geokit/error_handler.h"

#include <cstdio>
#include <utility>

namespace {

ErrorHandler& CurrentHandler() noexcept
{
    static ErrorHandler handler = nullptr;
    return handler;
}

} // namespace

ErrorHandler SetErrorHandler(ErrorHandler handler) noexcept
{
    return std::exchange(CurrentHandler(), handler);
}

void GK_Error(const char* source, int line, const char* text) noexcept
{
    if (const ErrorHandler handler = CurrentHandler())
        handler(source, line, text);
    else
        std::fprintf(stderr, "%s (%d): %s\n", source, line, text);
}
