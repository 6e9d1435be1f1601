// Pictures, by what is to be seen at places in them.

#include "objimport/exchange/write_form.h"
#include "tests/exchange/document_builder.h"
#include "tests/geokit/nurbs_shapes.h"
#include "tests/whole/session.h"

#include "host/app/dib.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Read by the leak sanitizer: Mesa keeps a list of what it has drawn to until the process ends.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libOSMesa\n";
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Color = std::array<int, 3>; // red, green, blue

constexpr Color Ground = {235, 236, 238};

/// A picture that was written and read back. Pixels are counted from the upper left.
struct Picture
{
    ExchangeOutcome outcome;
    CKelvoDib image;

    [[nodiscard]] Color At(int x, int y) const
    {
        const std::size_t stride =
            image.GetStorageSize() / static_cast<std::size_t>(image.Height());
        const unsigned char* pixel = image.FindDIBBits() +
                                     static_cast<std::size_t>(image.Height() - 1 - y) * stride +
                                     static_cast<std::size_t>(x) * 3;
        return {pixel[2], pixel[1], pixel[0]};
    }

    [[nodiscard]] Color Middle() const { return At(image.Width() / 2, image.Height() / 2); }

    template <class Is>
    [[nodiscard]] int Count(Is is) const
    {
        int count = 0;
        for (int y = 0; y < image.Height(); ++y)
            for (int x = 0; x < image.Width(); ++x)
                count += is(At(x, y)) ? 1 : 0;
        return count;
    }

    [[nodiscard]] int DrawnCount() const
    {
        return Count([](const Color& color) { return color != Ground; });
    }
};

std::string UniquePath()
{
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    return testing::TempDir() + "picture_" + test->name() + ".png";
}

Picture Draw(const ExchangeDocument& document,
             ExchangePicture wanted = {.width = 200, .height = 150})
{
    Picture picture;
    const std::string path = UniquePath();
    std::FILE* stream = std::fopen(path.c_str(), "wb");
    WriteForm({ExchangeForm::Picture, &document, wanted, stream}, picture.outcome);
    std::fclose(stream);
    EXPECT_NE(picture.image.ReadFromFile(std::filesystem::path(path).wstring().c_str()), 0);
    std::filesystem::remove(path);
    EXPECT_EQ(picture.image.Width(), wanted.width);
    EXPECT_EQ(picture.image.Height(), wanted.height);
    return picture;
}

/// Returns how far what is drawn stays from the left, right, upper and lower side.
std::array<int, 4> MarginsOf(const Picture& picture)
{
    const int width = picture.image.Width();
    const int height = picture.image.Height();
    std::array<int, 4> margins = {width, width, height, height};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (picture.At(x, y) != Ground)
                margins = {std::min(margins[0], x), std::min(margins[1], width - 1 - x),
                           std::min(margins[2], y), std::min(margins[3], height - 1 - y)};
    return margins;
}

GK_Material Paint(int red, int green, int blue, double transparency = 0.0)
{
    GK_Material material;
    material.SetDiffuse(GK_Color(red, green, blue));
    material.SetTransparency(transparency);
    return material;
}

/// Returns a parallelogram of one face.
std::unique_ptr<GK_Mesh> Quad(const GK_3dPoint& corner, const GK_3dVector& a, const GK_3dVector& b)
{
    return MakeMesh({corner, corner + a, corner + a + b, corner + b}, {{{0, 1, 2, 3}}});
}

/// Adds six faces about a place, as a mesh each.
void AddBox(DocumentBuilder& builder, const GK_3dPoint& low, const GK_3dVector& size)
{
    const std::array<GK_3dVector, 3> along = {
        {{size.x, 0.0, 0.0}, {0.0, size.y, 0.0}, {0.0, 0.0, size.z}}};
    for (std::size_t i = 0; i < along.size(); ++i) {
        builder.AddMesh(Quad(low, along[(i + 1) % 3], along[(i + 2) % 3]));
        builder.AddMesh(Quad(low + along[i], along[(i + 1) % 3], along[(i + 2) % 3]));
    }
}

int Strongest(const Color& color)
{
    if (color[0] == color[1] && color[1] == color[2])
        return -1;
    return static_cast<int>(std::max_element(color.begin(), color.end()) - color.begin());
}

constexpr int Red = 0;
constexpr int Green = 1;
constexpr int Blue = 2;

