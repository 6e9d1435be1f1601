#include "objimport/option_switches.h"

#include "host/geokit/string.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace {

struct Switch
{
    const char* name;
    const wchar_t* entry;
    const char* description;
};

constexpr Switch Switches[] = {
    {"object-names", L"UseONames", "Object names of the file become names in the document"},
    {"reverse-groups", L"ReverseGroupOrder", "The last group name of a statement counts"},
    {"morph-target", L"ImportAsMorphTarget", "The whole file becomes one mesh"},
    {"ignore-textures", L"IgnoreTextures", "Objects take no material from the file"},
    {"z-up", L"ZUp", "The file's Y axis becomes the document's Z axis"},
    {"split-textures", L"Split32bitTextures", "Textures with an alpha channel become two files"},
};

constexpr const wchar_t* GroupsEntry = L"HowToAddGs";

/// In the order of the values that they stand for.
const std::vector<std::string> GroupChoices = {"none", "groups", "layers", "names"};

} // namespace

void OptionSwitches::AddTo(CLI::App& commandLine)
{
    constexpr const char* Heading = "Import options, for this run only";
    m_options[GroupsEntry] =
        commandLine.add_option("--groups", m_groups, "What group names become")
            ->check(CLI::IsMember(GroupChoices).description(""))
            ->option_text("none|groups|layers|names")
            ->group(Heading);
    for (const Switch& one : Switches) {
        const std::string names =
            std::string("--").append(one.name).append(",!--no-").append(one.name);
        m_options[one.entry] =
            commandLine.add_flag(names, m_flags[one.entry], one.description)->group(Heading);
    }
}

bool OptionSwitches::AnyGiven() const
{
    return std::any_of(m_options.begin(), m_options.end(),
                       [](const auto& option) { return option.second->count() > 0; });
}

int OptionSwitches::GroupChoice() const
{
    return static_cast<int>(std::find(GroupChoices.begin(), GroupChoices.end(), m_groups) -
                            GroupChoices.begin());
}

void OptionSwitches::WriteTo(CKelvoProfileContext& profile, const GK_UUID& plugInId) const
{
    const std::string section = "Plug-Ins\\" + GK_UuidToString(plugInId) + "\\Settings";
    const GK_wString wideSection{std::string_view(section)};
    for (const auto& [entry, option] : m_options) {
        if (option->count() == 0)
            continue;
        if (const auto flag = m_flags.find(entry); flag != m_flags.end())
            profile.WriteBool(wideSection.Array(), entry.c_str(), flag->second);
        else
            profile.WriteInt(wideSection.Array(), entry.c_str(), GroupChoice());
    }
}
