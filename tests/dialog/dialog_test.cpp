#include "plugin/resource.h"
#include "tests/dialog/dialog_driver.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

using testing::HasSubstr;

constexpr const char* OptionsWindow = "OBJ Import Options";
constexpr const char* MorphTargetWindow = "Import as Morph Target Warning";
constexpr const char* SwitchedOffWindow = "OBJ import options";
constexpr const char* SwitchedOffWindowInGerman = "OBJ-Datei import options";
constexpr const char* HelpWindow = "Help";

/// The check boxes and the settings that they set.
const std::map<int, std::string> Boxes = {{IDC_OBJECT_NAMES, "UseONames"},
                                          {IDC_MORPH_TARGET, "ImportAsMorphTarget"},
                                          {IDC_REVERSE_GROUP_ORDER, "ReverseGroupOrder"},
                                          {IDC_IGNORE_TEXTURES, "IgnoreTextures"},
                                          {IDC_Y_TO_Z, "ZUp"},
                                          {IDC_SPLIT_TEXTURES, "Split32bitTextures"},
                                          {IDC_DONT_SHOW, "DontShowDialog"}};

/// Runs the program with a settings file of the test's own.
class OptionsDialog : public testing::Test
{
protected:
    std::unique_ptr<DialogDriver> Start(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.end(), {"--settings", Utf8(m_folder.Path() / "s.ini")});
        return DialogDriver::Start(arguments);
    }

    /// Runs the options command and turns to its dialog.
    std::unique_ptr<DialogDriver> Open()
    {
        auto driver = Start({"--run", "OBJImportOptionsDialog"});
        driver->WaitForWindow(OptionsWindow);
        return driver;
    }

    void Store(const std::string& entries)
    {
        m_folder.Write("s.ini",
                       "[Plug-Ins\\9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413\\Settings]\n" + entries);
    }

    [[nodiscard]] std::string Stored() const { return m_folder.Read("s.ini"); }

    /// Clicks where a person closes a warning.
    static void Acknowledge(DialogDriver& driver, const char* title)
    {
        driver.WaitForWindow(title);
        driver.Press({Key::Enter});
    }

    /// Clicks OK, waits for the end and expects these settings to be stored.
    void Accept(DialogDriver& dialog, const std::vector<std::string>& settings)
    {
        dialog.Click(IDC_OK);
        EXPECT_EQ(dialog.Wait(), 0);
        ExpectStored(settings);
    }

    void ExpectStored(const std::vector<std::string>& settings) const
    {
        for (const std::string& setting : settings)
            EXPECT_THAT(Stored(), HasSubstr(setting));
    }

    TemporaryFolder m_folder;
};

TEST_F(OptionsDialog, OpensWithTheDefaultsAndKeepsThem)
{
    auto dialog = Open();
    dialog->Click(IDC_HELP);
    dialog->WaitForWindow(HelpWindow);
    dialog->CloseWindow();
    dialog->WaitForWindow(OptionsWindow);
    Accept(*dialog, {"HowToAddGs=1"});
    for (const auto& [id, name] : Boxes)
        EXPECT_THAT(Stored(), HasSubstr(name + (id == IDC_OBJECT_NAMES ? "=true" : "=false")));
}

// Each box is clicked in another selection of three runs, so that no two can be mistaken.
TEST_F(OptionsDialog, EachBoxSetsItsOwnOption)
{
    for (unsigned int run = 0; run < 3; ++run) {
        Store("");
        auto dialog = Open();
        unsigned int number = 0;
        for (const auto& [id, name] : Boxes) {
            if (((++number >> run) & 1U) == 0)
                continue;
            dialog->Click(id);
            if (id == IDC_MORPH_TARGET) {
                Acknowledge(*dialog, MorphTargetWindow);
                dialog->WaitForWindow(OptionsWindow);
            }
        }
        dialog->Click(IDC_OK);
        if (((number >> run) & 1U) != 0)
            Acknowledge(*dialog, SwitchedOffWindow);
        EXPECT_EQ(dialog->Wait(), 0);
        number = 0;
        for (const auto& [id, name] : Boxes) {
            const bool clicked = ((++number >> run) & 1U) != 0;
            const bool expected = clicked != (id == IDC_OBJECT_NAMES);
            EXPECT_THAT(Stored(), HasSubstr(name + (expected ? "=true" : "=false"))) << run;
        }
    }
}

TEST_F(OptionsDialog, ObjectNamesDisableTheNamesOfObjects)
{
    auto dialog = Open();
    dialog->Click(IDC_GROUPS_OBJECT_NAMES);
    dialog->Click(IDC_OBJECT_NAMES);
    Accept(*dialog, {"HowToAddGs=3", "UseONames=true"});

    dialog = Open();
    dialog->Click(IDC_OBJECT_NAMES); // disabled as soon as the dialog opens
    Accept(*dialog, {"HowToAddGs=3", "UseONames=true"});

    dialog = Open();
    dialog->Click(IDC_GROUPS_LAYERS);
    dialog->Click(IDC_OBJECT_NAMES); // enabled again by another choice
    dialog->Click(IDC_GROUPS_NOTHING);
    Accept(*dialog, {"HowToAddGs=0", "UseONames=false"});
}

