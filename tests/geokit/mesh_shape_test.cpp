#include "host/geokit/mesh.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace {

using testing::ElementsAre;

constexpr float NotANumber = std::numeric_limits<float>::quiet_NaN();

GK_Mesh MakeMesh(std::initializer_list<GK_3fPoint> points, std::initializer_list<GK_MeshFace> faces)
{
    GK_Mesh mesh;
    mesh.vertices = points;
    mesh.faces = faces;
    return mesh;
}

GK_MeshFace Triangle(int a, int b, int c)
{
    return {{a, b, c, c}};
}

GK_Mesh Tetrahedron()
{
    return MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                    {Triangle(0, 2, 1), Triangle(0, 1, 3), Triangle(1, 2, 3), Triangle(2, 0, 3)});
}

void AppendCube(GK_Mesh& mesh, float x, float y)
{
    const int first = mesh.VertexCount();
    for (const float z : {0.0F, 1.0F})
        for (const auto& [dx, dy] :
             {std::pair{0.0F, 0.0F}, {1.0F, 0.0F}, {1.0F, 1.0F}, {0.0F, 1.0F}})
            mesh.vertices.Append({x + dx, y + dy, z});
    const std::array<int, 4> faces[] = {{3, 2, 1, 0}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                        {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
    for (std::array<int, 4> face : faces) {
        for (int& vertex : face)
            vertex += first;
        mesh.faces.Append({face});
    }
}

GK_Mesh Cube()
{
    GK_Mesh mesh;
    AppendCube(mesh, 0.0F, 0.0F);
    return mesh;
}

/// Every face with vertices of its own.
GK_Mesh Unwelded(const GK_Mesh& mesh)
{
    GK_Mesh apart;
    for (GK_MeshFace face : mesh.faces) {
        for (int& vertex : face.vi) {
            apart.vertices.Append(mesh.vertices[vertex]);
            vertex = apart.VertexCount() - 1;
        }
        if (mesh.faces[apart.FaceCount()].IsTriangle())
            face.vi[3] = face.vi[2];
        apart.faces.Append(face);
    }
    return apart;
}

} // namespace

TEST(MeshTopology, EqualPositionsAreOneVertex)
{
    const GK_3fPoint points[] = {{1, 0, 0},          {0, 0, 5},     {1, 0, 0},
                                 {NotANumber, 0, 0}, {-0.0F, 0, 5}, {NotANumber, 0, 0},
                                 {1, -0.0F, 0},      {0, 0, -5}};
    const GK_MeshTopology topology(points);
    const int expected[] = {0, 1, 0, 2, 1, 3, 0, 4};
    ASSERT_EQ(topology.VertexCount(), 5);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(topology.TopologicalVertex(i), expected[i]) << i;
    EXPECT_THAT(topology.MeshVertices(0), ElementsAre(0, 2, 6));
    EXPECT_THAT(topology.MeshVertices(1), ElementsAre(1, 4));
    EXPECT_THAT(topology.MeshVertices(4), ElementsAre(7));
    EXPECT_EQ(GK_MeshTopology({}).VertexCount(), 0);
}

TEST(MeshTopology, RandomPositionsAgainstAllPairs)
{
    std::mt19937 random(1);
    for (const int range : {1, 4, 12, 1000}) {
        std::uniform_int_distribution<int> coordinate(-range, range);
        std::vector<GK_3fPoint> points;
        for (int i = 0; i < 500; ++i)
            points.emplace_back(static_cast<float>(coordinate(random)),
                                static_cast<float>(coordinate(random)), 0.0F);
        const GK_MeshTopology topology(points);
        int next = 0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            const auto first = static_cast<std::size_t>(
                std::find(points.begin(), points.end(), points[i]) - points.begin());
            const int expected =
                first == i ? next++ : topology.TopologicalVertex(static_cast<int>(first));
            ASSERT_EQ(topology.TopologicalVertex(static_cast<int>(i)), expected);
        }
        EXPECT_EQ(topology.VertexCount(), next);
    }
}

