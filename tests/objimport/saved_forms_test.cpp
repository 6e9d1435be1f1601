// The files that --save writes, and what it never replaces.

#include "objimport/saved_forms.h"
#include "tests/objimport/process.h"
#include "tests/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
namespace fs = std::filesystem;

TEST(SavedForms, EndingsNameForms)
{
    const std::pair<const char*, std::optional<ExchangeForm>> cases[] = {
        {"a.glb", ExchangeForm::Glb},
        {"x/A.GlB", ExchangeForm::Glb},
        {"a.step", ExchangeForm::Step},
        {"a.STP", ExchangeForm::Step},
        {".png", ExchangeForm::Picture},
        {"a.png", ExchangeForm::Picture},
        {"a.gltf", std::nullopt},
        {"glb", std::nullopt},
        {"", std::nullopt},
        {"a.glb.txt", std::nullopt},
        {"a.step/b", std::nullopt}};
    for (const auto& [path, form] : cases)
        EXPECT_EQ(FormOfEnding(path), form) << path;
}

TEST(SavedForms, SizesAreTwoNumbersWithinLimits)
{
    using Size = std::optional<std::pair<int, int>>;
    const std::pair<const char*, Size> cases[] = {{"1200x900", Size({1200, 900})},
                                                  {"16X8192", Size({16, 8192})},
                                                  {"15x900", Size()},
                                                  {"1200x8193", Size()},
                                                  {"1200", Size()},
                                                  {"1200x", Size()},
                                                  {"x900", Size()},
                                                  {"", Size()},
                                                  {"1200x900 ", Size()},
                                                  {"-1200x900", Size()},
                                                  {"99999999999x900", Size()},
                                                  {"1200,900", Size()}};
    for (const auto& [text, size] : cases)
        EXPECT_EQ(SizeOfText(text), size) << text;
    EXPECT_EQ(ViewOfName("Top"), ExchangeView::Top);
    EXPECT_EQ(ViewOfName("left"), std::nullopt);
}

/// Runs objimport with the product on a copy of the examples.
class SavedFiles : public testing::Test
{
protected:
    SavedFiles()
    {
        fs::copy(fs::path(PROJECT_FOLDER) / "examples", folder.Path(), fs::copy_options::recursive);
        // Otherwise the run would use the settings of the person who runs the tests.
        settings = At("settings.ini");
    }

    [[nodiscard]] std::string At(const char* name) const { return Utf8(folder / name); }

    ProcessResult Save(std::vector<std::string> arguments, const char* input = "house.obj",
                       const std::string& before = "") const
    {
        arguments.insert(arguments.begin(), {"--settings", settings});
        arguments.push_back(At(input));
        return RunObjimport(arguments, "", before);
    }

    /// Runs what must be refused before anything is imported, and leave a file as it is.
    void ExpectRefused(const std::vector<std::string>& arguments, const char* reason,
                       const char* endangered = "house.obj") const
    {
        const std::string before = ReadBytes(folder / endangered);
        const ProcessResult result = Save(arguments);
        EXPECT_EQ(result.status, 2) << reason;
        EXPECT_THAT(result.errors, HasSubstr(reason));
        EXPECT_EQ(result.output, "") << reason;
        EXPECT_EQ(ReadBytes(folder / endangered), before) << reason;
    }

    TemporaryFolder folder;
    std::string settings;
};

TEST_F(SavedFiles, AreWrittenAndReported)
{
    const ProcessResult result = Save({"--save", At("a.glb"), "--save", At("b.GLB")});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("a.glb: 11 objects with 101 vertices"));
    EXPECT_THAT(result.output, HasSubstr("b.GLB: 11 objects with 101 vertices"));
    EXPECT_THAT(folder.Read("a.glb"), StartsWith("glTF"));
    EXPECT_EQ(folder.Read("a.glb"), folder.Read("b.GLB"));
    EXPECT_EQ(Save({"--quiet", "--save", At("a.glb")}).output, "");
}

TEST_F(SavedFiles, AreReportedInTheUsersLanguage)
{
    fs::remove_all(folder / "maps");
    const ProcessResult result =
        Save({"--strings", At("summary.de.txt"), "--save", At("a.glb")}, "textured.obj");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr(" Objekte ("));
    EXPECT_THAT(result.output, HasSubstr(" Dreiecke), "));
    EXPECT_THAT(result.output, HasSubstr(" Texturen fehlen: "));
}