TEST_F(OptionsDialog, WarnsEachTimeMorphTargetIsTicked)
{
    auto dialog = Open();
    for (int time = 0; time < 2; ++time) {
        dialog->Click(IDC_MORPH_TARGET);
        Acknowledge(*dialog, MorphTargetWindow);
        dialog->WaitForWindow(OptionsWindow);
        dialog->Click(IDC_MORPH_TARGET); // clearing says nothing: the next click reaches the dialog
    }
    dialog->Click(IDC_REVERSE_GROUP_ORDER);
    Accept(*dialog, {"ImportAsMorphTarget=false", "ReverseGroupOrder=true"});
}

TEST_F(OptionsDialog, CanBeSwitchedOffAndOnAgain)
{
    auto dialog = Start({"--dialog", PROJECT_FOLDER "/examples/house.obj", "--quiet", "--strings",
                         PROJECT_FOLDER "/examples/strings.de.txt", "--json",
                         Utf8(m_folder.Path() / "house.json")});
    dialog->WaitForWindow(OptionsWindow);
    dialog->Click(IDC_DONT_SHOW);
    dialog->Click(IDC_OK);
    Acknowledge(*dialog, SwitchedOffWindowInGerman);
    EXPECT_EQ(dialog->Wait(), 0);
    EXPECT_THAT(Stored(), HasSubstr("DontShowDialog=true"));
    EXPECT_THAT(m_folder.Read("house.json"), HasSubstr("objimport --run OBJImportOptionsDialog"))
        << "the way back is explained in every language";

    EXPECT_EQ(Start({"--dialog", PROJECT_FOLDER "/examples/house.obj", "--quiet"})->Wait(), 0)
        << "no dialog any more";

    dialog = Open();
    dialog->Click(IDC_Y_TO_Z);
    Accept(*dialog, {"DontShowDialog=true"}); // the warning appears only when switching it off

    dialog = Open();
    dialog->Click(IDC_DONT_SHOW);
    Accept(*dialog, {"DontShowDialog=false"}); // nor does switching it on show one
}

TEST_F(OptionsDialog, CancelKeepsEverything)
{
    Store("HowToAddGs=2\nZUp=true\n");
    const std::vector<void (*)(DialogDriver&)> waysOut = {
        [](DialogDriver& driver) { driver.Click(IDC_CANCEL); },
        [](DialogDriver& driver) { driver.Press({Key::Escape}); },
        [](DialogDriver& driver) {
            driver.Press({Key::Tab, Key::Tab, Key::Enter});
        },
        [](DialogDriver& driver) { driver.CloseWindow(); }};
    for (const auto leave : waysOut) {
        auto dialog = Open();
        dialog->Click(IDC_GROUPS_NOTHING);
        dialog->Click(IDC_Y_TO_Z);
        dialog->Click(IDC_DONT_SHOW);
        leave(*dialog);
        EXPECT_EQ(dialog->Wait(), 1) << "cancelled";
        ExpectStored({"HowToAddGs=2", "ZUp=true", "DontShowDialog=false"});
    }
    auto dialog = Start({"--dialog", PROJECT_FOLDER "/examples/house.obj", "--quiet"});
    dialog->WaitForWindow(OptionsWindow);
    dialog->Press({Key::Escape});
    EXPECT_EQ(dialog->Wait(), 1) << "the import is cancelled with its dialog";
}

TEST_F(OptionsDialog, StartsFromTheSwitchesAndKeepsWhatIsAccepted)
{
    const std::vector<std::string> runs[] = {
        {"--run", "OBJImportOptionsDialog"},
        {"--dialog", PROJECT_FOLDER "/examples/house.obj", "--quiet"}};
    for (std::vector<std::string> arguments : runs) {
        Store("HowToAddGs=0\n");
        arguments.insert(arguments.end(), {"--groups", "layers", "--z-up"});
        auto dialog = Start(arguments);
        dialog->WaitForWindow(OptionsWindow);
        dialog->Press({Key::Escape});
        EXPECT_EQ(dialog->Wait(), 1);
        EXPECT_THAT(Stored(), HasSubstr("HowToAddGs=0\n")) << "nothing was accepted";

        dialog = Start(arguments);
        dialog->WaitForWindow(OptionsWindow);
        dialog->Click(IDC_REVERSE_GROUP_ORDER);
        dialog->Click(IDC_OK);
        EXPECT_EQ(dialog->Wait(), 0);
        for (const char* entry : {"HowToAddGs=2\n", "ZUp=true\n", "ReverseGroupOrder=true\n"})
            EXPECT_THAT(Stored(), HasSubstr(entry));
    }
}

TEST_F(OptionsDialog, NeedsNoMouse)
{
    auto dialog = Open();
    // From "Groups" to "Layers" by way of "Object names", on to the names of objects, past the
    // morph target and the group order, and back to the group order.
    dialog->Press({Key::Down, Key::Down, Key::Up, Key::Tab, Key::Space, Key::Tab, Key::Tab,
                   Key::Tab, Key::ShiftTab, Key::Space, Key::F1});
    dialog->WaitForWindow(HelpWindow);
    dialog->Press({Key::Escape});
    dialog->WaitForWindow(OptionsWindow);
    dialog->Press({Key::Enter});
    EXPECT_EQ(dialog->Wait(), 0);
    ExpectStored(
        {"HowToAddGs=2", "UseONames=false", "ImportAsMorphTarget=false", "ReverseGroupOrder=true"});
}

} // namespace
