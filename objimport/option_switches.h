#pragma once

#include "host/app/profile.h"
#include "host/geokit/uuid.h"

#include <map>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// The import options that the command line sets for one run: command-line switches, and the
/// entries of the plug-in's settings that they stand for.
class OptionSwitches
{
public:
    /// Adds the switches to the command line; the object must outlive its reading.
    void AddTo(CLI::App& commandLine);

    /// Whether any was given.
    [[nodiscard]] bool AnyGiven() const;

    /// Writes the given ones into the plug-in's section of a settings store.
    void WriteTo(CKelvoProfileContext& profile, const GK_UUID& plugInId) const;

private:
    [[nodiscard]] int GroupChoice() const;

    std::string m_groups;
    std::map<std::wstring, bool> m_flags; ///< by settings entry
    std::map<std::wstring, CLI::Option*> m_options;
};
