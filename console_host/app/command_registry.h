#pragma once

#include "console_host/app/registration.h"

#include <string_view>
#include <vector>

class CKelvoCommand;

/// The commands that exist, in the order of their making.
class CommandRegistry
{
public:
    static CommandRegistry& Instance();

    void Register(CKelvoCommand* command) noexcept { AppendWhileLoading(m_commands, command); }
    void Unregister(CKelvoCommand* command) noexcept;

    [[nodiscard]] const std::vector<CKelvoCommand*>& Commands() const { return m_commands; }

    /// The command of that English name, taken without regard to the case of ASCII letters, or
    /// null.
    [[nodiscard]] CKelvoCommand* Find(std::wstring_view englishName) const;

private:
    std::vector<CKelvoCommand*> m_commands;
};
