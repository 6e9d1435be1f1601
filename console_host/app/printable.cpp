#include "console_host/app/printable.h"

#include "console_host/framework/work_note.h"
#include "console_host/runtime/terminal.h"
#include "console_host/runtime/text.h"
#include "console_host/runtime/utf8.h"

#include <cstdint>

namespace {

bool IsControl(char32_t code)
{
    return code < 0x20 || (code >= 0x7F && code <= 0x9F);
}

/// Separators of lines, and marks for the direction of writing.
bool IsDisguise(char32_t code)
{
    return code == 0x061C || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

std::string Escape(std::uint32_t code)
{
    return FormatText(code <= 0xFF ? "\\x%02X" : "\\u%04X", code);
}

bool IsLineEndOrTab(std::string_view text)
{
    return text.front() == '\n' || text.front() == '\t' || text.starts_with("\r\n");
}

template <class IsKept>
std::string WithEscapes(std::string_view utf8, IsKept isKept)
{
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Utf8Character first = FirstCharacter(utf8);
        const bool isHarmless = first.isValid && !IsSteering(first.code);
        if (isHarmless || isKept(utf8))
            text += utf8.substr(0, first.size);
        else if (first.isValid)
            text += Escape(first.code);
        else
            for (const char byte : utf8.substr(0, first.size))
                text += Escape(static_cast<unsigned char>(byte));
        utf8.remove_prefix(first.size);
    }
    return text;
}

} // namespace

bool IsSteering(char32_t code)
{
    return IsControl(code) || IsDisguise(code);
}

std::string Printable(std::string_view utf8)
{
    return WithEscapes(utf8, IsLineEndOrTab);
}

std::string PrintableLine(std::string_view utf8)
{
    return WithEscapes(utf8, [](std::string_view) { return false; });
}

bool WriteForPerson(std::FILE* stream, std::string_view utf8)
{
    WorkNote::Instance().Hide();
    return WriteUtf8(stream, Printable(utf8));
}
