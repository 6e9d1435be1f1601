#include "host/app/get_option.h"

#include "console_host/app/answer_source.h"
#include "console_host/app/import_journal.h"
#include "console_host/app/option_words.h"

#include "host/app/localize.h"

#include <algorithm>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace {

/// What a getter keeps: its options, and the words of a line that are still to be taken.
class OptionPrompt
{
public:
    struct Item
    {
        CKelvoCommandOptionText name;
        std::vector<CKelvoCommandOptionText> values; ///< a toggle's are off and on
        int current = 0;
        bool* toggled = nullptr; ///< null in a list option
    };

    std::wstring text;
    bool acceptNothing = false;
    std::vector<Item> items;
    std::optional<CKelvoCommandOption> chosen;

    /// Asks until an answer is understood.
    int Ask();

private:
    /// Takes the next word: from the rest of the line typed before, or from the answer to the
    /// question. Returns false, and the result of the getter, when there is none.
    bool NextWord(const std::wstring& question, bool nothingIsAnAnswer, std::wstring& word,
                  int& result);
    int Take(const std::wstring& word);
    int AskForValue(int itemIndex);
    int Choose(int itemIndex, int valueIndex);
    [[nodiscard]] std::wstring Question() const;

    std::deque<std::wstring> m_words;
};

using Item = OptionPrompt::Item;

/// What users type for off and on besides a toggle's own values.
constexpr std::wstring_view OffWords[] = {L"no", L"off", L"false", L"0"};
constexpr std::wstring_view OnWords[] = {L"yes", L"on", L"true", L"1"};

constexpr int NotUnderstood = GetResultNone;

bool MeansCancel(std::wstring_view word)
{
    return SameWord(word, L"cancel") || word == L"\x1B";
}

template <std::size_t Count>
bool IsOneOf(std::wstring_view word, const std::wstring_view (&words)[Count])
{
    return std::any_of(std::begin(words), std::end(words),
                       [word](std::wstring_view other) { return SameWord(word, other); });
}

std::wstring LocalName(const CKelvoCommandOptionText& choice)
{
    return std::wstring(choice.local.View());
}

std::wstring Quoted(std::wstring_view word)
{
    return L'"' + ShownWord(word) + L'"';
}

std::wstring NamesOf(const std::vector<CKelvoCommandOptionText>& choices)
{
    std::vector<std::wstring> names;
    std::transform(choices.begin(), choices.end(), std::back_inserter(names), LocalName);
    return ListOfNames(names);
}

std::wstring CurrentValue(const Item& item)
{
    const bool inRange = item.current >= 0 && item.current < static_cast<int>(item.values.size());
    return inRange ? LocalName(item.values[static_cast<std::size_t>(item.current)]) : L"?";
}

void NoteAmbiguous(std::wstring_view word, const WordMatch& match)
{
    CurrentAnswers().Note(Quoted(word) + L" could be " + ListOfNames(match.couldBe) + L".");
}

/// Returns the position of the value that a word names; -1, after a note why, when it names none.
int MatchValue(const Item& item, std::wstring_view word)
{
    const WordMatch match = MatchWord(word, item.values);
    if (match.index >= 0)
        return match.index;
    if (item.toggled != nullptr && IsOneOf(word, OffWords))
        return 0;
    if (item.toggled != nullptr && IsOneOf(word, OnWords))
        return 1;
    if (match.couldBe.size() > 1)
        NoteAmbiguous(word, match);
    else
        CurrentAnswers().Note(Quoted(word) + L" is not a value of " + LocalName(item.name) +
                              L"; its values are " + NamesOf(item.values) + L".");
    return -1;
}

std::wstring OptionPrompt::Question() const
{
    std::wstring question = text + L" (a name changes an option, Name=Value sets it, " +
                            (acceptNothing ? L"Enter accepts, " : L"") + L"cancel gives up)\n";
    int width = 0;
    for (const Item& item : items)
        width = std::max(width, item.name.local.Length());
    for (const Item& item : items) {
        std::wstring name = LocalName(item.name);
        name.resize(static_cast<std::size_t>(width), L' ');
        question += L"  " + name + L" = " + CurrentValue(item) + L"\n";
    }
    return question + L"> ";
}

bool OptionPrompt::NextWord(const std::wstring& question, bool nothingIsAnAnswer,
                            std::wstring& word, int& result)
{
    while (m_words.empty()) {
        const std::optional<std::wstring> line =
            CurrentAnswers().Answer(question, nothingIsAnAnswer);
        if (!line) {
            result = GetResultCancel;
            return false;
        }
        for (std::wstring& typed : SplitWords(*line))
            m_words.push_back(std::move(typed));
        if (m_words.empty() && nothingIsAnAnswer) {
            result = GetResultNothing;
            return false;
        }
    }
    word = std::move(m_words.front());
    m_words.pop_front();
    if (!MeansCancel(word))
        return true;
    m_words.clear();
    result = GetResultCancel;
    return false;
}

