#include "host/app/get_option.h"

#include "console_host/app/option_prompt.h"

#include "host/app/localize.h"

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
