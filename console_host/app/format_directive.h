#pragma once

#include <string>
#include <string_view>

/// One placeholder of a printf format, taken apart.
struct FormatDirective
{
    static constexpr int None = -1;
    static constexpr int FromArgument = -2;

    std::string flags;          ///< some of "-+ #0"
    int width = None;           ///< or FromArgument
    int precision = None;       ///< or FromArgument
    std::wstring length;        ///< some of "hh h l ll w I I32 I64 j z t L", or empty
    wchar_t conversion = L'\0'; ///< 0 when the format ends before it
    std::wstring_view text;     ///< the whole placeholder

    /// What the placeholder takes from the argument list.
    enum class Argument
    {
        Nothing, ///< "%%"
        Integer,
        Real,
        Character,
        String,
        Pointer,
        Unknown
    };

    [[nodiscard]] Argument Takes() const;

    /// For characters and strings: 8-bit, not wide.
    [[nodiscard]] bool IsNarrow() const;

    /// For integers.
    [[nodiscard]] bool IsSigned() const { return conversion == L'd' || conversion == L'i'; }
};

/// The largest width or precision.
constexpr int LargestField = 10000;

/// Takes the placeholder at the front of `format` apart and removes it; `format` starts with '%'.
FormatDirective TakeFormatDirective(std::wstring_view& format);
