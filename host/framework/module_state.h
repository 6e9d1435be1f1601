#pragma once

#include "host/framework/dialog_template.h"

#include <span>

/// Where the framework finds the resources of one module. A module has one, constant, which lives
/// as long as the module.
class CModuleState
{
public:
    /// `addressInModule`: the address of anything in the module, by which the platform identifies
    /// it. `dialogs`: its dialog templates, on platforms that keep none in a module.
    CModuleState(const void* addressInModule, std::span<const DialogTemplate> dialogs)
        : m_address(addressInModule), m_dialogs(dialogs)
    {
    }

    [[nodiscard]] const void* AddressInModule() const { return m_address; }
    [[nodiscard]] std::span<const DialogTemplate> Dialogs() const { return m_dialogs; }

    /// Returns the state that is current on the user-interface thread, or null when none is.
    static const CModuleState* Current();

private:
    const void* m_address;
    std::span<const DialogTemplate> m_dialogs;
};

/// Makes a module's state current for as long as the object lives, then the one before it again.
/// Scopes are nested. User-interface thread only; nothing here fails.
class CModuleStateScope
{
public:
    explicit CModuleStateScope(const CModuleState& state);
    CModuleStateScope(const CModuleStateScope&) = delete;
    CModuleStateScope& operator=(const CModuleStateScope&) = delete;
    ~CModuleStateScope();

private:
    const CModuleState* m_before;
};
