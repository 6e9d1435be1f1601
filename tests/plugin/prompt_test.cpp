#include "console_host/app/console_app.h"
#include "plugin/import_obj_plugin.h"
#include "tests/plugin/scripted_answers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Returns the options as one short text: the group choice, then a letter for each option that is
/// on.
std::string Summary(const ObjImportOptions& options)
{
    std::string text = std::to_string(options.HowToAddGs);
    const std::pair<bool, char> letters[] = {
        {options.UseONames, 'o'},
        {options.ReverseGroupOrder, 'r'},
        {options.ImportAsMorphTarget, 'm'},
        {options.IgnoreTextures, 'i'},
        {options.ZUp, 'z'},
        {options.DontShowDialog, 'd'},
        {options.Split32bitTextures, 's'},
    };
    for (const auto& [on, letter] : letters)
        if (on)
            text += letter;
    return text;
}

struct PromptCase
{
    const char* what;
    std::vector<std::wstring> lines;
    int answer;
    const char* options;
    std::size_t notes = 0;
};

TEST(Prompt, TypedLinesBecomeOptions)
{
    const PromptCase cases[] = {
        {"Enter at once", {L""}, 0, "1o"},
        {"blanks are Enter", {L" \t "}, 0, "1o"},
        {"end of input cancels", {}, 1, "1o"},
        {"cancel", {L"MapOBJYToKelvoZ", L"CANCEL"}, 1, "1o"},
        {"cancel in the middle of a line", {L"Map cancel Rev", L""}, 1, "1o"},
        {"a toggle flips back", {L"ReverseGroupOrder", L"ReverseGroupOrder", L""}, 0, "1o"},
        {"names without regard to case", {L"reversegrouporder", L""}, 0, "1or"},
        {"unique beginnings", {L"rev", L"map", L"ig", L"importas", L""}, 0, "1ormiz"},
        {"an ambiguous beginning", {L"import", L""}, 0, "1o", 1},
        {"an unknown word", {L"colour", L"rev", L""}, 0, "1or", 1},
        {"cancelled is not cancel", {L"cancelled", L""}, 0, "1o", 1},
        {"a value", {L"ReverseGroupOrder=Yes", L"ImportOBJObjects=No", L""}, 0, "1r"},
        {"the value it has already", {L"ReverseGroupOrder=No", L"rev=n", L""}, 0, "1o"},
        {"other words for yes and no",
         {L"rev=ON map=true ig=1 importas=y", L"importobjo=off", L""},
         0,
         "1rmiz"},
        {"blanks around the equals sign", {L"rev =yes map= yes ig = yes", L""}, 0, "1oriz"},
        {"a value that there is not",
         {L"rev=maybe", L"rev=", L"=yes", L"rev=yes=no", L""},
         0,
         "1o",
         4},
        {"a list value's unique beginning", {L"importobjg=don", L""}, 0, "0o"},
        {"an ambiguous list value", {L"importobjg=as", L""}, 0, "1o", 1},
        {"a toggle's words are no list values", {L"importobjg=1", L""}, 0, "1o", 1},
        {"a list asks for its value", {L"ImportOBJGroups", L"AsLayers", L""}, 0, "2o"},
        {"and asks again", {L"ImportOBJGroups", L"Nowhere", L"as", L"asl", L""}, 0, "2o", 2},
        {"Enter keeps the list's value", {L"ImportOBJGroups", L"", L""}, 0, "1o"},
        {"cancel instead of a value", {L"ImportOBJGroups", L"cancel", L""}, 1, "1o"},
        {"end of input instead of a value", {L"ImportOBJGroups"}, 1, "1o"},
        {"several words on a line", {L"importobjg asl  rev\tmap=yes", L""}, 0, "2orz"},
        {"object names hide the object option",
         {L"ImportOBJGroups=AsObjectNames ImportOBJObjects=No", L""},
         0,
         "3o",
         1},
        {"which comes back with its value",
         {L"importobjo=no importobjg=asobj", L"importobjg=asgr", L""},
         0,
         "1"},
        {"a hidden name takes no part in beginnings",
         {L"importobjg=asobj", L"importobj=aslay", L""},
         0,
         "2o"},
        {"zero bytes and escape", {std::wstring(L"re\0v", 4), L"\x1B"}, 1, "1o", 1},
        {"a long word", {std::wstring(4000, L'x'), L""}, 0, "1o", 1},
    };
    for (const PromptCase& prompt : cases) {
        SCOPED_TRACE(prompt.what);
        const ScriptedAnswers answers(prompt.lines);
        CImportOBJPlugIn plugIn;
        EXPECT_EQ(plugIn.AskImportOptions(false, false), prompt.answer);
        EXPECT_EQ(Summary(plugIn.Options()), prompt.options);
        EXPECT_EQ(answers.Shown().notes.size(), prompt.notes);
    }
}

