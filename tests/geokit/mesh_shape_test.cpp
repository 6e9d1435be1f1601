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

/// Returns the mesh with vertices of its own for every face.
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
    std::mt19937 random(1);
    for (const unsigned int range : {2U, 12U, 1000U}) {
        const auto coordinate = [&] {
            const auto size = static_cast<float>(random() % range);
            return random() % 2 == 0 ? size : -size; // 0 and -0 are equal
        };
        GK_SimpleArray<GK_3fPoint> points;
        for (int i = 0; i < 500; ++i)
            points.Append({coordinate(), coordinate(), 0.0F});
        points[3].x = points[4].x = NotANumber; // equal to nothing
        std::vector<std::vector<int>> expected;
        for (int i = 0; i < 500; ++i) {
            const auto equal =
                std::find_if(expected.begin(), expected.end(), [&](const std::vector<int>& known) {
                    return points[known.front()] == points[i];
                });
            if (equal == expected.end())
                expected.push_back({i});
            else
                equal->push_back(i);
        }
        const GK_MeshTopology topology({points.begin(), points.end()});
        ASSERT_EQ(topology.VertexCount(), static_cast<int>(expected.size()));
        int vertex = 0;
        for (const std::vector<int>& equal : expected) {
            for (const int i : equal)
                EXPECT_EQ(topology.TopologicalVertex(i), vertex);
            ++vertex;
        }
    }
    EXPECT_EQ(GK_MeshTopology({}).VertexCount(), 0);
}

TEST(Mesh, IsClosed)
{
    const auto triangles = [](std::initializer_list<GK_MeshFace> faces) {
        return MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, faces);
    };
    const GK_MeshFace front = Triangle(0, 1, 2);
    const GK_MeshFace back = Triangle(0, 2, 1);
    GK_Mesh withNotANumber = Unwelded(Cube());
    withNotANumber.vertices[3].x = NotANumber;
    const auto changedCube = [](auto change) {
        GK_Mesh cube = Cube();
        change(cube);
        return cube;
    };
    struct Case
    {
        const char* name;
        bool closed;
        GK_Mesh mesh;
    };
    Case cases[] = {
        {"nothing", false, {}},
        {"one triangle", false, triangles({front})},
        {"two sides of a triangle", true, triangles({front, back})},
        {"a triangle four times", false, triangles({front, back, front, back})},
        {"faces folded onto one edge", true, triangles({{{0, 1, 0, 1}}, {{0, 0, 1, 1}}})},
        {"a face folded onto one edge", false, triangles({Triangle(0, 1, 0)})},
        {"tetrahedron, faces apart", true, Unwelded(Tetrahedron())},
        {"cube", true, Cube()},
        {"cube, faces apart", true, Unwelded(Cube())},
        {"cube without a lid", false, changedCube([](GK_Mesh& cube) { cube.faces.SetCount(5); })},
        {"cubes that share an edge", false,
         changedCube([](GK_Mesh& cube) { AppendCube(cube, 1.0F, 1.0F); })},
        {"an index out of range", false,
         changedCube([](GK_Mesh& cube) { cube.faces[5].vi[1] = 8; })},
        {"a corner that is not a number", false, std::move(withNotANumber)},
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
    struct Case
    {
        const char* name;
        GK_Mesh mesh;
        GK_3dVector direction; ///< of the first vertex's normal
    };
    Case cases[] = {
        {"each face counts the same",
         MakeMesh({{0, 0, 0}, {-2, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                  {Triangle(0, 1, 2), Triangle(0, 3, 1), Triangle(0, 2, 3), Triangle(0, 1, 2)}),
         {1, -1, -2}},
        {"a quad that is not flat: its diagonals",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 0}}, {{{0, 1, 2, 3}}}),
         {-1, -1, 2}},
        {"two sides cancel",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 0, 1}}, {Triangle(0, 1, 2), Triangle(0, 2, 1)}),
         {0, 0, 1}},
        {"no area, indices out of range",
         MakeMesh({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {0, 0, 1}},
                  {Triangle(0, 1, 2), Triangle(0, 1, 7), Triangle(-1, 1, 3), Triangle(0, 1, 3)}),
         {1, -1, 0}},
        {"a vertex named twice counts once",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                  {{{0, 0, 1, 2}}, Triangle(0, 2, 3)}),
         {1, 0, 1}},
        {"first and last",
         MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                  {{{0, 1, 2, 0}}, Triangle(0, 2, 3)}),
         {1, 0, 1}},
        {"huge",
         MakeMesh({{-Largest, 0, -Largest}, {Largest, 0, -Largest}, {0, 0, Largest}},
                  {Triangle(0, 1, 2)}),
         {0, -1, 0}},
        {"tiny",
         MakeMesh({{0, 0, 0}, {0, Smallest, 0}, {0, 0, Smallest}}, {Triangle(0, 1, 2)}),
         {1, 0, 0}},
        {"not a number",
         MakeMesh({{0, 0, 0}, {NotANumber, 0, 0}, {0, 1, 0}}, {Triangle(0, 1, 2)}),
         {0, 0, 1}},
    };
    for (Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.mesh.ComputeVertexNormals();
        ASSERT_TRUE(c.mesh.HasVertexNormals());
        for (const GK_3fVector& normal : c.mesh.normals)
            EXPECT_TRUE(normal.IsUnitVector());
        const auto [x, y, z] = c.mesh.normals[0];
        EXPECT_NEAR(GK_DotProduct({x, y, z}, c.direction), c.direction.Length(), 1e-6);
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
