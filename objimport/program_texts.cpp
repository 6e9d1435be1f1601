#include "objimport/program_texts.h"

#include "console_host/app/console_app.h"

#include "host/geokit/string.h"

std::string Say(const ProgramText& text, std::span<const std::string> arguments)
{
    StringTable& table = ConsoleApp::Instance().Strings();
    const std::string pattern = GK_wString(table.Localize(text.english, text.id)).Utf8();
    std::string said;
    auto argument = arguments.begin();
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char next = pattern[i] == '%' && i + 1 < pattern.size() ? pattern[i + 1] : '\0';
        if (next == 's' && argument != arguments.end())
            said += *argument++;
        else
            said += pattern[i];
        if (next == 's' || next == '%')
            ++i;
    }
    return said;
}

std::string Say(const ProgramText& text, std::initializer_list<std::string> arguments)
{
    return Say(text, std::span(arguments.begin(), arguments.size()));
}

std::string Number(std::size_t count)
{
    constexpr std::size_t Thousand = 3;
    std::string digits = std::to_string(count);
    for (std::size_t place = digits.size(); place > Thousand;) {
        place -= Thousand;
        digits.insert(place, Say(Texts::ThousandsMark));
    }
    return digits;
}

std::string Counted(std::size_t count, const CountedText& text)
{
    return Say(count == 1 ? text.one : text.many, {Number(count)});
}
