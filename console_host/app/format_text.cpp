#include "console_host/app/format_text.h"

#include "console_host/app/format_spec.h"

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
std::string NumberFormat(const FormatSpec& spec, const char* length)
{
    std::string format = "%" + spec.flags;
    if (spec.width >= 0)
        format += std::to_string(spec.width);
    if (spec.precision >= 0)
        format += '.' + std::to_string(spec.precision);
    return format + length + static_cast<char>(spec.conversion);
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

std::wstring FormatInteger(const FormatSpec& spec, Arguments& arguments)
{
    const std::string format = NumberFormat(spec, "ll");
    return spec.IsSigned() ? FormatNumber(format, TakeSigned(arguments, spec.length))
                           : FormatNumber(format, TakeUnsigned(arguments, spec.length));
}

std::wstring FormatReal(const FormatSpec& spec, Arguments& arguments)
{
    if (spec.length == L"L")
        return FormatNumber(NumberFormat(spec, "L"), va_arg(arguments.list, long double));
    return FormatNumber(NumberFormat(spec, ""), va_arg(arguments.list, double));
}

std::wstring Padded(std::wstring text, const FormatSpec& spec)
{
    const auto width = static_cast<std::size_t>(std::max(spec.width, 0));
    if (text.size() >= width)
        return text;
    const bool left = spec.flags.find('-') != std::string::npos;
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

std::wstring FormatString(const FormatSpec& spec, Arguments& arguments)
{
    if (spec.IsNarrow()) {
        const char* text = va_arg(arguments.list, const char*);
        if (text == nullptr)
            return Padded(L"(null)", spec);
        const GK_wString wide(std::string_view(text, LengthWithin(text, spec.precision)));
        return Padded(std::wstring(wide.View()), spec);
    }
    const wchar_t* text = va_arg(arguments.list, const wchar_t*);
    if (text == nullptr)
        return Padded(L"(null)", spec);
    return Padded(std::wstring(text, LengthWithin(text, spec.precision)), spec);
}

std::wstring FormatCharacter(const FormatSpec& spec, Arguments& arguments)
{
    // Either kind of character is handed over as an int.
    const int value = va_arg(arguments.list, int);
    if (!spec.IsNarrow())
        return Padded(std::wstring(1, static_cast<wchar_t>(value)), spec);
    const char byte = static_cast<char>(value);
    return Padded(std::wstring(GK_wString(std::string_view(&byte, 1)).View()), spec);
}

std::wstring FormatPointer(FormatSpec spec, Arguments& arguments)
{
    const auto address = reinterpret_cast<std::uintptr_t>(va_arg(arguments.list, const void*));
    spec.conversion = L'X';
    spec.precision = static_cast<int>(sizeof(void*)) * 2;
    return FormatNumber(NumberFormat(spec, "ll"), static_cast<unsigned long long>(address));
}

/// Takes the width and the precision that stand in the arguments.
void TakeFields(FormatSpec& spec, Arguments& arguments)
{
    if (spec.width == FormatSpec::FromArgument) {
        const int width = va_arg(arguments.list, int);
        if (width < 0)
            spec.flags += '-';
        spec.width = width < -LargestField ? LargestField : std::min(std::abs(width), LargestField);
    }
    if (spec.precision == FormatSpec::FromArgument) {
        const int precision = va_arg(arguments.list, int);
        spec.precision = precision < 0 ? FormatSpec::None : std::min(precision, LargestField);
    }
}

std::wstring FormatOne(FormatSpec spec, Arguments& arguments)
{
    TakeFields(spec, arguments);
    switch (spec.Takes()) {
    case FormatSpec::Argument::Integer:
        return FormatInteger(spec, arguments);
    case FormatSpec::Argument::Real:
        return FormatReal(spec, arguments);
    case FormatSpec::Argument::Character:
        return FormatCharacter(spec, arguments);
    case FormatSpec::Argument::String:
        return FormatString(spec, arguments);
    case FormatSpec::Argument::Pointer:
        return FormatPointer(std::move(spec), arguments);
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
        FormatSpec spec = TakeFormatSpec(rest);
        if (spec.Takes() == FormatSpec::Argument::Unknown) {
            text.append(spec.text).append(rest);
            break;
        }
        text += FormatOne(std::move(spec), taken);
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
        const FormatSpec spec = TakeFormatSpec(format);
        if (spec.Takes() == FormatSpec::Argument::Nothing)
            continue;
        if (spec.Takes() == FormatSpec::Argument::Unknown) {
            placeholders.emplace_back(L"?");
            return placeholders;
        }
        std::wstring asked;
        for (const int field : {spec.width, spec.precision})
            if (field == FormatSpec::FromArgument)
                asked += L'*';
        placeholders.push_back(asked + spec.length + spec.conversion);
    }
}
