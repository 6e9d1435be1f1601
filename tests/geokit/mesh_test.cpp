#include "host/geokit/mesh.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

GK_MeshFace Face(int a, int b, int c, int d)
{
    return {{a, b, c, d}};
}

GK_MeshFace Face(int a, int b, int c)
{
    return {{a, b, c, c}};
}

template <class T>
std::span<const T> AsSpan(const GK_SimpleArray<T>& array)
{
    return {array.begin(), array.end()};
}

} // namespace

TEST(MeshFace, IsValidAndRepair)
{
    const GK_3fPoint positions[] = {{0, 0, 0}, {1, 0, 0},     {1, 1, 0},
                                    {0, 1, 0}, {-0.0F, 0, 0}, {NotANumber, 0, 0}};
    struct Case
    {
        GK_MeshFace face;
        bool valid;
        bool repaired;
        GK_MeshFace after;
    };
    const Case cases[] = {
        {Face(0, 1, 2), true, true, Face(0, 1, 2)},
        {Face(0, 1, 2, 3), true, true, Face(0, 1, 2, 3)},
        {Face(0, 0, 1, 2), false, true, Face(0, 1, 2)},
        {Face(0, 1, 2, 0), false, true, Face(0, 1, 2)},
        {Face(0, 1, 0, 2), false, true, Face(0, 1, 2)},
        {Face(0, 1, 1, 2), false, true, Face(0, 1, 2)},
        {Face(0, 1, 4, 2), false, true, Face(0, 1, 2)},
        {Face(0, 1, 2, 4), false, true, Face(0, 1, 2)},
        {Face(0, 1, 4), false, false, Face(0, 1, 4)},
        {Face(0, 1, 1), false, false, Face(0, 1, 1)},
        {Face(0, 4, 1, 1), false, false, Face(0, 4, 1, 1)},
        {Face(5, 1, 2), true, true, Face(5, 1, 2)},
        {Face(5, 1, 5, 2), false, true, Face(5, 1, 2)},
        {Face(-1, 1, 2), false, false, Face(-1, 1, 2)},
        {Face(0, 1, 2, 6), false, false, Face(0, 1, 2, 6)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.face.vi));
        GK_MeshFace face = c.face;
        EXPECT_EQ(face.IsValid(6, positions), c.valid);
        EXPECT_EQ(face.Repair(6, positions), c.repaired);
        EXPECT_THAT(face.vi, ElementsAreArray(c.after.vi));
    }
}

TEST(Mesh, CompactKeepsListsAndPolygonsInStep)
{
    // Vertex 2 is named by nothing that stays, vertex 7 by a polygon only.
    GK_Mesh mesh;
    for (int i = 0; i < 9; ++i) {
        const auto x = static_cast<float>(i);
        mesh.vertices.Append({x, x * x, 0});
        mesh.normals.Append({x, 0, 0});
        mesh.textureCoordinates.Append({x, 0});
        mesh.surfaceParameters.Append({static_cast<double>(i), 0});
        mesh.colors.Append({i, 0, 0});
        mesh.DoublePrecisionVertices().Append({static_cast<double>(i), i * i + 0.0, 0});
    }
    for (const GK_MeshFace& face :
         {Face(0, 2, 2), Face(0, 1, 3), Face(1, 9, 3), Face(3, 4, 5), Face(5, 6, 8), Face(2, 2, 2)})
        mesh.faces.Append(face);
    const auto addNgon = [&mesh](std::initializer_list<int> vi, std::initializer_list<int> fi) {
        const GK_MeshNgon ngon = mesh.ModifyNgonList()->AddNgon(static_cast<int>(vi.size()));
        std::copy(vi.begin(), vi.end(), ngon.vi.begin());
        std::copy(fi.begin(), fi.end(), ngon.fi.begin());
    };
    addNgon({0, 1, 3, 4, 7}, {1, 2, 3});
    addNgon({2, 1, 0, 3}, {0, 5});
    addNgon({5, 6, 8}, {4});

    mesh.Compact();

    EXPECT_THAT(AsSpan(mesh.faces), ElementsAre(Face(0, 1, 2), Face(2, 3, 4), Face(4, 5, 7)));
    const GK_MeshNgonList& ngons = *mesh.NgonList();
    ASSERT_EQ(ngons.Count(), 2);
    EXPECT_THAT(ngons.Ngon(0).vi, ElementsAre(0, 1, 2, 3, 6));
    EXPECT_THAT(ngons.Ngon(0).fi, ElementsAre(0, 1));
    EXPECT_THAT(ngons.Ngon(1).vi, ElementsAre(4, 5, 7));
    EXPECT_THAT(ngons.Ngon(1).fi, ElementsAre(2));
    const int kept[] = {0, 1, 3, 4, 5, 6, 7, 8};
    ASSERT_EQ(mesh.VertexCount(), 8);
    for (int i = 0; i < 8; ++i) {
        const auto x = static_cast<float>(kept[i]);
        EXPECT_EQ(mesh.vertices[i].x, x);
        EXPECT_EQ(mesh.DoublePrecisionVertices()[i].x, x);
        EXPECT_EQ(mesh.normals[i].x, x);
        EXPECT_EQ(mesh.textureCoordinates[i].x, x);
        EXPECT_EQ(mesh.surfaceParameters[i].x, x);
        EXPECT_EQ(mesh.colors[i].Red(), kept[i]);
    }
}