TEST(Picture, FillsTheFrame)
{
    const std::array<std::pair<GK_3dPoint, GK_3dVector>, 6> boxes = {{
        {{0, 0, 0}, {1, 1, 1}},
        {{-3e6, 5e6, 7e6}, {1, 2, 3}},      // far away
        {{1e-9, 0, 0}, {2e-9, 1e-9, 1e-9}}, // tiny
        {{-1e30, 0, 0}, {2e30, 1e30, 1e30}},
        {{0, 0, 0}, {100, 1, 1}}, // long
        {{0, 0, 0}, {1, 100, 1}}, // high
    }};
    for (const auto& [low, size] : boxes)
        for (const ExchangeView view :
             {ExchangeView::Iso, ExchangeView::Top, ExchangeView::Front, ExchangeView::Right})
            for (const auto& [width, height] : {std::pair(200, 150), std::pair(90, 160)}) {
                DocumentBuilder builder;
                AddBox(builder, low, size);
                const Picture picture = Draw(builder.View(), {view, width, height});
                const auto [left, right, above, below] = MarginsOf(picture);
                SCOPED_TRACE(testing::Message()
                             << "box " << size.x << " x " << size.y << " x " << size.z << ", view "
                             << static_cast<int>(view) << ", " << width << " x " << height);
                EXPECT_NEAR(left, right, 2);
                EXPECT_NEAR(above, below, 2);
                EXPECT_THAT(std::min(left, above), testing::AllOf(testing::Ge(4), testing::Le(12)));
            }
}

TEST(Picture, ShowsTheSideThatTheViewNames)
{
    for (const bool isZUp : {false, true}) {
        const GK_3dVector right = {1, 0, 0};
        const GK_3dVector up = isZUp ? GK_3dVector{0, 0, 1} : GK_3dVector{0, 1, 0};
        const GK_3dVector front = isZUp ? GK_3dVector{0, -1, 0} : GK_3dVector{0, 0, 1};
        DocumentBuilder builder;
        builder.AddMaterial(Paint(220, 0, 0));
        builder.AddMesh(Quad(GK_origin + up, right, front));
        builder.AddMaterial(Paint(0, 220, 0));
        builder.AddMesh(Quad(GK_origin + front, right, up));
        builder.AddMaterial(Paint(0, 0, 220));
        builder.AddMesh(Quad(GK_origin + right, up, front));
        const auto draw = [&](ExchangeView view) {
            return Draw(builder.View({{}, isZUp}), {view, 200, 150});
        };
        EXPECT_EQ(Strongest(draw(ExchangeView::Top).Middle()), Red);
        EXPECT_EQ(Strongest(draw(ExchangeView::Front).Middle()), Green);
        EXPECT_EQ(Strongest(draw(ExchangeView::Right).Middle()), Blue);
        const Picture iso = draw(ExchangeView::Iso);
        EXPECT_EQ(Strongest(iso.At(100, 35)), Red);
        EXPECT_EQ(Strongest(iso.At(80, 100)), Green);
        EXPECT_EQ(Strongest(iso.At(130, 90)), Blue);
    }
}

TEST(Picture, HasTheRightWayUp)
{
    // Red stands at the right and blue at the top.
    DocumentBuilder builder;
    builder.AddMaterial(Paint(220, 0, 0));
    builder.AddMesh(Quad({2, 0, 0}, {1, 0, 0}, {0, 1, 0}));
    builder.AddMaterial(Paint(0, 0, 220));
    builder.AddMesh(Quad({0, 2, 0}, {1, 0, 0}, {0, 1, 0}));
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 150, 150});
    EXPECT_EQ(Strongest(picture.At(120, 120)), Red);
    EXPECT_EQ(Strongest(picture.At(30, 30)), Blue);
    EXPECT_EQ(picture.At(120, 30), Ground);
}

/// Draws a red wall and one in front of it, in either order.
Color WallBehind(double transparency, bool isNearFirst)
{
    DocumentBuilder builder;
    for (const bool isNear : {isNearFirst, !isNearFirst}) {
        builder.AddMaterial(isNear ? Paint(0, 0, 220, transparency) : Paint(220, 0, 0));
        builder.AddMesh(Quad({0, 0, isNear ? 1.0 : 0.0}, {1, 0, 0}, {0, 1, 0}));
    }
    return Draw(builder.View(), {ExchangeView::Front, 150, 150}).Middle();
}

