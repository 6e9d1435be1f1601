#pragma once

#include "host/app/profile.h"
#include "host/geokit/uuid.h"

#include <optional>
#include <string>
#include <vector>

/// A switch of the command line that sets an option of the plug-in.
struct OptionSwitch
{
    const char* name;        ///< without "--"; with "no-" before it, it clears the option
    const wchar_t* entry;    ///< of the plug-in's settings
    const char* description; ///< for the help
    std::optional<bool> value;
};

/// The import options that the command line sets for one run, and the entries of the plug-in's
/// settings that they stand for. What is not given has no value.
struct OptionSwitches
{
    OptionSwitches();

    std::vector<OptionSwitch> switches;
    std::optional<std::string> groups; ///< one of GroupChoices()

    /// Returns what `groups` can be.
    static const std::vector<std::string>& GroupChoices();

    /// Returns whether any was given.
    [[nodiscard]] bool AnyGiven() const;

    /// Writes the given ones into the plug-in's section of a settings store.
    void WriteTo(CKelvoProfileContext& profile, const GK_UUID& plugInId) const;

    /// Returns whether an entry of the plug-in's section is there and is on.
    static bool IsOn(CKelvoProfileContext& profile, const GK_UUID& plugInId, const wchar_t* entry);
};
