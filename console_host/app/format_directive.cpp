#include "console_host/app/format_directive.h"

#include <algorithm>

namespace {

bool IsAmong(wchar_t character, std::wstring_view set)
{
    return set.find(character) != std::wstring_view::npos;
}

/// Takes a number or a '*' off the front.
int TakeField(std::wstring_view& rest)
{
    if (!rest.empty() && rest.front() == L'*') {
        rest.remove_prefix(1);
        return FormatDirective::FromArgument;
    }
    int value = FormatDirective::None;
    while (!rest.empty() && IsAmong(rest.front(), L"0123456789")) {
        value =
            std::min(std::max(value, 0) * 10 + static_cast<int>(rest.front() - L'0'), LargestField);
        rest.remove_prefix(1);
    }
    return value;
}

std::wstring TakeLength(std::wstring_view& rest)
{
    for (const std::wstring_view length :
         {L"hh", L"h", L"ll", L"l", L"w", L"I32", L"I64", L"I", L"j", L"z", L"t", L"L"}) {
        if (rest.substr(0, length.size()) != length)
            continue;
        rest.remove_prefix(length.size());
        return std::wstring(length);
    }
    return {};
}

} // namespace

FormatDirective TakeFormatDirective(std::wstring_view& format)
{
    FormatDirective directive;
    std::wstring_view rest = format.substr(1);
    while (!rest.empty() && IsAmong(rest.front(), L"-+ #0")) {
        if (directive.flags.find(static_cast<char>(rest.front())) == std::string::npos)
            directive.flags += static_cast<char>(rest.front());
        rest.remove_prefix(1);
    }
    directive.width = TakeField(rest);
    if (!rest.empty() && rest.front() == L'.') {
        rest.remove_prefix(1);
        directive.precision = TakeField(rest);
        if (directive.precision == FormatDirective::None)
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

FormatDirective::Argument FormatDirective::Takes() const
{
    if (conversion == L'\0')
        return Argument::Unknown;
    if (conversion == L'%')
        return text.size() == 2 ? Argument::Nothing : Argument::Unknown;
    if (IsAmong(conversion, L"diuxXo"))
        return length == L"L" || length == L"w" ? Argument::Unknown : Argument::Integer;
    if (IsAmong(conversion, L"fFeEgGaA"))
        return IsAmong(length.empty() ? L'L' : length[0], L"Ll") ? Argument::Real
                                                                 : Argument::Unknown;
    const bool textLength = length.empty() || length == L"h" || length == L"l" || length == L"w";
    if (IsAmong(conversion, L"cC"))
        return textLength ? Argument::Character : Argument::Unknown;
    if (IsAmong(conversion, L"sS"))
        return textLength ? Argument::String : Argument::Unknown;
    return conversion == L'p' && length.empty() ? Argument::Pointer : Argument::Unknown;
}

bool FormatDirective::IsNarrow() const
{
    if (!length.empty())
        return length == L"h";
    return conversion == L'S' || conversion == L'C';
}