TEST(Picture, HidesWhatIsBehindUnlessTheFrontIsTransparent)
{
    for (const bool isNearFirst : {false, true}) {
        EXPECT_EQ(WallBehind(0.0, isNearFirst)[Red], 0);
        const Color mixed = WallBehind(0.5, isNearFirst);
        EXPECT_NEAR(mixed[Red], mixed[Blue], 3);
        EXPECT_GT(mixed[Red], 60);
        const Color clear = WallBehind(1.0, isNearFirst);
        EXPECT_GT(clear[Blue], 10) << "what is there can be seen";
        EXPECT_GT(clear[Red], 150);
    }
}

TEST(Picture, MixesTransparentObjectsFromBackToFront)
{
    for (const bool isNearFirst : {false, true}) {
        DocumentBuilder builder;
        for (const bool isNear : {isNearFirst, !isNearFirst}) {
            builder.AddMaterial(isNear ? Paint(0, 0, 220, 0.3) : Paint(220, 0, 0, 0.3));
            builder.AddMesh(Quad({0, 0, isNear ? 1.0 : 0.0}, {1, 0, 0}, {0, 1, 0}));
        }
        const Picture picture = Draw(builder.View(), {ExchangeView::Front, 150, 150});
        EXPECT_EQ(Strongest(picture.Middle()), Blue);
    }
}

TEST(Picture, ShadesBothSidesOfAFaceAlikeAndByItsNormals)
{
    const auto draw = [](const GK_3dVector& a, const GK_3dVector& b, GK_3fVector normal) {
        DocumentBuilder builder;
        auto mesh = Quad({0, 0, 0}, a, b);
        for (int i = 0; i < mesh->VertexCount(); ++i)
            mesh->normals.Append(normal);
        builder.AddMesh(std::move(mesh));
        return Draw(builder.View(), {ExchangeView::Front, 100, 100}).Middle();
    };
    const Color front = draw({1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    EXPECT_EQ(draw({0, 1, 0}, {1, 0, 0}, {0, 0, -1}), front);
    EXPECT_EQ(draw({1, 0, 0}, {0, 1, 0}, {NAN, 0, 0}), front);
    EXPECT_EQ(draw({1, 0, 0}, {0, 1, 0}, {0, 0, 0}), front);
    EXPECT_LT(draw({1, 0, 0}, {0, 1, 0}, {0.8F, -0.6F, 0})[0], front[0]) << "away from the lamp";
}

TEST(Picture, TakesTheColorsOfVertices)
{
    DocumentBuilder builder;
    auto mesh = Quad({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    for (int i = 0; i < mesh->VertexCount(); ++i)
        mesh->colors.Append(i == 0 || i == 3 ? GK_Color(200, 0, 0) : GK_Color(0, 0, 200));
    builder.AddMesh(std::move(mesh));
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 100, 100});
    EXPECT_EQ(Strongest(picture.At(20, 50)), Red);
    EXPECT_EQ(Strongest(picture.At(80, 50)), Blue);
}

/// Writes an image of two by two pixels, upper left, upper right, lower left, lower right; the
/// number is the opacity of the last.
std::string WriteImage(const std::string& name, unsigned char lastAlpha)
{
    constexpr std::array<std::array<unsigned char, 3>, 4> BlueFirst = {
        {{0, 200, 0}, {0, 0, 0}, {0, 0, 200}, {200, 0, 0}}};
    CKelvoDib image(2, 2, 32, true);
    for (std::size_t i = 0; i < BlueFirst.size(); ++i) {
        unsigned char* pixel = image.FindDIBBits() + 4 * (i ^ 2U); // the bottom row comes first
        std::copy(BlueFirst[i].begin(), BlueFirst[i].end(), pixel);
        pixel[3] = i == 3 ? lastAlpha : 255;
    }
    std::string path = testing::TempDir() + name;
    EXPECT_NE(image.WriteToFile(std::filesystem::path(path).wstring().c_str()), 0);
    return path;
}

GK_Material Papered(const std::string& path)
{
    GK_Material material = Paint(10, 10, 10);
    GK_Texture texture;
    texture.filename = GK_wString(std::filesystem::path(path).wstring());
    material.AddTexture(texture);
    return material;
}

std::unique_ptr<GK_Mesh> QuadWithCoordinates(const GK_3dPoint& corner)
{
    auto mesh = Quad(corner, {1, 0, 0}, {0, 1, 0});
    for (const GK_2fPoint at : {GK_2fPoint{0, 0}, {1, 0}, {1, 1}, {0, 1}})
        mesh->textureCoordinates.Append(at);
    return mesh;
}

TEST(Picture, CoversSurfacesWithTheirTextures)
{
    for (const bool isOpaque : {true, false}) {
        const std::string path = WriteImage("covers.png", isOpaque ? 255 : 0);
        DocumentBuilder builder;
        builder.AddMaterial(Papered(path));
        builder.AddMesh(QuadWithCoordinates({0, 0, 1}));
        builder.AddMaterial(Paint(220, 220, 0));
        builder.AddMesh(Quad({0, 0, 0}, {1, 0, 0}, {0, 1, 0}));
        const Picture picture = Draw(builder.View(), {ExchangeView::Front, 200, 200});
        EXPECT_EQ(Strongest(picture.At(55, 55)), Green);
        EXPECT_EQ(Strongest(picture.At(55, 145)), Red);
        EXPECT_LT(picture.At(145, 55)[Green], 20) << "black";
        const Color last = picture.At(145, 145);
        EXPECT_EQ(Strongest(last) == Blue, isOpaque);
        EXPECT_EQ(last[Red] > 150, !isOpaque) << "what is behind";
        EXPECT_THAT(picture.outcome.losses, IsEmpty());
        std::filesystem::remove(path);
    }
}

TEST(Picture, ShowsTheMaterialWhereThereIsNoTexture)
{
    const std::string path = WriteImage("without.png", 255);
    DocumentBuilder builder;
    GK_Material papered = Papered(path);
    papered.SetDiffuse(GK_Color(0, 0, 220));
    builder.AddMaterial(papered);
    builder.AddMesh(Quad({0, 0, 0}, {1, 0, 0}, {0, 1, 0})); // no coordinates
    GK_Material missing = Papered(path + ".not.there.png");
    missing.SetDiffuse(GK_Color(220, 0, 0));
    builder.AddMaterial(missing);
    builder.AddMesh(QuadWithCoordinates({2, 0, 0}));
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 300, 120});
    EXPECT_EQ(Strongest(picture.At(50, 60)), Blue);
    EXPECT_EQ(Strongest(picture.At(250, 60)), Red);
    EXPECT_THAT(picture.outcome.losses, ElementsAre("1 texture is missing"));
    std::filesystem::remove(path);
}

