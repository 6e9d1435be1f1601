#pragma once

#include <cstdio>
#include <string>

/// Returns a short text (up to 255 characters) that std::snprintf makes.
template <class... Arguments>
std::string FormatText(const char* format, Arguments... arguments)
{
    char text[256];
    std::snprintf(text, sizeof text, format, arguments...);
    return text;
}
