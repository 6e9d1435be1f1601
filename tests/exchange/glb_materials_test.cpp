#include "console_host/runtime/native_path.h"
#include "tests/exchange/document_builder.h"
#include "tests/exchange/glb_reading.h"
#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;
using Type = GK_Texture::TYPE;

CKelvoDib Pattern(int width, int height, int depth, int alpha = 255)
{
    return MakeImage(width, height, depth, [alpha](int x, int y) -> Rgba {
        return {40 * x, 30 * y, 7 * (x + y), alpha};
    });
}

/// Returns a BMP of 24 bits: header and pixels.
std::string BmpOf(const CKelvoDib& image)
{
    const auto number = [](std::size_t value) {
        std::string bytes;
        for (int i = 0; i < 4; ++i, value >>= 8U)
            bytes += static_cast<char>(value & 0xFFU);
        return bytes;
    };
    const std::size_t size = image.GetStorageSize();
    const char* pixels = reinterpret_cast<const char*>(image.FindDIBBits());
    return "BM" + number(54 + size) + number(0) + number(54) + number(40) +
           number(static_cast<std::size_t>(image.Width())) +
           number(static_cast<std::size_t>(image.Height())) + std::string("\1\0\30\0", 4) +
           number(0) + number(size) + std::string(16, '\0') + std::string(pixels, size);
}

/// Meshes with materials, and files for their textures.
class GlbMaterials : public testing::Test
{
protected:
    void AddTextured(std::initializer_list<std::pair<Type, fs::path>> textures)
    {
        GK_Material material;
        material.SetDiffuse({10, 20, 30});
        for (const auto& [type, path] : textures) {
            GK_Texture texture;
            texture.type = type;
            texture.filename = GK_wString(WidePath(path));
            texture.filename.Replace(L'/', L'\\'); // as the importer names files
            material.AddTexture(texture);
        }
        builder.AddMaterial(material);
        builder.AddMesh(MakeTriangle());
    }

    /// Returns the image of a material of the file, decoded.
    CKelvoDib ImageOf(const ReadGlb& glb, std::size_t material) const
    {
        const int texture =
            glb.model.materials.at(material).pbrMetallicRoughness.baseColorTexture.index;
        const int image = glb.model.textures.at(static_cast<std::size_t>(texture)).source;
        CKelvoDib decoded;
        EXPECT_TRUE(ReadDib(decoded, folder.Write("decoded", glb.ImageBytes(image))));
        return decoded;
    }

    TemporaryFolder folder;
    DocumentBuilder builder;
};

TEST_F(GlbMaterials, AreThoseThatObjectsUse)
{
    GK_Material material;
    material.SetName(L"not used");
    builder.AddMaterial(material);
    material.SetName(L"gl\u00E4ss");
    material.SetDiffuse({255, 188, 0});
    material.SetTransparency(0.75);
    material.SetShine(GK_Material::MaxShine() * 0.9);
    builder.AddMaterial(material);
    builder.AddMesh(MakeTriangle());
    builder.attributes.SetMaterialSource(GK::material_from_layer);
    builder.AddMesh(MakeTriangle());
    builder.AddPoint({0, 0, 0});

    const ReadGlb glb = WriteAndRead(builder.View());
    ASSERT_EQ(glb.model.materials.size(), 2U);
    const tinygltf::Material& glass = glb.model.materials[0];
    EXPECT_EQ(glass.name, "gl\xC3\xA4ss");
    EXPECT_EQ(glass.alphaMode, "BLEND");
    EXPECT_TRUE(glass.doubleSided);
    const auto& look = glass.pbrMetallicRoughness;
    EXPECT_EQ(look.baseColorFactor[0], 1.0);
    EXPECT_NEAR(look.baseColorFactor[1], 0.5029, 1e-4);
    EXPECT_EQ(look.baseColorFactor[3], 0.25);
    EXPECT_EQ(look.metallicFactor, 0.0);
    EXPECT_NEAR(look.roughnessFactor, 0.1, 1e-12);
    const int plain = glb.PrimitiveOf(glb.Node(1)).material;
    EXPECT_EQ(plain, 1);
    EXPECT_EQ(glb.PrimitiveOf(glb.Node(2)).material, plain);
    EXPECT_EQ(glb.model.materials[1].alphaMode, "OPAQUE");
    EXPECT_EQ(glb.model.materials[1].pbrMetallicRoughness.metallicFactor, 0.0);
}

TEST_F(GlbMaterials, EmbedPngAndJpegAsTheyAreAndOthersAsPng)
{
    const fs::path jpeg = PROJECT_FOLDER "/fuzz/seeds/images/rgb.jpg";
    ASSERT_TRUE(WriteDib(Pattern(5, 3, 24), folder / "Map.png"));
    CKelvoDib bmp = Pattern(3, 4, 24);
    folder.Write("map.bmp", BmpOf(bmp));
    AddTextured({{Type::bitmap_texture, folder / "Map.png"}});
    AddTextured({{Type::bitmap_texture, jpeg}});
    AddTextured({{Type::bitmap_texture, folder / "map.bmp"}});
    AddTextured({{Type::bitmap_texture, folder / "Map.png"}});

    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_THAT(glb.outcome.losses, ElementsAre());
    ASSERT_EQ(glb.model.images.size(), 3U);
    EXPECT_EQ(glb.ImageBytes(0), folder.Read("Map.png"));
    EXPECT_EQ(glb.model.images[0].name, "Map.png");
    EXPECT_EQ(glb.ImageBytes(1), ReadBytes(jpeg));
    EXPECT_EQ(glb.model.images[1].mimeType, "image/jpeg");
    EXPECT_EQ(glb.model.images[2].mimeType, "image/png");
    CKelvoDib image = ImageOf(glb, 2);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(ColorAt(image, x, y), ColorAt(bmp, x, y));
    const auto& look = glb.model.materials[0].pbrMetallicRoughness;
    EXPECT_THAT(look.baseColorFactor, ElementsAre(1.0, 1.0, 1.0, 1.0)); // the image's colours only
    EXPECT_EQ(look.baseColorTexture.index,
              glb.model.materials[3].pbrMetallicRoughness.baseColorTexture.index);
}

