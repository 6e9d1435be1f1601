#include "console_host/app/console_app.h"
#include "console_host/app/document.h"
#include "console_host/runtime/native_path.h"
#include "materials/material_libraries.h"
#include "tests/temporary_folder.h"

#include <algorithm>
#include <cstdio>
#include <gmock/gmock.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

class MaterialLibrary : public testing::Test
{
protected:
    MaterialLibrary()
    {
        ConsoleApp::Instance().SetPrintStream(nullptr);
        ConsoleApp::Instance().TakeJournal();
    }

    /// Reads a library as one that C:\models\scene.obj names.
    void ReadLibrary(std::string_view text)
    {
        const fs::path path = m_folder.Write("library.mtl", text);
        MaterialLibraries libraries(L"C:\\models\\scene.obj", m_choices,
                                    m_document.MaterialTable());
        EXPECT_TRUE(libraries.ReadMaterialLibrary(path.string()));
    }

    /// Returns the material that these statements make.
    GK_Material Material(const std::string& statements)
    {
        const int before = m_document.Materials().Count();
        ReadLibrary("newmtl material " + std::to_string(before) + "\n" + statements + "\n");
        EXPECT_EQ(m_document.Materials().Count(), before + 1) << statements;
        return *m_document.Materials().Last();
    }

    std::vector<std::string> MaterialNames()
    {
        std::vector<std::string> names;
        for (const GK_Material& material : m_document.Materials())
            names.push_back(material.Name().Utf8());
        return names;
    }

    /// Reads the libraries that an OBJ file in the test's folder names; returns what was printed.
    std::vector<std::string> Read(const std::vector<std::string>& names)
    {
        const std::wstring path = WidePath(m_folder / "scene.obj");
        MaterialLibraries libraries(path, m_choices, m_document.MaterialTable());
        for (const std::string& name : names)
            libraries.ReadMaterialLibrary(name);
        return ConsoleApp::Instance().TakeJournal().prints;
    }

    TemporaryFolder m_folder;
    ConsoleDoc m_document{0.001};
    ImportChoices m_choices;
};

TEST_F(MaterialLibrary, Colors)
{
    struct
    {
        const char* statements;
        GK_Color diffuse, transparent;
    } const cases[] = {
        {"Kd 0.5 abc 0.25", {128, 255, 64}, {255, 255, 255}},
        {"Kd spectral file.rfl", {255, 255, 255}, {255, 255, 255}},
        {"Kd xyz 0.1 0.2 0.3", {255, 255, 255}, {255, 255, 255}},
        {"kd S 1", {255, 255, 255}, {255, 255, 255}},
        {"Kd -1 2 nan", {0, 255, 0}, {255, 255, 255}},
        {"Kd 0x1p-1 .5e0 inf", {128, 128, 255}, {255, 255, 255}},
        {"Tf 0 1 0.2", {128, 128, 128}, {0, 255, 51}},
        // What cannot be read ends the library; a transparent colour is white by then.
        {"Kd 1 0\nKd 1 0 0", {128, 128, 128}, {255, 255, 255}},
        {"Kd 1 0 0 0\nKd 1 0 0", {128, 128, 128}, {255, 255, 255}},
        {"Tf 0 0 0\nTf 1\nKd 1 0 0", {128, 128, 128}, {255, 255, 255}},
    };
    for (const auto& each : cases) {
        const GK_Material material = Material(each.statements);
        EXPECT_EQ(material.Diffuse(), each.diffuse) << each.statements;
        EXPECT_EQ(material.transparent, each.transparent) << each.statements;
    }
    const GK_Material others = Material("Ka 0 0 1\nKs 0 1 0");
    EXPECT_EQ(others.Ambient(), GK_Color(0, 0, 255));
    EXPECT_EQ(others.Specular(), GK_Color(0, 255, 0));
}

