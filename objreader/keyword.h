#pragma once

#include <string_view>

/// A capital letter of ASCII as a small one; other bytes as they are.
constexpr char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// A zero-terminated token is the keyword, capital letters or not.
constexpr bool IsKeyword(const char* token, std::string_view lowerCaseKeyword)
{
    for (const char c : lowerCaseKeyword) {
        if (Lower(*token++) != c) // NOLINT(*NullDereference): every statement has a first token
            return false;
    }
    return *token == '\0';
}