TEST(Mesh, IsClosed)
{
    GK_Mesh withoutLid = Cube();
    withoutLid.faces.SetCount(5);
    GK_Mesh twoCubesWithOneEdge = Cube();
    AppendCube(twoCubesWithOneEdge, 1.0F, 1.0F);
    GK_Mesh twoCubesApart = Cube();
    AppendCube(twoCubesApart, 5.0F, 0.0F);
    GK_Mesh doubled = Cube();
    AppendCube(doubled, 0.0F, 0.0F);
    GK_Mesh outOfRange = Cube();
    outOfRange.faces[5].vi[1] = 8;
    GK_Mesh withNotANumber = Unwelded(Cube());
    withNotANumber.vertices[3].x = NotANumber;
    GK_Mesh halfTriangles = Cube();
    halfTriangles.faces[0] = Triangle(3, 2, 1);
    halfTriangles.faces.Append(Triangle(3, 1, 0));
    struct Case
    {
        const char* name;
        GK_Mesh mesh;
        bool closed;
    };
    Case cases[] = {
        {"nothing", {}, false},
        {"one triangle", MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {Triangle(0, 1, 2)}), false},
        {"two sides of a triangle",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {Triangle(0, 1, 2), Triangle(0, 2, 1)}), true},
        {"a triangle four times",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
                  {Triangle(0, 1, 2), Triangle(0, 2, 1), Triangle(0, 1, 2), Triangle(0, 2, 1)}),
         false},
        {"faces folded onto one edge",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{{0, 1, 0, 1}}, {{0, 0, 1, 1}}}), true},
        {"a face folded onto one edge",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {Triangle(0, 1, 0)}), false},
        {"tetrahedron", Tetrahedron(), true},
        {"tetrahedron, faces apart", Unwelded(Tetrahedron()), true},
        {"cube", Cube(), true},
        {"cube, faces apart", Unwelded(Cube()), true},
        {"cube, one side two triangles", std::move(halfTriangles), true},
        {"cube without a lid", std::move(withoutLid), false},
        {"cubes that share an edge", std::move(twoCubesWithOneEdge), false},
        {"cubes apart", std::move(twoCubesApart), true},
        {"a cube twice", std::move(doubled), false},
        {"an index out of range", std::move(outOfRange), false},
        {"a corner that is not a number", std::move(withNotANumber), false},
    };
    for (Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.mesh.IsClosed(), c.closed);
        c.mesh.Flip();
        EXPECT_EQ(c.mesh.IsClosed(), c.closed);
    }
}

TEST(Mesh, IsClosedWithAVertexOfManyEdges)
{
    // A bipyramid: the two tips have an edge to each corner of the rim.
    constexpr int Rim = 50000;
    GK_Mesh mesh = MakeMesh({{0, 0, 1}, {0, 0, -1}}, {});
    for (int i = 0; i < Rim; ++i) {
        mesh.vertices.Append({static_cast<float>(i), static_cast<float>(i % 7), 0});
        const int next = 2 + (i + 1) % Rim;
        mesh.faces.Append(Triangle(0, 2 + i, next));
        mesh.faces.Append(Triangle(1, next, 2 + i));
    }
    EXPECT_TRUE(mesh.IsClosed());
    mesh.faces.SetCount(mesh.FaceCount() - 1);
    EXPECT_FALSE(mesh.IsClosed());
}

TEST(Mesh, VolumeIsThatOfTheSolid)
{
    EXPECT_NEAR(Tetrahedron().Volume(GK_origin, nullptr), 1.0 / 6.0, 1e-12);
    GK_Mesh cube = Cube();
    EXPECT_DOUBLE_EQ(cube.Volume({7, -3, 2}, nullptr), 1.0);
    cube.Flip();
    EXPECT_DOUBLE_EQ(cube.Volume(GK_origin, nullptr), -1.0);
    // Far away the sign still holds.
    GK_Mesh far;
    AppendCube(far, 4194304.0F, -4194304.0F);
    EXPECT_NEAR(far.Volume(GK_origin, nullptr), 1.0, 1e-6);
    // A bent quad is folded between its first and third corners.
    const GK_Mesh bent = MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}}, {{{0, 1, 2, 3}}});
    EXPECT_DOUBLE_EQ(bent.Volume({0, 0, 3}, nullptr), -1.0);
}

TEST(Mesh, FlipKeepsFirstCornersAndPolygonFaces)
{
    GK_Mesh mesh =
        MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {Triangle(0, 1, 2), {{0, 1, 2, 3}}});
    mesh.normals.Append({0, 0.6F, -0.8F});
    const GK_MeshNgon ngon = mesh.ModifyNgonList()->AddNgon(4);
    std::copy_n(mesh.faces[1].vi.begin(), 4, ngon.vi.begin());
    ngon.fi[0] = 1;
    ngon.fi[1] = 0;
    mesh.Flip();
    EXPECT_THAT(mesh.faces[0].vi, ElementsAre(0, 2, 1, 1));
    EXPECT_THAT(mesh.faces[1].vi, ElementsAre(0, 3, 2, 1));
    EXPECT_THAT(mesh.NgonList()->Ngon(0).vi, ElementsAre(0, 3, 2, 1));
    EXPECT_THAT(mesh.NgonList()->Ngon(0).fi, ElementsAre(1, 0));
    EXPECT_EQ(mesh.normals[0], (GK_3fVector{0, -0.6F, 0.8F}));
    EXPECT_FALSE(std::signbit(mesh.normals[0].x));
}

