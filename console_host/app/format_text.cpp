#include "console_host/app/format_text.h"

#include "console_host/app/format_directive.h"

#include "host/geokit/string.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

/// An argument list that can be handed on by reference.
struct Arguments
{
    std::va_list list;
};

long long TakeSigned(Arguments& arguments, std::wstring_view length)
{
    if (length == L"hh")
        return static_cast<signed char>(va_arg(arguments.list, int));
    if (length == L"h")
        return static_cast<short>(va_arg(arguments.list, int));
    if (length == L"l")
        return va_arg(arguments.list, long);
    if (length == L"ll" || length == L"I64")
        return va_arg(arguments.list, long long);
    if (length == L"j")
        return va_arg(arguments.list, std::intmax_t);
    if (length == L"z" || length == L"t" || length == L"I")
        return va_arg(arguments.list, std::ptrdiff_t);
    return va_arg(arguments.list, int);
}

unsigned long long TakeUnsigned(Arguments& arguments, std::wstring_view length)
{
    if (length == L"hh")
        return static_cast<unsigned char>(va_arg(arguments.list, int));
    if (length == L"h")
        return static_cast<unsigned short>(va_arg(arguments.list, int));
    if (length == L"l")
        return va_arg(arguments.list, unsigned long);
    if (length == L"ll" || length == L"I64")
        return va_arg(arguments.list, unsigned long long);
    if (length == L"j")
        return va_arg(arguments.list, std::uintmax_t);
    if (length == L"z" || length == L"t" || length == L"I")
        return va_arg(arguments.list, std::size_t);
    return va_arg(arguments.list, unsigned int);
}

std::wstring Widened(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

/// The C format of a number's placeholder, ending in this length and the conversion.
std::string NumberFormat(const FormatDirective& directive, const char* length)
{
    std::string format = "%" + directive.flags;
    if (directive.width >= 0)
        format += std::to_string(directive.width);
    if (directive.precision >= 0)
        format += '.' + std::to_string(directive.precision);
    return format + length + static_cast<char>(directive.conversion);
}

template <class Number>
std::wstring FormatNumber(const std::string& format, Number number)
{
    const int length = std::snprintf(nullptr, 0, format.c_str(), number);
    if (length < 0)
        return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), number);
    text.pop_back();
    return Widened(text);
}

std::wstring FormatInteger(const FormatDirective& directive, Arguments& arguments)
{
    const std::string format = NumberFormat(directive, "ll");
    return directive.IsSigned() ? FormatNumber(format, TakeSigned(arguments, directive.length))
                                : FormatNumber(format, TakeUnsigned(arguments, directive.length));
}

std::wstring FormatReal(const FormatDirective& directive, Arguments& arguments)
{
    if (directive.length == L"L")
        return FormatNumber(NumberFormat(directive, "L"), va_arg(arguments.list, long double));
    return FormatNumber(NumberFormat(directive, ""), va_arg(arguments.list, double));
}

std::wstring Padded(std::wstring text, const FormatDirective& directive)
{
    const auto width = static_cast<std::size_t>(std::max(directive.width, 0));
    if (text.size() >= width)
        return text;
    const bool left = directive.flags.find('-') != std::string::npos;
    text.insert(left ? text.size() : 0, width - text.size(), L' ');
    return text;
}

/// The length of a string that need not end when the precision comes first.
template <class Character>
std::size_t LengthWithin(const Character* text, int precision)
{
    std::size_t length = 0;
    while ((precision < 0 || length < static_cast<std::size_t>(precision)) && text[length] != 0)
        ++length;
    return length;
}

std::wstring FormatString(const FormatDirective& directive, Arguments& arguments)
{
    if (directive.IsNarrow()) {
        const char* text = va_arg(arguments.list, const char*);
        if (text == nullptr)
            return Padded(L"(null)", directive);
        const GK_wString wide(std::string_view(text, LengthWithin(text, directive.precision)));
        return Padded(std::wstring(wide.View()), directive);
    }
    const wchar_t* text = va_arg(arguments.list, const wchar_t*);
    if (text == nullptr)
        return Padded(L"(null)", directive);
    return Padded(std::wstring(text, LengthWithin(text, directive.precision)), directive);
}

std::wstring FormatCharacter(const FormatDirective& directive, Arguments& arguments)
{
    // Either kind of character is handed over as an int.
    const int value = va_arg(arguments.list, int);
    if (!directive.IsNarrow())
        return Padded(std::wstring(1, static_cast<wchar_t>(value)), directive);
    const char byte = static_cast<char>(value);
    return Padded(std::wstring(GK_wString(std::string_view(&byte, 1)).View()), directive);
}

std::wstring FormatPointer(FormatDirective directive, Arguments& arguments)
{
    const auto address = reinterpret_cast<std::uintptr_t>(va_arg(arguments.list, const void*));
    directive.conversion = L'X';
    directive.precision = static_cast<int>(sizeof(void*)) * 2;
    return FormatNumber(NumberFormat(directive, "ll"), static_cast<unsigned long long>(address));
}

/// Takes the width and the precision that stand in the arguments.
void TakeFields(FormatDirective& directive, Arguments& arguments)
{
    if (directive.width == FormatDirective::FromArgument) {
        const int width = va_arg(arguments.list, int);
        if (width < 0)
            directive.flags += '-';
        directive.width =
            width < -LargestField ? LargestField : std::min(std::abs(width), LargestField);
    }
    if (directive.precision == FormatDirective::FromArgument) {
        const int precision = va_arg(arguments.list, int);
        directive.precision =
            precision < 0 ? FormatDirective::None : std::min(precision, LargestField);
    }
}

std::wstring FormatOne(FormatDirective directive, Arguments& arguments)
{
    TakeFields(directive, arguments);
    switch (directive.Takes()) {
    case FormatDirective::Argument::Integer:
        return FormatInteger(directive, arguments);
    case FormatDirective::Argument::Real:
        return FormatReal(directive, arguments);
    case FormatDirective::Argument::Character:
        return FormatCharacter(directive, arguments);
    case FormatDirective::Argument::String:
        return FormatString(directive, arguments);
    case FormatDirective::Argument::Pointer:
        return FormatPointer(std::move(directive), arguments);
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
        FormatDirective directive = TakeFormatDirective(rest);
        if (directive.Takes() == FormatDirective::Argument::Unknown) {
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
        const FormatDirective directive = TakeFormatDirective(format);
        if (directive.Takes() == FormatDirective::Argument::Nothing)
            continue;
        if (directive.Takes() == FormatDirective::Argument::Unknown) {
            placeholders.emplace_back(L"?");
            return placeholders;
        }
        std::wstring asked;
        for (const int field : {directive.width, directive.precision})
            if (field == FormatDirective::FromArgument)
                asked += L'*';
        placeholders.push_back(asked + directive.length + directive.conversion);
    }
}
