#pragma once

#include "host/geokit/string.h"

#include <memory>

class OptionPrompt; // the host's own

/// What a getter ended with.
enum CKelvoGetResult : int
{
    GetResultNone = 0,    ///< nothing was asked yet
    GetResultCancel = 1,  ///< the user cancelled
    GetResultNothing = 2, ///< the user pressed Enter without typing anything
    GetResultOption = 3   ///< the user chose an option
};

/// A text of a command option: in English, as scripts type it, and as the user sees it. Neither
/// holds blanks or "=".
struct CKelvoCommandOptionText
{
    GK_wString english;
    GK_wString local;
};

/// The name of a command option.
struct CKelvoCommandOptionName : CKelvoCommandOptionText
{
};

/// A value of a command option.
struct CKelvoCommandOptionValue : CKelvoCommandOptionText
{
};

/// Makes the name or value of this English text and the localized text of the id.
CKelvoCommandOptionName KvLocalizeCommandOptionName(const wchar_t* text, int id);
CKelvoCommandOptionValue KvLocalizeCommandOptionValue(const wchar_t* text, int id);

/// The option that a user chose.
class CKelvoCommandOption
{
public:
    explicit CKelvoCommandOption(int optionIndex, int listIndex = -1)
        : m_optionIndex(optionIndex), m_listIndex(listIndex)
    {
    }

    /// The index that the getter gave the option when it was added.
    [[nodiscard]] int OptionIndex() const { return m_optionIndex; }

    /// The chosen value's position in a list option; -1 for a toggle.
    [[nodiscard]] int ListIndex() const { return m_listIndex; }

private:
    int m_optionIndex;
    int m_listIndex;
};

/// Asks the user on the host's command line for one of several options.
class CKelvoGetOption
{
public:
    CKelvoGetOption();
    CKelvoGetOption(const CKelvoGetOption&) = delete;
    CKelvoGetOption& operator=(const CKelvoGetOption&) = delete;
    ~CKelvoGetOption();

    /// The text that the user is asked with; copied.
    void SetCommandPrompt(const wchar_t* prompt);

    /// Whether pressing Enter with nothing typed is an answer (at first it is not).
    void AcceptNothing(bool accept);

    /// Forgets all options, so that others can be added before asking again.
    void ClearCommandOptions();

    /// Adds an option with `count` values to choose from, showing the one at `current`. All texts
    /// are copied. Gives the option's index: 1 for the first one added, then 2, and so on.
    int AddCommandOptionList(const CKelvoCommandOptionName& name, int count,
                             const CKelvoCommandOptionValue* values, int current);

    /// Adds an option that is off or on, showing `current`. Choosing it sets `*value`, which must
    /// live until the options are cleared or the getter ends. Gives the option's index, as above.
    int AddCommandOptionToggle(const CKelvoCommandOptionName& name,
                               const CKelvoCommandOptionValue& offValue,
                               const CKelvoCommandOptionValue& onValue, bool current, bool* value);

    /// Asks once, until the user answers. Gives a CKelvoGetResult. A chosen toggle has its new
    /// value by then.
    int GetOption();

    /// The option chosen in the last GetOption, or null when none was. Valid until the next
    /// GetOption or ClearCommandOptions.
    [[nodiscard]] const CKelvoCommandOption* Option() const;

private:
    std::unique_ptr<OptionPrompt> m_prompt;
};
