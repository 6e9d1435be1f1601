#include "objimport/exchange/exchange_texts.h"

#include "host/app/localize.h"
#include "host/geokit/string.h"

namespace ExchangeTexts {

std::string Say(const Text& text, std::initializer_list<std::string> arguments)
{
    const std::string pattern = GK_wString(KvLocalizeString(text.english, text.id)).Utf8();
    std::string said;
    std::size_t at = 0;
    for (const std::string& argument : arguments) {
        const std::size_t place = pattern.find("%s", at);
        if (place == std::string::npos)
            break;
        said.append(pattern, at, place - at).append(argument);
        at = place + 2;
    }
    return said.append(pattern, at);
}

std::string Number(std::size_t count)
{
    constexpr std::size_t Thousand = 3;
    const std::string mark = Say(ThousandsMark);
    std::string digits = std::to_string(count);
    for (std::size_t place = digits.size(); place > Thousand; place -= Thousand)
        digits.insert(place - Thousand, mark);
    return digits;
}

std::string Counted(std::size_t count, const CountedText& text, const std::string& second)
{
    return Say(count == 1 ? text.one : text.many, {Number(count), second});
}

} // namespace ExchangeTexts
