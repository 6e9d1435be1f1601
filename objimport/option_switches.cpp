#include "objimport/option_switches.h"

#include "host/geokit/string.h"

#include <algorithm>

namespace {

GK_wString SectionOf(const GK_UUID& plugInId)
{
    return GK_wString(std::string_view("Plug-Ins\\" + GK_UuidToString(plugInId) + "\\Settings"));
}

} // namespace

OptionSwitches::OptionSwitches()
    : switches{
          {"object-names",
           L"UseONames",
           "Object names of the file become names in the\ndocument (at first: on)",
           {}},
          {"reverse-groups",
           L"ReverseGroupOrder",
           "The last, not the first, group name of a statement\ntells objects apart, orders them "
           "and names them",
           {}},
          {"morph-target",
           L"ImportAsMorphTarget",
           "The whole file becomes one mesh, which keeps the\nfile's vertices and their order",
           {}},
          {"ignore-textures", L"IgnoreTextures", "Objects take no material from the file", {}},
          {"z-up", L"ZUp", "The file's Y axis becomes the document's Z axis", {}},
          {"split-textures",
           L"Split32bitTextures",
           "Textures with an alpha channel become a colour and\nan alpha file",
           {}},
      }
{
}

const std::vector<std::string>& OptionSwitches::GroupChoices()
{
    // In the order of the values that they stand for.
    static const std::vector<std::string> Choices = {"none", "groups", "layers", "names"};
    return Choices;
}

bool OptionSwitches::AnyGiven() const
{
    return groups.has_value() || std::any_of(switches.begin(), switches.end(),
                                             [](const auto& one) { return one.value.has_value(); });
}

void OptionSwitches::WriteTo(CKelvoProfileContext& profile, const GK_UUID& plugInId) const
{
    const GK_wString section = SectionOf(plugInId);
    const std::vector<std::string>& choices = GroupChoices();
    if (groups) {
        const auto choice = std::find(choices.begin(), choices.end(), *groups) - choices.begin();
        profile.WriteInt(section.Array(), L"HowToAddGs", static_cast<int>(choice));
    }
    for (const OptionSwitch& one : switches)
        if (one.value)
            profile.WriteBool(section.Array(), one.entry, *one.value);
}

bool OptionSwitches::IsOn(CKelvoProfileContext& profile, const GK_UUID& plugInId,
                          const wchar_t* entry)
{
    bool isOn = false;
    return profile.ReadBool(SectionOf(plugInId).Array(), entry, isOn) && isOn;
}