/// Returns whether a pixel is as dark as the edges of faces.
bool IsEdge(const Color& color)
{
    return color[0] < 150;
}

TEST(Picture, ShowsTheSidesOfPolygonsAndNotTheTrianglesInThem)
{
    for (const bool isPolygon : {false, true}) {
        DocumentBuilder builder;
        auto mesh = MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {-0.5, 0.5, 0}},
                             {{{0, 1, 2, 2}}, {{0, 2, 3, 3}}, {{0, 3, 4, 4}}});
        if (isPolygon) {
            const GK_MeshNgon polygon = mesh->ModifyNgonList()->AddNgon(5);
            for (int i = 0; i < 5; ++i)
                polygon.vi[static_cast<std::size_t>(i)] = i;
            for (int i = 0; i < 3; ++i)
                polygon.fi[static_cast<std::size_t>(i)] = i;
        }
        builder.AddMesh(std::move(mesh));
        const Picture picture = Draw(builder.View(), {ExchangeView::Front, 800, 600});
        int inside = 0;
        for (int x = 300; x < 700; ++x)
            inside += IsEdge(picture.At(x, 300)) ? 1 : 0;
        EXPECT_EQ(inside > 0, !isPolygon);
        EXPECT_GT(picture.Count(IsEdge), 1500);
    }
}

TEST(Picture, LeavesOutSidesThatWouldHideTheFaces)
{
    constexpr int Side = 100;
    auto mesh = std::make_unique<GK_Mesh>();
    for (int y = 0; y <= Side; ++y)
        for (int x = 0; x <= Side; ++x)
            mesh->vertices.Append(GK_3fPoint(static_cast<float>(x), static_cast<float>(y), 0.0F));
    for (int y = 0; y < Side; ++y)
        for (int x = 0; x < Side; ++x) {
            const int at = y * (Side + 1) + x;
            mesh->faces.Append({{at, at + 1, at + Side + 2, at + Side + 1}});
        }
    DocumentBuilder builder;
    builder.AddMesh(std::move(mesh));
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 300, 300});
    EXPECT_EQ(picture.Count(IsEdge), 0);
}

