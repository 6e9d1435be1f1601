#include "console_host/app/document.h"
#include "console_host/runtime/native_path.h"
#include "materials/material_libraries.h"
#include "materials/texture_splitting.h"
#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include "host/geokit/texture.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

namespace fs = std::filesystem;

constexpr Rgba Brown{120, 60, 30, 255};
constexpr Rgba BrownGlass{120, 60, 30, 100};
constexpr Rgba PureRed{255, 0, 0, 255};
constexpr Rgba RedGlass{255, 0, 0, 0};

CKelvoDib Image(int width, int height, int depth, const Rgba& color)
{
    return MakeImage(width, height, depth, [&](int, int) { return color; });
}

TEST(SplitImage, EveryPixelGoesToItsPlace)
{
    for (const int width : {1, 2, 3, 4, 5, 7, 8, 13}) {
        SCOPED_TRACE(width);
        const auto colorAt = [](int x, int y) -> Rgba {
            return {x * 19 % 256, 200 - x, y * 100 % 256, 255 - x - y};
        };
        CKelvoDib image = MakeImage(width, 3, 32, colorAt);
        CKelvoDib alpha;
        bool white = true;
        EXPECT_TRUE(SplitImage(image, alpha, white));
        EXPECT_FALSE(white);
        ASSERT_EQ(image.GetDepth(), 24);
        ASSERT_EQ(alpha.GetDepth(), 24);
        EXPECT_EQ(image.GetStorageSize(),
                  3U * ((3U * static_cast<unsigned>(width) + 3U) / 4U * 4U));
        for (int y = 0; y < 3; ++y) {
            for (int x = 0; x < width; ++x) {
                const auto [red, green, blue, a] = colorAt(x, y);
                EXPECT_EQ(ColorAt(image, x, y), (Rgba{red, green, blue}));
                EXPECT_EQ(ColorAt(alpha, x, y), (Rgba{a, a, a}));
            }
        }
    }
}

TEST(SplitImage, OnePixelDecidesOverWhiteAndTransparency)
{
    for (int at = 0; at < 7 * 2; ++at) {
        CKelvoDib image = Image(7, 2, 32, PureRed);
        SetColor(image, at % 7, at / 7, {254, 254, 254, 254});
        CKelvoDib alpha;
        bool white = true;
        EXPECT_TRUE(SplitImage(image, alpha, white)) << at;
        EXPECT_FALSE(white) << at;
    }
    for (const Rgba color : {Rgba{0, 0, 255}, Rgba{0, 255, 0}, Rgba{255, 0, 0}}) {
        CKelvoDib image = Image(7, 2, 32, color);
        CKelvoDib alpha;
        bool white = false;
        EXPECT_FALSE(SplitImage(image, alpha, white));
        EXPECT_TRUE(white);
        EXPECT_EQ(alpha.FindDIBBits(), nullptr);
    }
}

TEST(SplitImage, RefusesOtherDepths)
{
    CKelvoDib image = Image(2, 2, 24, Brown);
    CKelvoDib alpha;
    bool white = false;
    EXPECT_FALSE(SplitImage(image, alpha, white));
    EXPECT_FALSE(white);
    CKelvoDib withoutPixels(2, 2, 32, false);
    EXPECT_FALSE(SplitImage(withoutPixels, alpha, white));
}

class SplitTextures : public testing::Test
{
protected:
    void SetSource(const Rgba& color, int depth = 32)
    {
        ASSERT_TRUE(WriteDib(Image(5, 4, depth, color), m_folder / "wood.png"));
    }

    /// Makes a folder of this name, so that every write to it fails.
    void Block(const char* name) { fs::create_directories(m_folder / name); }

    /// Returns the textures that a material of this texture gets, as "type:file".
    std::vector<std::string> Textures(const std::string& file = "wood.png")
    {
        m_folder.Write("library.mtl", "newmtl a\nmap_Kd " + file + "\n");
        const ImportChoices choices{.Split32bitTextures = true};
        ConsoleDoc document(0.001);
        MaterialLibraries libraries(WidePath(m_folder / "scene.obj"), choices,
                                    document.MaterialTable());
        EXPECT_TRUE(libraries.ReadMaterialLibrary("library.mtl"));
        libraries.FinishTextures();
        std::vector<std::string> textures;
        for (const GK_Texture& texture : document.Materials()[0].Textures()) {
            EXPECT_TRUE(texture.on);
            const std::string name = texture.filename.Utf8();
            textures.push_back(std::to_string(static_cast<int>(texture.type)) + ":" +
                               name.substr(name.find_last_of('\\') + 1));
        }
        return textures;
    }

    bool Exists(const char* name) { return fs::is_regular_file(m_folder / name); }

    TemporaryFolder m_folder;
};

constexpr const char* ColorFile = "wood_kvDiffuse.png";
constexpr const char* AlphaFile = "wood_kvAlpha.png";

