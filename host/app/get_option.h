#pragma once

#include "host/geokit/string.h"

#include <memory>

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

/// Returns the name or value of this English text and the localized text of the id. Both texts are
/// copied. Throws std::bad_alloc when out of memory.
CKelvoCommandOptionName KvLocalizeCommandOptionName(const wchar_t* text, int id);
CKelvoCommandOptionValue KvLocalizeCommandOptionValue(const wchar_t* text, int id);

/// The option that a user chose. A plain value.
class CKelvoCommandOption
{
public:
    explicit CKelvoCommandOption(int optionIndex, int listIndex = -1)
        : m_optionIndex(optionIndex), m_listIndex(listIndex)
    {
    }

    /// Returns the index that the getter returned when the option was added.
    [[nodiscard]] int OptionIndex() const { return m_optionIndex; }

    /// Returns the chosen value's position in a list option; -1 for a toggle.
    [[nodiscard]] int ListIndex() const { return m_listIndex; }

private:
    int m_optionIndex;
    int m_listIndex;
};

/// Asks the user on the host's command line for one of several options. The plug-in makes a getter
/// on its stack, sets the prompt, adds options, and asks as often as it wants; a getter asks with
/// what it has been given so far. User-interface thread only. The operations that copy texts throw
/// std::bad_alloc when out of memory.
class CKelvoGetOption
{
public:
    CKelvoGetOption();
    CKelvoGetOption(const CKelvoGetOption&) = delete;
    CKelvoGetOption& operator=(const CKelvoGetOption&) = delete;
    ~CKelvoGetOption();

    /// Sets the text that the user is asked with, which is copied.
    void SetCommandPrompt(const wchar_t* prompt);

    /// Sets whether pressing Enter with nothing typed is an answer (at first it is not).
    void AcceptNothing(bool accept);

    /// Removes all options and the last choice, so that others can be added before asking again.
    void ClearCommandOptions();

    /// Adds an option with `count` values to choose from, showing the one at `current`. All texts
    /// are copied. Returns the option's index: 1 for the first one added, then 2, and so on.
    /// `count` is 1 or more and `current` one of them.
    int AddCommandOptionList(const CKelvoCommandOptionName& name, int count,
                             const CKelvoCommandOptionValue* values, int current);

    /// Adds an option that is off or on, showing `current`. Choosing it sets `*value`, which must
    /// live until the options are cleared or the getter ends. Returns the option's index, as above.
    int AddCommandOptionToggle(const CKelvoCommandOptionName& name,
                               const CKelvoCommandOptionValue& offValue,
                               const CKelvoCommandOptionValue& onValue, bool current, bool* value);

    /// Asks once, waits until the user answers and returns a CKelvoGetResult. A chosen toggle has
    /// its new value by then. Returns GetResultCancel, too, when nobody can answer.
    int GetOption();

    /// Returns the option chosen in the last GetOption, or null when none was. The getter owns it;
    /// it is valid until the next GetOption or ClearCommandOptions.
    [[nodiscard]] const CKelvoCommandOption* Option() const;

private:
    class Implementation; // the host's own
    std::unique_ptr<Implementation> m_implementation;
};