TEST(Picture, DrawsLinesOfOneWidthInEveryDirection)
{
    const auto inkFor = [](double angle) {
        DocumentBuilder builder;
        const double x = std::cos(angle);
        const double y = std::sin(angle);
        builder.AddCurve(MakeCurve(3, false, 2, {-x, -y, 0, x, y, 0}, {0, 1}));
        builder.AddPoint({-1, -1, 0}); // the same scale for all
        builder.AddPoint({1, 1, 0});
        const Picture picture = Draw(builder.View(), {ExchangeView::Front, 400, 400});
        double ink = 0.0;
        for (int row = 0; row < 400; ++row)
            for (int column = 0; column < 400; ++column)
                ink += Ground[0] - picture.At(column, row)[0];
        return ink;
    };
    const double across = inkFor(0.0);
    for (const double angle : {0.3, 0.7854, 1.2, 1.5708, 2.5})
        EXPECT_NEAR(inkFor(angle) / across, 1.0, 0.12) << angle;
}

TEST(Picture, ShowsEveryPointAsADot)
{
    DocumentBuilder builder;
    builder.AddPoint({0, 0, 0});
    builder.AddCloud({{1, 0, 0}, {0, 1, 0}, {1, 1, 0}});
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 200, 200});
    const int first = MarginsOf(picture)[0] + 2;
    const int last = 199 - first;
    for (const auto& [x, y] : {std::pair(first, first), std::pair(first, last),
                               std::pair(last, first), std::pair(last, last)})
        EXPECT_NE(picture.At(x, y), Ground) << x << ", " << y;
    EXPECT_LT(picture.DrawnCount(), 4 * 49);
    EXPECT_EQ(picture.outcome.contents, "200 x 200 pixels, 2 objects");
}

TEST(Picture, ShowsAPointWhereverItIs)
{
    for (const double place : {0.0, 1e-200, 5.0, -3e9, 1e60}) {
        DocumentBuilder builder;
        builder.AddPoint({place, place, place});
        EXPECT_NE(Draw(builder.View()).Middle(), Ground) << place;
    }
}

TEST(Picture, ReportsPointsTooFarToBeShown)
{
    DocumentBuilder builder;
    builder.AddCloud({{0, 0, 0}, {1, 1, 0}, {1e200, 0, 0}});
    const Picture picture = Draw(builder.View());
    EXPECT_GT(picture.DrawnCount(), 20);
    EXPECT_THAT(picture.outcome.losses,
                ElementsAre("1 corner or point lies too far off to be shown"));
}

TEST(Picture, OfAnEmptyDocumentIsTheGround)
{
    const DocumentBuilder builder;
    const Picture picture = Draw(builder.View());
    EXPECT_EQ(picture.DrawnCount(), 0);
    EXPECT_THAT(picture.outcome.contents, HasSubstr("nothing in the document to be seen"));
    EXPECT_THAT(picture.outcome.error, IsEmpty());
}

TEST(Picture, HasNoSeamsWhereItIsPutTogether)
{
    DocumentBuilder builder;
    builder.AddMesh(Quad({0, 0, 0}, {4300, 0, 0}, {0, 60, 0}));
    const Picture picture = Draw(builder.View(), {ExchangeView::Front, 4300, 64});
    const Color color = picture.Middle();
    for (int x = 340; x < 3960; ++x)
        ASSERT_EQ(picture.At(x, 32), color) << x;
}

#ifdef __linux__
TEST(Picture, SaysWhyItCannotBeWritten)
{
    const DocumentBuilder builder;
    const ExchangeDocument document = builder.View();
    std::FILE* full = std::fopen("/dev/full", "wb");
    ExchangeOutcome outcome;
    WriteForm({ExchangeForm::Picture, &document, {}, full}, outcome);
    std::fclose(full);
    EXPECT_EQ(outcome.error, "No space left on device");
}
#endif

TEST(Picture, ShowsTheHoleOfATrimmedSurface)
{
    Session session;
    ASSERT_TRUE(session.Import(PROJECT_FOLDER "/examples/trimmed_surface.obj"));
    const Picture picture = Draw(ViewForExchange(session.Doc(), {}), {.width = 400, .height = 300});
    EXPECT_EQ(picture.Middle(), Ground);
    EXPECT_NE(picture.At(120, 150), Ground);
    EXPECT_NE(picture.At(290, 150), Ground);
    EXPECT_THAT(picture.outcome.losses, IsEmpty());
}

} // namespace
