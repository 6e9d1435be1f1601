#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/framework/work_note.h"
#include "plugin/import_obj_plugin.h"
#include "tests/plugin/scripted_answers.h"

#include "host/app/file_type.h"
#include "host/geokit/string.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* Section = L"Plug-Ins\\9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413\\Settings";
const std::string Triangle = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

/// Hands on to another document and notes each step of an import, with the number of wait cursors
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
        std::filesystem::remove(m_path);
    }

    bool Import(const std::string& contents, std::initializer_list<int> modes)
    {
        return ImportInto(doc, contents, modes);
    }

    bool ImportInto(CKelvoDoc& target, const std::string& contents,
                    std::initializer_list<int> modes)
    {
        std::ofstream(m_path, std::ios::binary) << contents;
        return ImportPath(target, modes);
    }

    bool ImportPath(CKelvoDoc& target, std::initializer_list<int> modes)
    {
        ConsoleApp::Instance().TakeJournal();
        CKelvoFileReadOptions options;
        for (const int mode : modes)
            options.SetMode(mode, true);
        return plugIn.ReadFile(m_path.wstring().c_str(), 0, target, options);
    }

    static const ImportJournal& Journal() { return ConsoleApp::Instance().Journal(); }

    CImportOBJPlugIn plugIn;
    ConsoleDoc doc{0.001};

private:
    std::filesystem::path m_path =
        std::filesystem::path(testing::TempDir()) /
        (std::string("read_file_") + testing::UnitTest::GetInstance()->current_test_info()->name() +
         ".obj");
};

struct ReadCase
{
    const char* what;
    std::string contents;
    bool result;
    int objects;
    std::vector<std::string> prints;
};

const std::string Incomplete = "Errors occurred reading this file, may be incomplete.\n";

