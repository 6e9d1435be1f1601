#pragma once

#include "objreader/obj_line_tokenizer.h"

#include <string>
#include <string_view>

/// Returns a token as the tokenizer returns it: readable bytes follow its end and must not matter.
inline std::string Padded(std::string_view text)
{
    std::string padded(text);
    padded += '\0';
    return padded.append(CObjLineTokenizer::Padding, '7');
}
