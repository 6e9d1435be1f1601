#include "console_host/app/option_words.h"

#include "console_host/app/printable.h"

#include <algorithm>

namespace {

constexpr std::size_t ShownLength = 40;

bool IsBlank(wchar_t character)
{
    return character == L' ' || (character >= L'\t' && character <= L'\r') || character == 0xA0;
}

/// Returns the lower case of a letter, whatever the process's locale is.
wchar_t LowerCase(wchar_t character)
{
    const bool ascii = character >= L'A' && character <= L'Z';
    const bool latin = character >= 0xC0 && character <= 0xDE && character != 0xD7;
    const bool greek = character >= 0x391 && character <= 0x3A9;
    const bool cyrillic = character >= 0x410 && character <= 0x42F;
    return ascii || latin || greek || cyrillic ? static_cast<wchar_t>(character + 0x20) : character;
}

bool BeginsWith(std::wstring_view text, std::wstring_view beginning)
{
    return text.size() >= beginning.size() && SameWord(text.substr(0, beginning.size()), beginning);
}

/// The ways in which a word can name a choice, the strongest first.
enum class Way
{
    LocalName,
    EnglishName,
    Beginning
};

bool Fits(const CKelvoCommandOptionText& choice, std::wstring_view word, Way way)
{
    const std::wstring_view local = choice.local.View();
    const std::wstring_view english = choice.english.View();
    if (way == Way::Beginning)
        return BeginsWith(local, word) || BeginsWith(english, word);
    return SameWord(way == Way::LocalName ? local : english, word);
}

} // namespace

std::vector<std::wstring> SplitWords(std::wstring_view line)
{
    std::vector<std::wstring> words;
    bool blankBefore = false;
    for (const wchar_t character : line) {
        if (IsBlank(character)) {
            blankBefore = true;
            continue;
        }
        const bool afterEquals = !words.empty() && words.back().back() == L'=';
        const bool joins = !words.empty() && (!blankBefore || character == L'=' || afterEquals);
        if (!joins)
            words.emplace_back();
        words.back() += character;
        blankBefore = false;
    }
    return words;
}

WordMatch MatchWord(std::wstring_view word, const std::vector<CKelvoCommandOptionText>& choices)
{
    WordMatch match;
    if (word.empty())
        return match;
    for (const Way way : {Way::LocalName, Way::EnglishName, Way::Beginning}) {
        for (std::size_t i = 0; i < choices.size(); ++i) {
            if (!Fits(choices[i], word, way))
                continue;
            match.index = static_cast<int>(i);
            match.couldBe.emplace_back(choices[i].local.View());
        }
        if (!match.couldBe.empty())
            break;
    }
    if (match.couldBe.size() > 1)
        match.index = -1;
    return match;
}

bool SameWord(std::wstring_view a, std::wstring_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t left, wchar_t right) {
        return LowerCase(left) == LowerCase(right);
    });
}

std::wstring ShownWord(std::wstring_view word)
{
    std::wstring shown(word.substr(0, ShownLength));
    std::replace_if(shown.begin(), shown.end(), IsSteering, L'?');
    if (word.size() > ShownLength)
        shown += L"...";
    return shown;
}

std::wstring ListOfNames(const std::vector<std::wstring>& names)
{
    std::wstring list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0)
            list += i + 1 == names.size() ? L" or " : L", ";
        list += names[i];
    }
    return list;
}
