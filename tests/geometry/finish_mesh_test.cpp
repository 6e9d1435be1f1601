#include "geometry/finish_mesh.h"
#include "geometry/normal_repair.h"
#include "tests/objreader/read_text.h"
#include "tests/work_of.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>

namespace {

bool Finish(GK_Mesh* mesh, bool isMorphTarget)
{
    StageTimes times;
    StageLaps laps(times);
    return FinishMesh(mesh, isMorphTarget, nullptr, laps);
}

using testing::IsEmpty;

constexpr GK_3fVector Up{0, 0, 1};

bool AreNear(const GK_3fVector& a, const GK_3fVector& b)
{
    return std::abs(a.x - b.x) + std::abs(a.y - b.y) + std::abs(a.z - b.z) < 1e-6F;
}

/// Vertices, each at (x, 0, 0) with its normal.
struct PlacedNormal
{
    float place;
    GK_3fVector normal;
    GK_3fVector repaired;
};

TEST(NormalRepair, MakesUnitVectors)
{
    const float half = std::sqrt(0.5F);
    const GK_3fVector x{1, 0, 0};
    const GK_3fVector y{0, 1, 0};
    const GK_3fVector back{-1, 0, 0};
    const GK_3fVector zero;
    const struct
    {
        const char* what;
        std::vector<PlacedNormal> vertices;
    } cases[] = {
        {"made unit where needed",
         {{0, {0, 0, 2}, Up}, {1, {3, 3, 0}, {half, half, 0}}, {2, x, x}}},
        {"zero alone", {{0, zero, Up}, {1, x, x}, {2, {-0.0F, 0, 0}, Up}}},
        {"the others at the place decide", {{0, zero, x}, {0, {5, 0, 0}, x}, {1, y, y}}},
        {"the others cancel out", {{0, x, x}, {0, zero, Up}, {0, back, back}}},
        {"those after it count as they stand",
         {{0, zero, {0.6F, 0.8F, 0}}, {0, {3, 0, 0}, x}, {0, {0, 4, 0}, y}}},
        {"those before count as repaired",
         {{0, {3, 0, 0}, x}, {0, {0, 4, 0}, y}, {0, zero, {half, half, 0}}}},
        {"repaired zeros count too", {{0, x, x}, {0, back, back}, {0, zero, Up}, {0, zero, Up}}},
        {"-0 is the place of 0", {{0, zero, y}, {-0.0F, y, y}}},
        {"lengths of every size",
         {{0, zero, x},
          {0, {1e30F, 0, 0}, x},
          {0, {0, 1e-3F, 0}, y},
          {0, zero, {2 / std::sqrt(5.0F), 1 / std::sqrt(5.0F), 0}}}},
    };
    for (const auto& [what, vertices] : cases) {
        GK_Mesh mesh;
        for (const PlacedNormal& vertex : vertices) {
            mesh.vertices.Append({vertex.place, 0, 0});
            mesh.normals.Append(vertex.normal);
        }
        RepairNormals(mesh);
        for (int i = 0; i < mesh.VertexCount(); ++i)
            EXPECT_TRUE(AreNear(mesh.normals[i], vertices[static_cast<std::size_t>(i)].repaired))
                << what << ", normal " << i << ": " << testing::PrintToString(mesh.normals[i].x)
                << ' ' << mesh.normals[i].y << ' ' << mesh.normals[i].z;
    }
}

TEST(NormalRepair, StaysFastWithManyVerticesAtOnePlace)
{
    const auto workOf = [](int count) {
        GK_Mesh mesh;
        const double work = WorkOf([&] {
            mesh = GK_Mesh();
            mesh.vertices.SetCount(count);
            mesh.normals.SetCount(count);
            mesh.normals[count - 1] = {0, -2, 0};
            RepairNormals(mesh);
        });
        EXPECT_TRUE(std::all_of(mesh.normals.begin(), mesh.normals.end(), [](const auto& normal) {
            return AreNear(normal, {0, -1, 0});
        }));
        return work;
    };
    constexpr int Count = 6'000;
    EXPECT_LT(workOf(16 * Count), 4 * 16 * workOf(Count));
}

class FinishedMesh : public testing::Test
{
protected:
    /// A tetrahedron with its corner at the origin, facing outward, and one vertex too many.
    FinishedMesh()
    {
        mesh.vertices = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {9, 9, 9}};
        mesh.faces = {{{0, 2, 1, 1}}, {{0, 1, 3, 3}}, {{0, 3, 2, 2}}, {{1, 2, 3, 3}}};
    }

    GK_Mesh mesh;
};

TEST_F(FinishedMesh, DropsListsThatAreNotCompleteAndWhatIsOfNoUse)
{
    mesh.textureCoordinates.SetCount(3);
    mesh.surfaceParameters.SetCount(6);
    mesh.normals.SetCount(4);
    mesh.colors.SetCount(4);
    mesh.faces.Append({{1, 2, 2, 2}});
    EXPECT_TRUE(Finish(&mesh, false));
    EXPECT_EQ(mesh.VertexCount(), 4);
    EXPECT_EQ(mesh.FaceCount(), 4);
    EXPECT_THAT(ListOf(mesh.textureCoordinates), IsEmpty());
    EXPECT_THAT(ListOf(mesh.surfaceParameters), IsEmpty());
    EXPECT_THAT(ListOf(mesh.colors), IsEmpty());
    ASSERT_EQ(mesh.normals.Count(), 4);
    EXPECT_LT(mesh.normals[0].x, -0.5F) << "computed instead";
}

TEST_F(FinishedMesh, AMorphTargetHasComputedNormals)
{
    for (int i = 0; i < 5; ++i)
        mesh.normals.Append({1, 0, 0});
    mesh.faces = {{{0, 1, 2, 2}}};
    EXPECT_TRUE(Finish(&mesh, true));
    EXPECT_THAT(ListOf(mesh.normals), testing::Each(Up));
}

TEST_F(FinishedMesh, RefusesWhatHasNoFaces)
{
    EXPECT_FALSE(Finish(nullptr, false));
    mesh.faces = {{{1, 1, 1, 1}}, {{0, 1, 7, 7}}};
    EXPECT_FALSE(Finish(&mesh, false));
    EXPECT_FALSE(Finish(std::make_unique<GK_Mesh>().get(), false));
}

} // namespace