TEST_F(GlbMaterials, BlendWhereAnImageIsNotOpaque)
{
    ASSERT_TRUE(WriteDib(Pattern(5, 3, 32), folder / "opaque.png"));
    ASSERT_TRUE(WriteDib(Pattern(5, 3, 32, 254), folder / "glass.png"));
    AddTextured({{Type::bitmap_texture, folder / "opaque.png"}});
    AddTextured({{Type::bitmap_texture, folder / "glass.png"}});
    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_EQ(glb.model.materials[0].alphaMode, "OPAQUE");
    EXPECT_EQ(glb.model.materials[1].alphaMode, "BLEND");
}

TEST_F(GlbMaterials, PutColoursAndAlphaOfTwoFilesTogether)
{
    CKelvoDib colors = Pattern(4, 2, 24);
    ASSERT_TRUE(WriteDib(colors, folder / "colors.png"));
    // Half the size: each of its pixels stands for two by one of the other's.
    const auto gray = [](int x, int) { return x == 0 ? Rgba{60, 60, 60} : Rgba{200, 200, 200}; };
    ASSERT_TRUE(WriteDib(MakeImage(2, 2, 24, gray), folder / "alpha.png"));
    AddTextured({{Type::bitmap_texture, folder / "colors.png"},
                 {Type::transparency_texture, folder / "alpha.png"}});
    AddTextured({{Type::transparency_texture, folder / "alpha.png"}});

    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_EQ(glb.model.materials[0].alphaMode, "BLEND");
    CKelvoDib both = ImageOf(glb, 0);
    for (int x = 0; x < 4; ++x) {
        Rgba expected = ColorAt(colors, x, 1);
        expected.alpha = x < 2 ? 60 : 200;
        EXPECT_EQ(ColorAt(both, x, 1), expected) << x;
    }
    CKelvoDib alone = ImageOf(glb, 1);
    EXPECT_EQ(ColorAt(alone, 1, 0), (Rgba{255, 255, 255, 200}));
    EXPECT_LT(glb.model.materials[1].pbrMetallicRoughness.baseColorFactor[0], 0.01);
}

TEST_F(GlbMaterials, NameWhatIsNotInTheFile)
{
    folder.Write("broken.png", "\x89PNG\r\n\x1A\n and no more");
    fs::create_directory(folder / "folder.png");
    ASSERT_TRUE(WriteDib(Pattern(5, 3, 24), folder / "good.png"));
    AddTextured({{Type::bitmap_texture, folder / "missing.png"}});
    AddTextured({{Type::bitmap_texture, folder / "missing.png"}});
    AddTextured({{Type::bitmap_texture, folder / "broken.png"}});
    AddTextured({{Type::bitmap_texture, folder / "good.png"},
                 {Type::transparency_texture, folder / "alpha.png"},
                 {Type::bump_texture, folder / "good.png"},
                 {Type::bitmap_texture, folder / "good.png"}});
    const ReadGlb glb = WriteAndRead(builder.View());
    EXPECT_EQ(glb.model.images.size(), 1U);
    EXPECT_EQ(glb.ImageBytes(0), folder.Read("good.png"));
    EXPECT_GT(glb.model.materials[0].pbrMetallicRoughness.baseColorFactor[0], 0.0);
    EXPECT_LT(glb.model.materials[0].pbrMetallicRoughness.baseColorFactor[0], 0.01);
    EXPECT_THAT(
        glb.outcome.losses,
        ElementsAre(AllOf(HasSubstr("2 textures are missing"),
                          HasSubstr(Utf8(folder / "missing.png")), HasSubstr("alpha.png")),
                    AllOf(HasSubstr("1 texture could not be read"), HasSubstr("broken.png")),
                    HasSubstr("1 bump texture is left out"), HasSubstr("1 texture is left out")));
}

#ifndef _WIN32
TEST_F(GlbMaterials, FindTexturesAsTheHostDoes)
{
    fs::create_directory(folder / "Maps");
    ASSERT_TRUE(WriteDib(Pattern(5, 3, 24), folder / "Maps/Wood.PNG"));
    AddTextured({{Type::bitmap_texture, Utf8(folder.Path()) + "\\maps\\wood.png"}});
    const ReadGlb glb = WriteAndRead(builder.View());
    ASSERT_EQ(glb.model.images.size(), 1U);
    EXPECT_EQ(glb.ImageBytes(0), folder.Read("Maps/Wood.PNG"));
}
#endif

} // namespace