TEST(Mesh, TransformMovesVerticesAndTurnsNormals)
{
    GK_Xform yUpToZUp;
    yUpToZUp.m[1][1] = yUpToZUp.m[2][2] = 0.0;
    yUpToZUp.m[1][2] = -1.0;
    yUpToZUp.m[2][1] = 1.0;
    yUpToZUp.m[0][3] = 10.0;
    GK_Mesh mesh = MakeMesh({{1, 2, 3}}, {});
    mesh.normals.Append({0, 1, 0});
    mesh.DoublePrecisionVertices().Append({1, 2, 3});
    mesh.SetDoublePrecisionVerticesAsValid();
    mesh.Transform(yUpToZUp);
    EXPECT_EQ(mesh.vertices[0], GK_3fPoint(11, -3, 2));
    EXPECT_EQ(mesh.DoublePrecisionVertices()[0], (GK_3dPoint{11, -3, 2}));
    EXPECT_EQ(mesh.normals[0], (GK_3fVector{0, 0, 1}));
}

TEST(Mesh, ComputeVertexNormals)
{
    constexpr float Largest = std::numeric_limits<float>::max();
    constexpr float Smallest = std::numeric_limits<float>::denorm_min();
    const float third = std::sqrt(1.0F / 3.0F);
    const float half = std::sqrt(0.5F);
    const float sixth = std::sqrt(1.0F / 6.0F);
    struct Case
    {
        const char* name;
        GK_Mesh mesh;
        std::vector<GK_3fVector> normals;
    };
    Case cases[] = {
        {"tetrahedron: each face counts the same",
         Tetrahedron(),
         {{-third, -third, -third},
          {(third - 0) / std::hypot(third, third - 1, third - 1),
           (third - 1) / std::hypot(third, third - 1, third - 1),
           (third - 1) / std::hypot(third, third - 1, third - 1)},
          {},
          {}}},
        {"a quad that is not flat: its diagonals",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}}, {{{0, 1, 2, 3}}}),
         {{-sixth, -sixth, 2 * sixth}}},
        {"two sides cancel, an unused vertex",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 0, 1}, {9, 9, 9}},
                  {Triangle(0, 1, 2), Triangle(0, 2, 1)}),
         {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}}},
        {"no area, indices out of range",
         MakeMesh({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {0, 0, 1}},
                  {Triangle(0, 1, 2), Triangle(0, 1, 7), Triangle(-1, 1, 3), Triangle(0, 1, 3)}),
         {{half, -half, 0}, {half, -half, 0}, {0, 0, 1}, {half, -half, 0}}},
        {"a vertex named twice counts once",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                  {{{0, 0, 1, 2}}, Triangle(0, 2, 3)}),
         {{half, 0, half}, {0, 0, 1}, {half, 0, half}, {1, 0, 0}}},
        {"huge",
         MakeMesh({{-Largest, 0, -Largest}, {Largest, 0, -Largest}, {0, 0, Largest}},
                  {Triangle(0, 1, 2)}),
         {{0, -1, 0}, {0, -1, 0}, {0, -1, 0}}},
        {"tiny",
         MakeMesh({{0, 0, 0}, {0, Smallest, 0}, {0, 0, Smallest}}, {Triangle(0, 1, 2)}),
         {{1, 0, 0}, {1, 0, 0}, {1, 0, 0}}},
        {"not a number",
         MakeMesh({{0, 0, 0}, {NotANumber, 0, 0}, {0, 1, 0}}, {Triangle(0, 1, 2)}),
         {{0, 0, 1}, {0, 0, 1}, {0, 0, 1}}},
    };
    for (Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.mesh.ComputeVertexNormals();
        ASSERT_TRUE(c.mesh.HasVertexNormals());
        for (int i = 0; i < static_cast<int>(c.normals.size()); ++i) {
            EXPECT_TRUE(c.mesh.normals[i].IsUnitVector());
            const GK_3fVector& expected = c.normals[static_cast<std::size_t>(i)];
            if (!expected.IsUnitVector())
                continue;
            EXPECT_NEAR(c.mesh.normals[i].x, expected.x, 1e-6) << i;
            EXPECT_NEAR(c.mesh.normals[i].y, expected.y, 1e-6) << i;
            EXPECT_NEAR(c.mesh.normals[i].z, expected.z, 1e-6) << i;
        }
    }
}

TEST(Mesh, NormalsComeFromTheDoublePrecisionVertices)
{
    GK_Mesh mesh = MakeMesh({}, {Triangle(0, 1, 2)});
    mesh.DoublePrecisionVertices() = {{0, 0, 0}, {1e200, 0, 0}, {0, 1e200, 0}};
    mesh.UpdateSinglePrecisionVertices();
    mesh.SetDoublePrecisionVerticesAsValid();
    mesh.ComputeVertexNormals();
    EXPECT_EQ(mesh.normals[1], (GK_3fVector{0, 0, 1}));
}
