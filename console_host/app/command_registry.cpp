#include "console_host/app/command_registry.h"

#include "host/app/command.h"

#include <algorithm>

namespace {

wchar_t LowerCase(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A'))
                                                  : character;
}

bool EqualNames(std::wstring_view a, std::wstring_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t left, wchar_t right) {
        return LowerCase(left) == LowerCase(right);
    });
}

} // namespace

CKelvoCommand::CKelvoCommand(int, int, CKelvoPlugIn*)
{
    CommandRegistry::Instance().Register(this);
}

CKelvoCommand::~CKelvoCommand()
{
    CommandRegistry::Instance().Unregister(this);
}

CommandRegistry& CommandRegistry::Instance()
{
    static CommandRegistry registry;
    return registry;
}

void CommandRegistry::Unregister(CKelvoCommand* command) noexcept
{
    m_commands.erase(std::remove(m_commands.begin(), m_commands.end(), command), m_commands.end());
}

CKelvoCommand* CommandRegistry::Find(std::wstring_view englishName) const
{
    const auto found = std::find_if(
        m_commands.begin(), m_commands.end(), [englishName](const CKelvoCommand* command) {
            return EqualNames(command->EnglishCommandName(), englishName);
        });
    return found != m_commands.end() ? *found : nullptr;
}
