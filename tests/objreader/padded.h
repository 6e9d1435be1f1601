#pragma once

#include "objreader/obj_line_tokenizer.h"

#include <string>
#include <string_view>

/// A token as the tokenizer gives it: behind its end stand readable bytes, which must not matter.
inline std::string Padded(std::string_view text)
{
    std::string padded(text);
    padded += '\0';
    return padded.append(CObjLineTokenizer::Padding, '7');
}
