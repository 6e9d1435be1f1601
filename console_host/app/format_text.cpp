#include "console_host/app/format_text.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>

namespace {

/// The largest width or precision.
constexpr int LargestField = 10000;

/// What a placeholder takes from the argument list.
enum class Argument
{
    Nothing, ///< "%%"
    Integer,
    Real,
    Character,
    String,
    Unknown
};

/// One placeholder of a printf format, taken apart.
struct Directive
{
    static constexpr int None = -1;
    static constexpr int FromArgument = -2;

    std::string flags;          ///< some of "-+ #0"
    int width = None;           ///< or FromArgument
    int precision = None;       ///< or FromArgument
    std::wstring_view length;   ///< "h", "ll", ..., or empty
    wchar_t conversion = L'\0'; ///< 0 when the format ends before it
    std::wstring_view text;     ///< the whole placeholder

    [[nodiscard]] Argument Takes() const;

    /// For characters and strings: 8-bit, not wide.
    [[nodiscard]] bool IsNarrow() const
    {
        return length.empty() ? conversion == L'S' || conversion == L'C' : length == L"h";
    }
};

bool IsAmong(wchar_t character, std::wstring_view set)
{
    return set.find(character) != std::wstring_view::npos;
}

Argument Directive::Takes() const
{
    const bool isTextLength = length.empty() || length == L"h" || length == L"l" || length == L"w";
    if (conversion == L'%' && text.size() == 2)
        return Argument::Nothing;
    if (IsAmong(conversion, L"diuxXo") && length != L"L" && length != L"w")
        return Argument::Integer;
    if (IsAmong(conversion, L"fFeEgGaA") && (length.empty() || IsAmong(length[0], L"Ll")))
        return Argument::Real;
    if (IsAmong(conversion, L"cC") && isTextLength)
        return Argument::Character;
    return IsAmong(conversion, L"sS") && isTextLength ? Argument::String : Argument::Unknown;
}

/// Takes a number or a '*' off the front.
int TakeField(std::wstring_view& rest)
{
    if (rest.starts_with(L'*')) {
        rest.remove_prefix(1);
        return Directive::FromArgument;
    }
    int value = Directive::None;
    for (; !rest.empty() && IsAmong(rest.front(), L"0123456789"); rest.remove_prefix(1))
        value =
            std::min(std::max(value, 0) * 10 + static_cast<int>(rest.front() - L'0'), LargestField);
    return value;
}

std::wstring_view TakeLength(std::wstring_view& rest)
{
    for (const std::wstring_view length :
         {L"hh", L"h", L"ll", L"l", L"w", L"I32", L"I64", L"I", L"j", L"z", L"t", L"L"}) {
        if (!rest.starts_with(length))
            continue;
        rest.remove_prefix(length.size());
        return length;
    }
    return {};
}

/// Takes the placeholder at the front of `format` apart and removes it; `format` starts with '%'.
Directive TakeDirective(std::wstring_view& format)
{
    Directive directive;
    std::wstring_view rest = format.substr(1);
    for (; !rest.empty() && IsAmong(rest.front(), L"-+ #0"); rest.remove_prefix(1))
        if (const char flag = static_cast<char>(rest.front());
            directive.flags.find(flag) == std::string::npos)
            directive.flags += flag;
    directive.width = TakeField(rest);
    if (rest.starts_with(L'.')) {
        rest.remove_prefix(1);
        directive.precision = TakeField(rest);
        if (directive.precision == Directive::None)
            directive.precision = 0;
    }
    directive.length = TakeLength(rest);
    if (!rest.empty()) {
        directive.conversion = rest.front();
        rest.remove_prefix(1);
    }
    directive.text = format.substr(0, format.size() - rest.size());
    format = rest;
    return directive;
}

/// An argument list that can be passed by reference.
struct Arguments
{
    std::va_list list;
};

/// Returns how many bits an integer of a length has.
unsigned int BitsOf(std::wstring_view length)
{
    if (length == L"hh")
        return CHAR_BIT;
    if (length == L"h")
        return sizeof(short) * CHAR_BIT;
    if (length == L"l")
        return sizeof(long) * CHAR_BIT;
    return length.empty() || length == L"I32" ? sizeof(int) * CHAR_BIT
                                              : sizeof(long long) * CHAR_BIT;
}

std::string NumberFormat(const Directive& directive, const char* length)
{
    std::string format = "%" + directive.flags;
    if (directive.width >= 0)
        format += std::to_string(directive.width);
    if (directive.precision >= 0)
        format += '.' + std::to_string(directive.precision);
    return format + length + static_cast<char>(directive.conversion);
}

/// Formats a number by a directive whose conversion follows this C length.
template <class Number>
std::wstring FormatNumber(const Directive& directive, const char* length, Number number)
{
    const std::string format = NumberFormat(directive, length);
    const int size = std::max(std::snprintf(nullptr, 0, format.c_str(), number), 0);
    std::string text(static_cast<std::size_t>(size) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), number);
    return {text.begin(), text.end() - 1};
}

