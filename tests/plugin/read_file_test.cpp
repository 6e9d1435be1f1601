#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/framework/work_note.h"
#include "plugin/import_obj_plugin.h"
#include "tests/plugin/scripted_answers.h"
#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include "host/app/file_type.h"
#include "host/geokit/string.h"

#include <cctype>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

/// Forwards to another document and notes each step of an import, with the number of wait cursors
/// and of messages at the time. It has no list of views.
class NotingDoc : public CKelvoDoc
{
public:
    explicit NotingDoc(ConsoleDoc& doc) : m_doc(doc) {}

    [[nodiscard]] double AbsoluteTolerance() const override { return m_doc.AbsoluteTolerance(); }
    CKelvoLayerTable& LayerTable() override { return m_doc.LayerTable(); }
    CKelvoGroupTable& GroupTable() override { return m_doc.GroupTable(); }
    CKelvoMaterialTable& MaterialTable() override { return m_doc.MaterialTable(); }
    bool AddObject(std::unique_ptr<CKelvoObject> object, bool reference, bool selected) override
    {
        Note("add");
        return m_doc.AddObject(std::move(object), reference, selected);
    }
    bool AddPointObject(const GK_3dPoint&, const GK_MdxObjectAttributes&, const CKelvoHistory*,
                        bool) override
    {
        return false;
    }
    void GetViewList(CKelvoViewList&, bool, bool) override
    {
        Note("views");
        throw std::runtime_error("no views");
    }
    void Redraw() override { Note("redraw"); }

    std::vector<std::string> steps;

private:
    void Note(const char* step)
    {
        const std::size_t messages = ConsoleApp::Instance().Journal().prints.size();
        steps.push_back(std::string(step) + ' ' + std::to_string(WorkNote::Instance().Depth()) +
                        ' ' + std::to_string(messages));
    }

    ConsoleDoc& m_doc;
};

/// A plug-in, an empty document, and a file to import into it.
class ReadFile : public testing::Test
{
protected:
    void SetUp() override
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().SetProfile(std::make_unique<ProfileStore>());
    }

    void TearDown() override
    {
        EXPECT_EQ(WorkNote::Instance().Depth(), 0) << "the wait cursor was not ended";
        ConsoleApp::Instance().TakeJournal();
    }

    bool Import(const std::string& contents, std::initializer_list<int> modes)
    {
        return ImportInto(doc, contents, modes);
    }

    bool ImportInto(CKelvoDoc& target, const std::string& contents,
                    std::initializer_list<int> modes)
    {
        const std::filesystem::path path = m_folder.Write("a.obj", contents);
        ConsoleApp::Instance().TakeJournal();
        CKelvoFileReadOptions options;
        for (const int mode : modes)
            options.SetMode(mode, true);
        return plugIn.ReadFile(path.wstring().c_str(), 0, target, options);
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

    CImportOBJPlugIn plugIn;
    ConsoleDoc doc{0.001};

    [[nodiscard]] const TemporaryFolder& Folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
};

TEST_F(ReadFile, SplitsTexturesWhenTheOptionSaysSo)
{
    const auto writeImage = [this](int width, const char* name) {
        const CKelvoDib image = MakeImage(width, 4, 32, [](int, int) {
            return Rgba{120, 60, 30, 100};
        });
        ASSERT_TRUE(WriteDib(image, Folder() / "image.png"));
        std::filesystem::rename(Folder() / "image.png", Folder() / name);
    };
    writeImage(5, "wood.png");
    writeImage(7, "wood.bmp");
    for (const bool split : {false, true}) {
        Folder().Write("a.mtl", "newmtl " + std::to_string(split) +
                                    "\nmap_Kd wood.png\nmap_Kd wood.bmp\nmap_Kd wood.png\n");
        CKelvoProfileContext& profile = KelvoApp().ProfileContext();
        profile.WriteBool(L"Plug-Ins\\9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413\\Settings",
                          L"Split32bitTextures", split);
        plugIn.OnLoad();
        EXPECT_TRUE(Import("mtllib a.mtl\n" + Triangle, {ReadModeAskOnCommandLine}));
        EXPECT_EQ(doc.Materials().Last()->Textures().Count(), split ? 6 : 3);
    }
    CKelvoDib color;
    ASSERT_TRUE(ReadDib(color, Folder() / "wood_kvDiffuse.png"));
    EXPECT_EQ(color.Width(), 5) << "that of the image that was named last";
}

TEST_F(ReadFile, ZoomsWhenAskedWhateverTheResult)
{
    EXPECT_TRUE(Import(Triangle, {ReadModeAskOnCommandLine, ReadModeZoomExtents}));
    EXPECT_TRUE(Journal().zoomed && Journal().redrawn);
    EXPECT_EQ(doc.View().shown.max.x, 1.0);

    EXPECT_FALSE(Import("v inf 0 0\n" + Triangle, {ReadModeAskOnCommandLine, ReadModeZoomExtents}));
    EXPECT_TRUE(Journal().zoomed && Journal().redrawn);
}

TEST_F(ReadFile, TakesItsStepsInOrderUnderTheWaitCursor)
{
    const std::string contents = Triangle + "f 1 2 3 7\np\n";
    const ScriptedAnswers answers({L"", L""});
    NotingDoc noting(doc);
    EXPECT_TRUE(ImportInto(noting, contents, {ReadModeAskOnCommandLine}));
    EXPECT_THAT(std::exchange(noting.steps, {}), ElementsAre("add 1 2", "redraw 1 3"));

    // Zooming comes before drawing; an exception of it ends the wait cursor too.
    EXPECT_THROW(ImportInto(noting, contents, {ReadModeAskOnCommandLine, ReadModeZoomExtents}),
                 std::runtime_error);
    EXPECT_THAT(noting.steps, ElementsAre("add 1 2", "views 1 3"));
    EXPECT_FALSE(answers.Shown().underWaitCursor);
}

TEST_F(ReadFile, ACancelLeavesEverythingAsItWas)
{
    const ScriptedAnswers answers({L"rev", L"cancel"});
    EXPECT_FALSE(Import(Triangle, {ReadModeAskOnCommandLine, ReadModeZoomExtents}));
    EXPECT_FALSE(Journal().zoomed || Journal().redrawn);
    EXPECT_THAT(Journal().prints, IsEmpty());
    EXPECT_EQ(doc.ObjectCount(), 0);
    EXPECT_FALSE(plugIn.Options().ReverseGroupOrder);
}

TEST(PlugIn, SaysWhoItIsAndWhatItReads)
{
    CImportOBJPlugIn plugIn;
    std::string form = GK_wString(plugIn.PlugInVersion()).Utf8();
    for (char& c : form)
        c = std::isdigit(static_cast<unsigned char>(c)) != 0 ? '0' : c;
    EXPECT_THAT(form.substr(3), testing::AnyOf(" 00 0000 00:00:00", "  0 0000 00:00:00"));

    CKelvoFileTypeList types;
    plugIn.AddFileTypes(types, CKelvoFileReadOptions());
    ASSERT_EQ(types.Types().Count(), 1);
    EXPECT_EQ(types.Types()[0].plugInId, plugIn.PlugInId());
    EXPECT_EQ(types.Types()[0].description.View(), L"OBJ (*.obj)");
    EXPECT_EQ(types.Types()[0].extension.View(), L"obj");
}

} // namespace
