#pragma once

#include <cstddef>
#include <string_view>

/// A character of a UTF-8 text.
struct Utf8Character
{
    char32_t code = 0;
    std::size_t size = 0; ///< in bytes; of what is no character, how many bytes to skip
    bool isValid = false;
};

/// Returns the first character of a text, which must not be empty. Overlong forms, surrogates and
/// codes beyond U+10FFFF are none.
Utf8Character FirstCharacter(std::string_view utf8) noexcept;
