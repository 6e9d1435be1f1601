#include "plugin/import_options.h"

#include "host/app/profile.h"

namespace {

constexpr const wchar_t* HowToAddGsEntry = L"HowToAddGs";

struct BooleanEntry
{
    const wchar_t* name;
    bool ObjImportOptions::*option;
};

constexpr BooleanEntry BooleanEntries[] = {
    {L"UseONames", &ObjImportOptions::UseONames},
    {L"IgnoreTextures", &ObjImportOptions::IgnoreTextures},
    {L"ReverseGroupOrder", &ObjImportOptions::ReverseGroupOrder},
    {L"ImportAsMorphTarget", &ObjImportOptions::ImportAsMorphTarget},
    {L"DontShowDialog", &ObjImportOptions::DontShowDialog},
    {L"ZUp", &ObjImportOptions::ZUp},
    {L"Split32bitTextures", &ObjImportOptions::Split32bitTextures},
};

} // namespace

void LoadImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       ObjImportOptions& options)
{
    int howToAddGs = 0;
    if (profile.ReadInt(section, HowToAddGsEntry, howToAddGs) && howToAddGs >= 0 &&
        howToAddGs <= HowToAddGsLimit)
        options.HowToAddGs = howToAddGs;

    for (const BooleanEntry& entry : BooleanEntries) {
        bool value = false;
        if (profile.ReadBool(section, entry.name, value))
            options.*entry.option = value;
    }
}

void SaveImportOptions(CKelvoProfileContext& profile, const wchar_t* section,
                       const ObjImportOptions& options)
{
    profile.WriteInt(section, HowToAddGsEntry, options.HowToAddGs);
    for (const BooleanEntry& entry : BooleanEntries)
        profile.WriteBool(section, entry.name, options.*entry.option);
}
