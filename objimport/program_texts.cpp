#include "objimport/program_texts.h"

#include "console_host/app/console_app.h"

#include "host/geokit/string.h"

std::string Say(const ProgramText& text, std::initializer_list<std::string> arguments)
{
    constexpr std::string_view Placeholder = "%s";
    StringTable& table = ConsoleApp::Instance().Strings();
    std::string said = GK_wString(table.Localize(text.english, text.id)).Utf8();
    std::size_t place = 0;
    for (const std::string& argument : arguments) {
        place = said.find(Placeholder, place);
        if (place == std::string::npos)
            break;
        said.replace(place, Placeholder.size(), argument);
        place += argument.size();
    }
    return said;
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