TEST_F(ReadFile, SaysHowItWent)
{
    const ReadCase cases[] = {
        {"nothing in it", "", true, 0, {}},
        {"one face", Triangle, true, 1, {}},
        {"a statement that ends the reading",
         Triangle + "p\nv 0 0 1\nf 1 2 4\n",
         true,
         1,
         {Incomplete}},
        {"reading ends before anything", "p\n", true, 0, {Incomplete}},
        {"indices of nothing",
         Triangle + "f 1 2 3 7 8\n",
         true,
         1,
         {"Encountered mesh face with bogus vertex index (count is 3). Search for \"7\" in your "
          "file.\n",
          "Encountered mesh face with bogus vertex index (count is 3). Search for \"8\" in your "
          "file.\n",
          "File had 2 bogus indexes in it.\n"}},
        {"both",
         Triangle + "f 1 2 3 7\np\n",
         true,
         1,
         {"Encountered mesh face with bogus vertex index (count is 3). Search for \"7\" in your "
          "file.\n",
          Incomplete, "File had 1 bogus indexes in it.\n"}},
        {"the only mesh is empty", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 1 1\n", false, 0, {}},
    };
    for (const ReadCase& read : cases) {
        SCOPED_TRACE(read.what);
        const int before = doc.ObjectCount();
        EXPECT_EQ(Import(read.contents, {ReadModeAskOnCommandLine}), read.result);
        EXPECT_EQ(doc.ObjectCount() - before, read.objects);
        EXPECT_EQ(Journal().prints, read.prints);
        EXPECT_TRUE(Journal().redrawn);
        EXPECT_FALSE(Journal().zoomed);
    }
}

TEST_F(ReadFile, NumbersOfManyDigitsKeepAllOfThem)
{
    ASSERT_TRUE(Import("v 12345678 0.12345678 1.123456789012\nv 1 0 0\nv 0 1 0\n"
                       "f 1 00000002 0000000000000003\n",
                       {ReadModeAskOnCommandLine}));
    ASSERT_EQ(doc.ObjectCount(), 1);
    const GK_Mesh* mesh = std::get<const GK_Mesh*>(doc.Object(0).geometry);
    const GK_3dPoint& point = mesh->DoublePrecisionVertices()[0];
    EXPECT_EQ(point.x, 12345678.0);
    EXPECT_FLOAT_EQ(static_cast<float>(point.y), 0.12345678F);
    EXPECT_FLOAT_EQ(static_cast<float>(point.z), 1.123456789012F);
}

TEST_F(ReadFile, AFileThatIsNotThereIsAnErrorWhileReading)
{
    EXPECT_TRUE(ImportPath(doc, {ReadModeAskOnCommandLine}));
    EXPECT_THAT(Journal().prints, ElementsAre(Incomplete));
}

TEST_F(ReadFile, ZoomsWhenAskedWhateverTheResult)
{
    EXPECT_TRUE(Import(Triangle, {ReadModeAskOnCommandLine, ReadModeZoomExtents}));
    EXPECT_TRUE(Journal().zoomed && Journal().redrawn);
    EXPECT_EQ(doc.View().shown.max.x, 1.0);

    doc.FailAddObject(1);
    EXPECT_FALSE(Import(Triangle, {ReadModeAskOnCommandLine, ReadModeZoomExtents}));
    EXPECT_TRUE(Journal().zoomed && Journal().redrawn);
}

TEST_F(ReadFile, TakesItsStepsInOrderUnderTheWaitCursor)
{
    const std::string contents = Triangle + "f 1 2 3 7\np\n";
    const ScriptedAnswers answers({L"", L""});
    NotingDoc noting(doc);
    EXPECT_TRUE(ImportInto(noting, contents, {ReadModeAskOnCommandLine}));
    EXPECT_THAT(std::exchange(noting.steps, {}), ElementsAre("add 1 2", "redraw 1 3"));

    // Zooming comes before drawing; what it lets out ends the wait cursor too.
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

TEST_F(ReadFile, TheAnswersShapeTheImportAndStay)
{
    const ScriptedAnswers answers({L"ImportOBJGroups=AsLayers rev", L""});
    EXPECT_TRUE(Import("g a b\n" + Triangle, {ReadModeAskOnCommandLine}));
    ASSERT_EQ(doc.Layers().Count(), 3);
    EXPECT_EQ(plugIn.Options().HowToAddGs, 2);

    plugIn.OnUnload();
    CImportOBJPlugIn next;
    EXPECT_EQ(next.OnLoad(), 1);
    EXPECT_EQ(next.Options().HowToAddGs, 2);
    EXPECT_TRUE(next.Options().ReverseGroupOrder);
}

TEST_F(ReadFile, AsksNothingWhenTheDialogIsSwitchedOff)
{
    ConsoleApp::Instance().Profile().WriteBool(Section, L"DontShowDialog", true);
    ConsoleApp::Instance().Profile().WriteInt(Section, L"HowToAddGs", 3);
    plugIn.OnLoad();
    const ScriptedAnswers answers({});
    EXPECT_TRUE(Import("g wall\n" + Triangle, {}));
    EXPECT_THAT(answers.Shown().questions, IsEmpty());
    ASSERT_EQ(doc.ObjectCount(), 1);
    EXPECT_EQ(doc.Object(0).attributes->name.View(), L"wall");
}

TEST(PlugIn, SaysWhoItIs)
{
    const CImportOBJPlugIn plugIn;
    EXPECT_EQ(GK_UuidToString(plugIn.PlugInId()), "9D3B51E2-7C04-4F1A-B6E8-2A95C0D7E413");
    EXPECT_STREQ(plugIn.PlugInName(), L"WaveFront OBJ Import");
    std::string form = GK_wString(plugIn.PlugInVersion()).Utf8();
    for (char& c : form)
        c = std::isdigit(static_cast<unsigned char>(c)) != 0 ? '0' : c;
    EXPECT_THAT(form.substr(3), testing::AnyOf(" 00 0000 00:00:00", "  0 0000 00:00:00"));
    EXPECT_EQ(plugIn.PlugInVersion(), plugIn.PlugInVersion());
}

TEST(PlugIn, ReadsOneKindOfFile)
{
    CImportOBJPlugIn plugIn;
    CKelvoFileTypeList types;
    plugIn.AddFileTypes(types, CKelvoFileReadOptions());
    ASSERT_EQ(types.Types().Count(), 1);
    const CKelvoFileType& type = types.Types()[0];
    EXPECT_EQ(type.plugInId, plugIn.PlugInId());
    EXPECT_EQ(type.description.View(), L"OBJ (*.obj)");
    EXPECT_EQ(type.extension.View(), L"obj");
}

} // namespace
