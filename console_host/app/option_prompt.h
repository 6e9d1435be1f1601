#pragma once

#include "console_host/app/option_words.h"

#include "host/app/get_option.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

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
    /// The next word: the rest of the line typed before, or the answer to the question. Without one
    /// gives false and sets what the getter ends with.
    bool NextWord(const std::wstring& question, bool nothingIsAnAnswer, std::wstring& word,
                  int& result);
    int Take(const std::wstring& word);
    int AskForValue(int itemIndex);
    int Choose(int itemIndex, int valueIndex);
    [[nodiscard]] std::wstring Question() const;

    std::deque<std::wstring> m_words;
};
