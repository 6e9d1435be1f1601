#include "objimport/json_stream.h"

#include "console_host/app/printable.h"
#include "console_host/runtime/utf8.h"

namespace {

void WriteEscape(TextOutput& output, char32_t code)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    constexpr std::string_view Short = "\"\\\b\f\n\r\t";
    constexpr std::string_view ShortNames = "\"\\bfnrt";
    output.Write('\\');
    const std::size_t index =
        code < 0x80 ? Short.find(static_cast<char>(code)) : std::string_view::npos;
    if (index != std::string_view::npos)
        return output.Write(ShortNames[index]);
    output.Write('u');
    for (unsigned int bits = 16; bits > 0; bits -= 4)
        output.Write(Digits[code >> (bits - 4) & 0xFU]);
}

/// Returns whether a character is escaped: JSON requires some escapes; the others keep names in a
/// document from controlling a terminal.
bool NeedsEscape(char32_t code)
{
    return code == '"' || code == '\\' || IsSteering(code);
}

} // namespace

void WriteJsonText(TextOutput& output, std::string_view text)
{
    output.Write('"');
    while (!text.empty()) {
        const Utf8Character first = FirstCharacter(text);
        if (!first.isValid)
            output.Write("\xEF\xBF\xBD");
        else if (NeedsEscape(first.code))
            WriteEscape(output, first.code);
        else
            output.Write(text.substr(0, first.size));
        text.remove_prefix(first.size);
    }
    output.Write('"');
}
