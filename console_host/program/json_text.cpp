#include "console_host/program/json_text.h"

#include "console_host/runtime/utf8.h"

namespace {

void WriteEscape(TextOutput& output, char character)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    constexpr std::string_view Short = "\"\\\b\f\n\r\t";
    constexpr std::string_view ShortNames = "\"\\bfnrt";
    output.Write('\\');
    if (const std::size_t index = Short.find(character); index != std::string_view::npos)
        return output.Write(ShortNames[index]);
    const auto code = static_cast<unsigned char>(character);
    output.Write("u00");
    output.Write(Digits[code >> 4U]);
    output.Write(Digits[code & 0xFU]);
}

bool NeedsEscape(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\';
}

} // namespace

void WriteJsonText(TextOutput& output, std::string_view text)
{
    output.Write('"');
    while (!text.empty()) {
        const Utf8Character first = FirstCharacter(text);
        if (!first.isValid)
            output.Write("\xEF\xBF\xBD");
        else if (NeedsEscape(text.front()))
            WriteEscape(output, text.front());
        else
            output.Write(text.substr(0, first.size));
        text.remove_prefix(first.size);
    }
    output.Write('"');
}
