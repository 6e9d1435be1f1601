#include "console_host/app/printable.h"

std::string Printable(std::string_view utf8)
{
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        const auto next = static_cast<unsigned char>(i + 1 < utf8.size() ? utf8[i + 1] : 0);
        // U+0080 to U+009F, the second set of control characters.
        const bool second = byte == 0xC2 && next >= 0x80 && next <= 0x9F;
        const bool first = (byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F;
        text += first || second ? '?' : utf8[i];
        i += second ? 1 : 0;
    }
    return text;
}