int OptionPrompt::Ask()
{
    chosen.reset();
    int result = NotUnderstood;
    std::wstring word;
    while (result == NotUnderstood && NextWord(Question(), acceptNothing, word, result))
        result = Take(word);
    CurrentJournal().cancelled = result == GetResultCancel;
    return result;
}

int OptionPrompt::Take(const std::wstring& word)
{
    const std::size_t equals = word.find(L'=');
    const std::wstring_view name = std::wstring_view(word).substr(0, equals);
    std::vector<CKelvoCommandOptionText> names;
    for (const Item& item : items)
        names.push_back(item.name);

    const WordMatch match = MatchWord(name, names);
    if (match.couldBe.size() > 1) {
        NoteAmbiguous(name, match);
        return NotUnderstood;
    }
    if (match.index < 0) {
        CurrentAnswers().Note(Quoted(name) + L" is not one of the options.");
        return NotUnderstood;
    }
    const Item& item = items[static_cast<std::size_t>(match.index)];
    if (equals != std::wstring::npos) {
        const int value = MatchValue(item, std::wstring_view(word).substr(equals + 1));
        return value < 0 ? NotUnderstood : Choose(match.index, value);
    }
    if (item.toggled != nullptr)
        return Choose(match.index, item.current == 0 ? 1 : 0);
    return AskForValue(match.index);
}

int OptionPrompt::AskForValue(int itemIndex)
{
    const Item& item = items[static_cast<std::size_t>(itemIndex)];
    const std::wstring question =
        LocalName(item.name) + L": " + NamesOf(item.values) + L" <" + CurrentValue(item) + L">? ";
    for (;;) {
        std::wstring word;
        int result = NotUnderstood;
        if (!NextWord(question, true, word, result))
            return result == GetResultNothing ? Choose(itemIndex, item.current) : result;
        const int value = MatchValue(item, word);
        if (value >= 0)
            return Choose(itemIndex, value);
    }
}

int OptionPrompt::Choose(int itemIndex, int valueIndex)
{
    Item& item = items[static_cast<std::size_t>(itemIndex)];
    item.current = valueIndex;
    if (item.toggled != nullptr)
        *item.toggled = valueIndex != 0;
    chosen.emplace(itemIndex + 1, item.toggled != nullptr ? -1 : valueIndex);
    return GetResultOption;
}

} // namespace

CKelvoCommandOptionName KvLocalizeCommandOptionName(const wchar_t* text, int id)
{
    return {{text, KvLocalizeString(text, id)}};
}

CKelvoCommandOptionValue KvLocalizeCommandOptionValue(const wchar_t* text, int id)
{
    return {{text, KvLocalizeString(text, id)}};
}

class CKelvoGetOption::Implementation : public OptionPrompt
{
};

CKelvoGetOption::CKelvoGetOption() : m_implementation(std::make_unique<Implementation>()) {}

CKelvoGetOption::~CKelvoGetOption() = default;

void CKelvoGetOption::SetCommandPrompt(const wchar_t* prompt)
{
    m_implementation->text = prompt;
}

void CKelvoGetOption::AcceptNothing(bool accept)
{
    m_implementation->acceptNothing = accept;
}

void CKelvoGetOption::ClearCommandOptions()
{
    m_implementation->items.clear();
    m_implementation->chosen.reset();
}

int CKelvoGetOption::AddCommandOptionList(const CKelvoCommandOptionName& name, int count,
                                          const CKelvoCommandOptionValue* values, int current)
{
    OptionPrompt::Item item{name, {}, current, nullptr};
    for (int i = 0; i < count; ++i)
        item.values.push_back(values[i]);
    m_implementation->items.push_back(std::move(item));
    return static_cast<int>(m_implementation->items.size());
}

int CKelvoGetOption::AddCommandOptionToggle(const CKelvoCommandOptionName& name,
                                            const CKelvoCommandOptionValue& offValue,
                                            const CKelvoCommandOptionValue& onValue, bool current,
                                            bool* value) // NOLINT(*-non-const-*): written to later
{
    m_implementation->items.push_back({name, {offValue, onValue}, current ? 1 : 0, value});
    return static_cast<int>(m_implementation->items.size());
}

int CKelvoGetOption::GetOption()
{
    return m_implementation->Ask();
}

const CKelvoCommandOption* CKelvoGetOption::Option() const
{
    return m_implementation->chosen ? &*m_implementation->chosen : nullptr;
}