std::wstring FormatInteger(const Directive& directive, Arguments& arguments)
{
    const unsigned int bits = BitsOf(directive.length);
    const unsigned int unused = sizeof(long long) * CHAR_BIT - bits;
    const long long taken = bits > sizeof(int) * CHAR_BIT ? va_arg(arguments.list, long long)
                                                          : va_arg(arguments.list, int);
    const unsigned long long shifted = static_cast<unsigned long long>(taken) << unused;
    if (IsAmong(directive.conversion, L"di"))
        return FormatNumber(directive, "ll", static_cast<long long>(shifted) >> unused);
    return FormatNumber(directive, "ll", shifted >> unused);
}

std::wstring FormatReal(const Directive& directive, Arguments& arguments)
{
    if (directive.length == L"L")
        return FormatNumber(directive, "L", va_arg(arguments.list, long double));
    return FormatNumber(directive, "", va_arg(arguments.list, double));
}

std::wstring Padded(std::wstring text, const Directive& directive)
{
    const auto width = static_cast<std::size_t>(std::max(directive.width, 0));
    if (text.size() >= width)
        return text;
    const bool left = directive.flags.find('-') != std::string::npos;
    text.insert(left ? text.size() : 0, width - text.size(), L' ');
    return text;
}

/// Returns the text up to the precision, within which it need not end, or to its end.
template <class Character>
std::basic_string_view<Character> Within(const Character* text, int precision)
{
    std::size_t length = 0;
    while ((precision < 0 || length < static_cast<std::size_t>(precision)) && text[length] != 0)
        ++length;
    return {text, length};
}

std::wstring Widened(std::string_view utf8)
{
    return std::wstring(GK_wString(utf8).View());
}

std::wstring FormatString(const Directive& directive, Arguments& arguments)
{
    const void* text = va_arg(arguments.list, const void*);
    if (text == nullptr)
        return Padded(L"(null)", directive);
    const int most = directive.precision;
    if (directive.IsNarrow())
        return Padded(Widened(Within(static_cast<const char*>(text), most)), directive);
    return Padded(std::wstring(Within(static_cast<const wchar_t*>(text), most)), directive);
}

std::wstring FormatCharacter(const Directive& directive, Arguments& arguments)
{
    // Either kind of character is handed over as an int.
    const int value = va_arg(arguments.list, int);
    const char byte = static_cast<char>(value);
    return Padded(directive.IsNarrow() ? Widened({&byte, 1})
                                       : std::wstring(1, static_cast<wchar_t>(value)),
                  directive);
}

/// Takes the width and the precision from the arguments.
void TakeFields(Directive& directive, Arguments& arguments)
{
    if (directive.width == Directive::FromArgument) {
        const int width = std::max(va_arg(arguments.list, int), -LargestField);
        if (width < 0)
            directive.flags += '-';
        directive.width = std::min(std::abs(width), LargestField);
    }
    if (directive.precision == Directive::FromArgument)
        directive.precision =
            std::clamp(va_arg(arguments.list, int), Directive::None, LargestField);
}

std::wstring FormatOne(Directive directive, Arguments& arguments)
{
    TakeFields(directive, arguments);
    switch (directive.Takes()) {
    case Argument::Integer:
        return FormatInteger(directive, arguments);
    case Argument::Real:
        return FormatReal(directive, arguments);
    case Argument::Character:
        return FormatCharacter(directive, arguments);
    case Argument::String:
        return FormatString(directive, arguments);
    default:
        return L"%";
    }
}

} // namespace

std::wstring FormatText(const wchar_t* format, std::va_list arguments)
{
    Arguments taken{};
    va_copy(taken.list, arguments);
    std::wstring text;
    std::wstring_view rest(format != nullptr ? format : L"");
    while (!rest.empty()) {
        const std::size_t plain = std::min(rest.find(L'%'), rest.size());
        text += rest.substr(0, plain);
        rest.remove_prefix(plain);
        if (rest.empty())
            break;
        Directive directive = TakeDirective(rest);
        if (directive.Takes() == Argument::Unknown) {
            text.append(directive.text).append(rest);
            break;
        }
        text += FormatOne(std::move(directive), taken);
    }
    va_end(taken.list);
    return text;
}

std::vector<std::wstring> Placeholders(std::wstring_view format)
{
    std::vector<std::wstring> placeholders;
    for (;;) {
        format.remove_prefix(std::min(format.find(L'%'), format.size()));
        if (format.empty())
            return placeholders;
        const Directive directive = TakeDirective(format);
        if (directive.Takes() == Argument::Nothing)
            continue;
        std::wstring& asked = placeholders.emplace_back();
        if (directive.Takes() == Argument::Unknown) {
            asked = L"?";
            return placeholders;
        }
        for (const int field : {directive.width, directive.precision})
            if (field == Directive::FromArgument)
                asked += L'*';
        asked.append(directive.length).append(1, directive.conversion);
    }
}
