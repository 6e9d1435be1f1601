#include "plugin/import_obj_plugin.h"

#include "host/app/get_option.h"
#include "host/app/localize.h"

#include <array>

namespace {

/// The prompt for the import options: its localized texts, and the choices made so far.
class ImportOptionPrompt
{
public:
    explicit ImportOptionPrompt(const ObjImportOptions& options);

    /// Shows the options with their current choices and asks once. Returns a CKelvoGetResult.
    int Ask();

    [[nodiscard]] const ObjImportOptions& Choices() const { return m_choices; }

private:
    struct Toggle
    {
        bool ObjImportOptions::*option;
        CKelvoCommandOptionName name;
        CKelvoCommandOptionValue off;
        CKelvoCommandOptionValue on;
    };

    void AddOptions();

    ObjImportOptions m_choices;
    CKelvoGetOption m_getter;
    int m_groupsOption = 0;
    CKelvoCommandOptionName m_groupsName;
    std::array<CKelvoCommandOptionValue, 4> m_groupsValues;
    std::array<Toggle, 5> m_toggles;
};

ImportOptionPrompt::ImportOptionPrompt(const ObjImportOptions& options)
    : m_choices(options), m_groupsName(KvLocalizeCommandOptionName(L"ImportOBJGroups", 26312)),
      m_groupsValues{KvLocalizeCommandOptionValue(L"DoNotImportOBJGroups", 26311),
                     KvLocalizeCommandOptionValue(L"AsGroups", 24469),
                     KvLocalizeCommandOptionValue(L"AsLayers", 24470),
                     KvLocalizeCommandOptionValue(L"AsObjectNames", 24471)},
      m_toggles{{
          {&ObjImportOptions::UseONames, KvLocalizeCommandOptionName(L"ImportOBJObjects", 26313),
           KvLocalizeCommandOptionValue(L"No", 24474), KvLocalizeCommandOptionValue(L"Yes", 24475)},
          {&ObjImportOptions::ReverseGroupOrder,
           KvLocalizeCommandOptionName(L"ReverseGroupOrder", 24476),
           KvLocalizeCommandOptionValue(L"No", 24477), KvLocalizeCommandOptionValue(L"Yes", 24478)},
          {&ObjImportOptions::ImportAsMorphTarget,
           KvLocalizeCommandOptionName(L"ImportAsMorphTargetOnly", 24479),
           KvLocalizeCommandOptionValue(L"No", 24480), KvLocalizeCommandOptionValue(L"Yes", 24481)},
          {&ObjImportOptions::IgnoreTextures, KvLocalizeCommandOptionName(L"IgnoreTextures", 24482),
           KvLocalizeCommandOptionValue(L"No", 24483), KvLocalizeCommandOptionValue(L"Yes", 24484)},
          {&ObjImportOptions::ZUp, KvLocalizeCommandOptionName(L"MapOBJYToKelvoZ", 24485),
           KvLocalizeCommandOptionValue(L"No", 24486), KvLocalizeCommandOptionValue(L"Yes", 24487)},
      }}
{
    m_getter.SetCommandPrompt(KvLocalizeString(L"Set Import Options", 24467));
    m_getter.AcceptNothing(true);
}

void ImportOptionPrompt::AddOptions()
{
    m_getter.ClearCommandOptions();
    m_groupsOption =
        m_getter.AddCommandOptionList(m_groupsName, static_cast<int>(m_groupsValues.size()),
                                      m_groupsValues.data(), m_choices.HowToAddGs);
    for (const Toggle& toggle : m_toggles) {
        // "o" names have no effect while group names become the names of objects.
        const bool offered =
            toggle.option != &ObjImportOptions::UseONames || m_choices.HowToAddGs != AsObjectNames;
        bool& choice = m_choices.*toggle.option;
        if (offered)
            m_getter.AddCommandOptionToggle(toggle.name, toggle.off, toggle.on, choice, &choice);
    }
}

int ImportOptionPrompt::Ask()
{
    AddOptions();
    const int result = m_getter.GetOption();
    const CKelvoCommandOption* chosen = m_getter.Option();
    if (result == GetResultOption && chosen != nullptr && chosen->OptionIndex() == m_groupsOption &&
        chosen->ListIndex() >= 0 && chosen->ListIndex() <= HowToAddGsLimit)
        m_choices.HowToAddGs = chosen->ListIndex();
    return result;
}

} // namespace

int CImportOBJPlugIn::AskOnCommandLine()
{
    ImportOptionPrompt prompt(m_options);
    int result = GetResultNone;
    do {
        result = prompt.Ask();
    } while (result == GetResultOption);
    if (result == GetResultCancel)
        return 1;
    static_cast<ImportChoices&>(m_options) = prompt.Choices();
    return 0;
}