TEST_F(SplitTextures, WhatAMaterialGets)
{
    const std::string color = "1:wood_kvDiffuse.png";
    const std::string alpha = "3:wood_kvAlpha.png";
    const std::string unsplit = "1:wood.png";
    struct
    {
        const char* what;
        int depth;
        Rgba color;
        std::vector<const char*> blocked;
        std::vector<std::string> textures;
    } const cases[] = {
        {"transparent", 32, BrownGlass, {}, {color, alpha}},
        {"transparent, no colour file", 32, BrownGlass, {ColorFile}, {alpha}},
        {"transparent, no alpha file", 32, BrownGlass, {AlphaFile}, {color}},
        {"transparent, no file", 32, BrownGlass, {ColorFile, AlphaFile}, {unsplit}},
        {"transparent white", 32, RedGlass, {}, {alpha}},
        {"transparent white, no alpha file", 32, RedGlass, {AlphaFile}, {unsplit}},
        {"opaque", 32, Brown, {}, {color}},
        {"opaque, no colour file", 32, Brown, {ColorFile}, {unsplit}},
        {"opaque white", 32, PureRed, {}, {unsplit}},
        {"24 bits", 24, Brown, {}, {unsplit}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        fs::remove_all(m_folder / ColorFile);
        fs::remove_all(m_folder / AlphaFile);
        SetSource(each.color, each.depth);
        for (const char* file : each.blocked)
            Block(file);
        EXPECT_EQ(Textures(), each.textures);
        EXPECT_EQ(Exists(ColorFile), std::count(each.textures.begin(), each.textures.end(), color));
        EXPECT_EQ(Exists(AlphaFile), std::count(each.textures.begin(), each.textures.end(), alpha));
    }
}

TEST_F(SplitTextures, FilesHoldTheColorsAndTheAlpha)
{
    SetSource(BrownGlass);
    m_folder.Write(ColorFile, "an older file");
    Textures();
    CKelvoDib image;
    ASSERT_TRUE(ReadDib(image, m_folder / ColorFile));
    EXPECT_EQ(image.GetDepth(), 24);
    EXPECT_EQ(image.Width(), 5);
    EXPECT_EQ(ColorAt(image, 4, 3), (Rgba{120, 60, 30}));
    ASSERT_TRUE(ReadDib(image, m_folder / AlphaFile));
    EXPECT_EQ(ColorAt(image, 4, 3), (Rgba{100, 100, 100}));
}

TEST_F(SplitTextures, AnImageIsSplitOnceHoweverItIsSpelled)
{
    SetSource(BrownGlass);
    struct Spelling
    {
        const char* file;
        std::string color;
    } const spellings[] = {
        {"wood.png", "\\wood_kvDiffuse.png"},
        {"./wood.png", "\\.\\wood_kvDiffuse.png"},
        {"WOOD.Png", "\\WOOD_kvDiffuse.png"},
        {"wood.png", "\\wood_kvDiffuse.png"},
    };
    SplitOutcomes outcomes;
    for (const Spelling& spelling : spellings) {
        SCOPED_TRACE(spelling.file);
        GK_Texture diffuse;
        diffuse.filename = GK_wString(WidePath(m_folder.Path()) + L"\\");
        diffuse.filename += GK_wString(std::string_view(spelling.file)).View();
        diffuse.filename.Replace(L'/', L'\\');
        GK_Texture alpha;
        EXPECT_TRUE(outcomes.Split(diffuse, alpha));
        EXPECT_THAT(diffuse.filename.Utf8(), testing::EndsWith(spelling.color));
        EXPECT_TRUE(fs::exists(NativePath(diffuse.filename.View())));
        EXPECT_TRUE(fs::exists(NativePath(alpha.filename.View())));
        // A second splitting would read, and write, this.
        SetSource(Brown);
    }
    CKelvoDib image;
    ASSERT_TRUE(ReadDib(image, m_folder / AlphaFile));
    EXPECT_EQ(ColorAt(image, 0, 0), (Rgba{100, 100, 100}));
}

TEST_F(SplitTextures, NamesThatDifferInTheirEndingShareTheirFiles)
{
    ASSERT_TRUE(WriteDib(Image(7, 7, 32, BrownGlass), m_folder / "wood.bmp.png"));
    fs::rename(m_folder / "wood.bmp.png", m_folder / "wood.bmp");
    SetSource(Brown);
    EXPECT_EQ(Textures("wood.png\nmap_Kd wood.bmp\nmap_Kd wood.png").size(), 4U);
    CKelvoDib image;
    ASSERT_TRUE(ReadDib(image, m_folder / ColorFile));
    EXPECT_EQ(image.Width(), 5) << "the one that was named last";
}

TEST_F(SplitTextures, TheLastDotOfTheWholeNameCounts)
{
    fs::create_directories(m_folder / "my.models");
    SetSource(BrownGlass);
    fs::rename(m_folder / "wood.png", m_folder / "my.models" / "wood");
    EXPECT_THAT(Textures("my.models/wood"), ElementsAre("1:my_kvDiffuse.png", "3:my_kvAlpha.png"));
    EXPECT_TRUE(Exists("my_kvAlpha.png"));
}

TEST_F(SplitTextures, WhatCannotBeReadStays)
{
    Block("folder.png");
    m_folder.Write("broken.png", "\x89PNG");
    for (const std::string name : {"missing.png", "folder.png", "broken.png"})
        EXPECT_THAT(Textures(name), ElementsAre("1:" + name));

    GK_Texture diffuse;
    diffuse.filename = L"nodot";
    GK_Texture alpha;
    EXPECT_FALSE(SplitTexture(diffuse, alpha));
    EXPECT_EQ(diffuse.filename.Utf8(), "nodot");
}

} // namespace
