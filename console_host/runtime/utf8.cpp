#include "console_host/runtime/utf8.h"

#include <algorithm>

namespace {

/// The form of a character that begins with a certain byte.
struct Form
{
    std::size_t size;
    unsigned int codeBits; ///< of the first byte
    unsigned int lowest;   ///< that the second byte may be
    unsigned int highest;
};

Form FormOf(unsigned int byte) noexcept
{
    if (byte < 0x80)
        return {1, 0x7F, 0, 0};
    if (byte < 0xC2 || byte > 0xF4)
        return {0, 0, 0, 0};
    if (byte < 0xE0)
        return {2, 0x1F, 0x80, 0xBF};
    if (byte < 0xF0)
        return {3, 0x0F, byte == 0xE0 ? 0xA0U : 0x80U, byte == 0xED ? 0x9FU : 0xBFU};
    return {4, 0x07, byte == 0xF0 ? 0x90U : 0x80U, byte == 0xF4 ? 0x8FU : 0xBFU};
}

} // namespace

Utf8Character FirstCharacter(std::string_view utf8) noexcept
{
    const unsigned int first = static_cast<unsigned char>(utf8.front());
    const Form form = FormOf(first);
    Utf8Character character{first & form.codeBits, 1, form.size == 1};
    for (std::size_t i = 1; i < std::min(form.size, utf8.size()); ++i) {
        const unsigned int next = static_cast<unsigned char>(utf8[i]);
        if (next < (i == 1 ? form.lowest : 0x80U) || next > (i == 1 ? form.highest : 0xBFU))
            return character;
        character.code = character.code << 6U | (next & 0x3FU);
        character.size = i + 1;
        character.isValid = i + 1 == form.size;
    }
    return character;
}