TEST_F(SavedFiles, AreTurnedWhenTheImportTurnsTheFile)
{
    EXPECT_EQ(Save({"--z-up", "--save", At("a.glb")}).status, 0);
    EXPECT_THAT(folder.Read("a.glb"), HasSubstr("\"rotation\""));
    EXPECT_EQ(Save({"--no-z-up", "--save", At("a.glb")}).status, 0);
    EXPECT_THAT(folder.Read("a.glb"), Not(HasSubstr("\"rotation\"")));
}

TEST_F(SavedFiles, NeverReplaceWhatIsReadOrWrittenOtherwise)
{
    fs::create_hard_link(folder / "house.obj", folder / "same.glb");
    fs::create_hard_link(folder / "house.mtl", folder / "library.glb");
    ExpectRefused({"--save", At("same.glb")}, "would replace the input");
    ExpectRefused({"--save", At("a.glb"), "--json", At("a.glb")}, "would replace the JSON");
    ExpectRefused({"--save", At("a.glb"), "--save", At("maps/../a.glb")},
                  "would replace the saved");
    ExpectRefused({"--save", At("a.txt")}, "has to end in .glb, .step, .stp or .png");
    ExpectRefused({"--save", At("none/a.glb")}, "no such folder");
    ExpectRefused({"--size", "1x1", "--save", At("a.glb")}, "--size takes two numbers");
    ExpectRefused({"--view", "below", "--save", At("a.glb")}, "--view takes iso, top");

    const std::string before = folder.Read("house.mtl");
    const ProcessResult result = Save({"--save", At("library.glb"), "--save", At("b.glb")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("a file that the import has read"));
    EXPECT_EQ(folder.Read("house.mtl"), before);
    EXPECT_THAT(folder.Read("b.glb"), StartsWith("glTF")) << "is written all the same";
    fs::remove(folder / "b.glb");
    EXPECT_EQ(Save({"--json", At("library.glb"), "--save", At("b.glb")}).status, 2);
    EXPECT_EQ(folder.Read("house.mtl"), before);
    EXPECT_THAT(folder.Read("b.glb"), StartsWith("glTF"));
    EXPECT_FALSE(fs::exists(folder / "a.glb"));
}

#ifndef _WIN32
TEST_F(SavedFiles, AreTurnedWhenThePromptSaysSo)
{
    folder.Write("prompted", "MapOBJYToKelvoZ=Yes\n\n");
    EXPECT_EQ(
        Save({"--prompt", "--save", At("a.glb")}, "house.obj", "cat '" + At("prompted") + "' | ")
            .status,
        0);
    EXPECT_THAT(folder.Read("a.glb"), HasSubstr("\"rotation\""));
}

TEST_F(SavedFiles, StayAsTheyWereWhenTheyCannotBeWrittenWhole)
{
    folder.Write("out.glb", "old");
    const auto count = [&] {
        return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
    };
    const auto before = count();
    const ProcessResult result =
        Save({"--groups", "none", "--save", At("out.glb")}, "house.obj", "ulimit -f 4; ");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("out.glb: File too large"));
    EXPECT_EQ(folder.Read("out.glb"), "old");
    EXPECT_EQ(count(), before);
}

TEST_F(SavedFiles, NeedTheirLibraryWhichAnImportAloneDoesNot)
{
    const fs::path programs = folder / "programs";
    fs::create_directory(programs);
    for (const char* name : {"objimport", "libkelvohost.so.1", "ImportOBJ.so"})
        fs::copy(fs::canonical(fs::path(OBJIMPORT).parent_path() / name), programs / name);
    const std::string run = "'" + Utf8(programs / "objimport") + "' -q --settings '" + settings +
                            "' '" + At("house.obj") + "' 2>'" + At("errors") + "'";
    EXPECT_EQ(std::system(run.c_str()), 0);
    EXPECT_NE(std::system((run + " --save '" + At("a.glb") + "'").c_str()), 0);
    EXPECT_THAT(folder.Read("errors"), HasSubstr("cannot load the library for --save"));
}
#endif

} // namespace