TEST_F(MaterialLibrary, ShineAndTransparency)
{
    struct
    {
        const char* statements;
        double shine; ///< as a fraction of the largest
        double transparency;
    } const cases[] = {
        {"Ns 50", 0.5, 0}, {"Ns 500", 0.5, 0},  {"Ns 100", 1, 0},   {"Ns 1000", 1, 0},
        {"Ns 5000", 1, 0}, {"Ns -3", 0, 0},     {"Ns x", 0, 0},     {"Ns", 0, 0},
        {"Ns nan", 0, 0},  {"d 0.25", 0, 0.75}, {"D 2 rest", 0, 0}, {"d halo", 0, 0},
        {"Tr 0.25", 0, 0}, {"disp 0.5", 0, 0},  {"d 0.5x", 0, 0.5}, {"d", 0, 0},
    };
    for (const auto& each : cases) {
        const GK_Material material = Material(each.statements);
        EXPECT_DOUBLE_EQ(material.Shine(), each.shine * GK_Material::MaxShine()) << each.statements;
        EXPECT_DOUBLE_EQ(material.Transparency(), each.transparency) << each.statements;
    }
}

TEST_F(MaterialLibrary, Textures)
{
    using enum GK_Texture::TYPE;
    const std::string longName(256, 'n');
    struct
    {
        std::string statement;
        std::string file; ///< empty: no texture
        GK_Texture::TYPE type = bitmap_texture;
    } const cases[] = {
        {"map_Kd wood.png", "C:\\models\\wood.png"},
        {"map_Kd maps/wood.png", R"(C:\models\maps\wood.png)"},
        {"map_Kd -s 1 1 wood.png", "C:\\models\\-s11wood.png"},
        {"map_d holes.png", "C:\\models\\holes.png", transparency_texture},
        {"map_Bump rough.png", "C:\\models\\rough.png", bump_texture},
        {"bump rough.png", "C:\\models\\rough.png ", bump_texture},
        {"bump -bm 2 rough.png", "C:\\models\\-bm 2 rough.png ", bump_texture},
        {"map_Kd D:\\my maps\\wood.png", "D:\\my maps\\wood.png"},
        {"map_Kd D:/maps/wood.png", "D:/maps/wood.png"},
        {"map_Kd \\maps\\wood.png", R"(C:\models\\maps\wood.png)"},
        {"map_Kd D:\\maps\\wood", R"(C:\models\D:\maps\wood)"},
        {"map_Kd", ""},
        {"bump", ""},
        {"map_Ka wood.png", ""},
        {"map_Kd " + longName + ".png", ""},
        {"map_Kd D:\\maps\\" + longName + ".png", ""},
    };
    for (const auto& each : cases) {
        const GK_Material material = Material(each.statement);
        ASSERT_EQ(material.Textures().Count(), each.file.empty() ? 0 : 1) << each.statement;
        if (each.file.empty())
            continue;
        const GK_Texture& texture = material.Textures()[0];
        EXPECT_EQ(texture.filename.Utf8(), each.file);
        EXPECT_EQ(texture.type, each.type);
        EXPECT_EQ(texture.blendConstant, each.type == bump_texture ? 0.5 : 1.0);
    }
}

TEST_F(MaterialLibrary, MaterialsEnterTheTableOneByOne)
{
    ReadLibrary("Kd 1 0 0\nmap_Kd before.png\n");
    EXPECT_THAT(MaterialNames(), IsEmpty());
    ReadLibrary("newmtl a\nKd 1 0 0\nnewmtl my red  paint\nnewmtl\nd 0.5");
    EXPECT_THAT(MaterialNames(), ElementsAre("a", "my red paint"));
    // Only the last of a library is looked up first.
    ReadLibrary("newmtl a\nnewmtl my red paint\n");
    EXPECT_THAT(MaterialNames(), ElementsAre("a", "my red paint", "a"));
    EXPECT_EQ(m_document.Materials()[1].Transparency(), 0.5);
    EXPECT_EQ(m_document.Materials()[1].Diffuse(), GK_Color(128, 128, 128));
    // A colour that cannot be read ends the library, but not the material.
    ReadLibrary("new b\nKs 1\nnewmtl c\n");
    EXPECT_EQ(MaterialNames().back(), "b");
    ReadLibrary("newmtl " + std::string(10000, 'x'));
    EXPECT_EQ(MaterialNames().back(), std::string(10000, 'x'));
}