TEST(Prompt, ShowsEveryOptionWithItsCurrentValue)
{
    const ScriptedAnswers answers({L"importobjg=asobj map", L"importobjg=asgr", L""});
    CImportOBJPlugIn plugIn;
    ASSERT_EQ(plugIn.AskImportOptions(false, false), 0);
    const auto& questions = answers.Shown().questions;
    ASSERT_EQ(questions.size(), 3U);
    EXPECT_THAT(questions[0], HasSubstr(L"Set Import Options"));
    EXPECT_THAT(questions[0], HasSubstr(L"  ImportOBJGroups         = AsGroups\n"
                                        L"  ImportOBJObjects        = Yes\n"
                                        L"  ReverseGroupOrder       = No\n"
                                        L"  ImportAsMorphTargetOnly = No\n"
                                        L"  IgnoreTextures          = No\n"
                                        L"  MapOBJYToKelvoZ         = No\n"));
    EXPECT_THAT(questions[1], HasSubstr(L"ImportOBJGroups         = AsObjectNames"));
    EXPECT_THAT(questions[1], HasSubstr(L"MapOBJYToKelvoZ         = Yes"));
    EXPECT_THAT(questions[1], Not(HasSubstr(L"ImportOBJObjects")));
    EXPECT_THAT(questions[2], HasSubstr(L"ImportOBJObjects        = Yes"));
}

TEST(Prompt, NotesSayWhatWasNotUnderstood)
{
    const ScriptedAnswers answers(
        {L"import", std::wstring(L"a\0\x1B", 3) + std::wstring(100, L'b'), L"importobjg=to", L""});
    CImportOBJPlugIn plugIn;
    ASSERT_EQ(plugIn.AskImportOptions(false, false), 0);
    EXPECT_THAT(answers.Shown().notes,
                ElementsAre(L"\"import\" could be ImportOBJGroups, ImportOBJObjects or "
                            L"ImportAsMorphTargetOnly.",
                            L"\"a??" + std::wstring(37, L'b') + L"...\" is not one of the options.",
                            L"\"to\" is not a value of ImportOBJGroups; its values are "
                            L"DoNotImportOBJGroups, AsGroups, AsLayers or AsObjectNames."));
}

TEST(Prompt, LeavesWhatItDoesNotOfferAsItWas)
{
    constexpr const wchar_t* Section = L"Plug-Ins\\9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413\\Settings";
    auto profile = std::make_unique<ProfileStore>();
    profile->WriteInt(Section, L"HowToAddGs", 3);
    for (const wchar_t* entry : {L"UseONames", L"DontShowDialog", L"Split32bitTextures"})
        profile->WriteBool(Section, entry, true);
    ConsoleApp::Instance().SetProfile(std::move(profile));
    const ScriptedAnswers answers({L"map", L""});
    CImportOBJPlugIn plugIn;
    plugIn.OnLoad();
    EXPECT_EQ(plugIn.AskImportOptions(false, false), 0);
    EXPECT_EQ(Summary(plugIn.Options()), "3ozds");
    ConsoleApp::Instance().SetProfile(std::make_unique<ProfileStore>());
}

TEST(Prompt, TakesTranslatedNamesAndEnglishOnes)
{
    StringTable german =
        StringTable::Load(std::filesystem::path(PROJECT_FOLDER) / "examples" / "strings.de.txt");
    ConsoleApp::Instance().SetStrings(std::move(german));
    const ScriptedAnswers answers({L"gruppenf texturen\u00DCB=ja", L"MapOBJYToKelvoZ=y",
                                   L"OBJGruppenImportieren=alse importobjo=nein", L""});
    CImportOBJPlugIn plugIn;
    EXPECT_EQ(plugIn.AskImportOptions(false, false), 0);
    EXPECT_EQ(Summary(plugIn.Options()), "2riz");
    EXPECT_THAT(answers.Shown().questions.front(), HasSubstr(L"Importoptionen festlegen"));
    EXPECT_THAT(answers.Shown().questions.front(),
                HasSubstr(L"OBJGruppenImportieren      = AlsGruppen\n"));
    EXPECT_THAT(answers.Shown().notes, IsEmpty());
    ConsoleApp::Instance().SetStrings({});
}

} // namespace