TEST_F(MaterialLibrary, IsFoundInTheCurrentFolderAndThenBesideTheObjFile)
{
    const fs::path before = fs::current_path();
    m_folder.Write("Current/library.mtl", "newmtl current\n");
    fs::current_path(m_folder / "Current");
    m_folder.Write("library.mtl", "newmtl beside\n");
    m_folder.Write("absolute.mtl", "newmtl absolute\n");
    m_folder.Write("Current/Two Words.mtl", "newmtl two words\n");
    EXPECT_THAT(Read({"library.mtl"}), IsEmpty());
    fs::current_path(before);
    EXPECT_THAT(Read({"library.mtl"}), IsEmpty());
    EXPECT_THAT(Read({"current\\two words.MTL"}), IsEmpty());
    EXPECT_THAT(Read({"Current/Two Words.mtl"}), IsEmpty());
    EXPECT_THAT(Read({(m_folder / "absolute.mtl").string()}), IsEmpty());
    EXPECT_THAT(MaterialNames(), ElementsAre("current", "beside", "two words", "absolute"));
}

TEST_F(MaterialLibrary, IsReadOnceAndEntersAsOftenAsItIsNamed)
{
    m_folder.Write("library.mtl", "newmtl a\nmap_Kd a.png\nnewmtl b\n");
    std::vector<std::string> names;
    for (int i = 0; i < 1000; ++i)
        names.insert(names.end(), {"library.mtl", "./library.mtl", "LIBRARY.mtl"});
    EXPECT_THAT(Read(names), IsEmpty());
    const GK_ClassArray<GK_Material>& materials = m_document.Materials();
    ASSERT_EQ(materials.Count(), 3001) << "the last of a library enters when it is not there yet";
    EXPECT_EQ(materials[0].Textures().Array(), materials[3000].Textures().Array());
    EXPECT_THAT(materials[1].Name().Utf8() + materials[2].Name().Utf8(), "ba");
}

#ifndef _WIN32
TEST_F(MaterialLibrary, IsAFileThatEnds)
{
    m_folder.Write("empty.mtl", "");
    ASSERT_EQ(mkfifo((m_folder / "pipe.mtl").c_str(), S_IRWXU), 0);
    const std::vector<std::string> prints =
        Read({"/proc/self/pagemap", "/dev/zero", "pipe.mtl", "empty.mtl"});
    ASSERT_EQ(prints.size(), 3U);
    EXPECT_THAT(prints[0], HasSubstr("pagemap.  Materials"));
    EXPECT_THAT(prints[2], HasSubstr("pipe.mtl.  Materials"));
}
#endif

TEST_F(MaterialLibrary, ThatIsMissingIsNamedAndTheImportContinues)
{
    fs::create_directories(m_folder / "folder.mtl");
    m_folder.Write("here.mtl", "newmtl here\n");
    const std::vector<std::string> prints =
        Read({"missing one.mtl", "folder.mtl", "D:\\libraries\\far.mtl", "here.mtl"});
    ASSERT_EQ(prints.size(), 3U);
    std::string completed = Utf8Path(m_folder / "missing one.mtl");
    std::replace(completed.begin(), completed.end(), '/', '\\');
    EXPECT_EQ(prints[0], "Unable to find or open " + completed + ".  Materials will be ignored.\n");
    EXPECT_THAT(prints[1], HasSubstr("folder.mtl.  Materials"));
    EXPECT_THAT(prints[2], HasSubstr("open D:\\libraries\\far.mtl.  Materials"));
    EXPECT_THAT(MaterialNames(), ElementsAre("here"));
}

TEST_F(MaterialLibrary, OfAHundredThousandMaterials)
{
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "newmtl material" + std::to_string(i) + "\nKd 0.1 0.2 0.3\n";
    ReadLibrary(text);
    ASSERT_EQ(m_document.Materials().Count(), 100000);
    EXPECT_EQ(m_document.MaterialTable().FindMaterial(L"material99999", true), 99999);
}

} // namespace
