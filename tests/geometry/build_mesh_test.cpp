#include "tests/objreader/reader_test.h"

#include <gmock/gmock.h>
#include <map>
#include <random>

namespace {

using testing::IsEmpty;

/// Position i stands at (i, i * i, 0), texture coordinate i is (i, 0), normal i is (0, 0, i): what
/// a mesh vertex was made of can be read off it.
std::string Lists(int count)
{
    std::string lists;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        lists.append("v ").append(number).append(" ").append(std::to_string(i * i)).append(" 0\n");
        lists.append("vt ").append(number).append(" 0\nvn 0 0 ").append(number).append("\n");
    }
    return lists;
}

/// The mesh vertices as "v/vt/vn"; texture coordinates and normals are left out where the mesh has
/// not one for each vertex.
std::string ShownVertices(const GK_Mesh& mesh)
{
    std::vector<V_TN_IDX> corners;
    for (int i = 0; i < mesh.VertexCount(); ++i) {
        V_TN_IDX corner{.vi = static_cast<int>(mesh.vertices[i].x)};
        if (mesh.textureCoordinates.Count() == mesh.VertexCount())
            corner.ti = static_cast<int>(mesh.textureCoordinates[i].x);
        if (mesh.normals.Count() == mesh.VertexCount())
            corner.ni = static_cast<int>(mesh.normals[i].z);
        corners.push_back(corner);
    }
    return Shown(corners);
}

std::string Joined(std::span<const int> numbers)
{
    std::string joined;
    for (const int number : numbers)
        joined += (joined.empty() ? "" : ",") + std::to_string(number);
    return joined;
}

std::string ShownFaces(const GK_Mesh& mesh)
{
    std::string shown;
    for (const GK_MeshFace& face : mesh.faces)
        shown += (shown.empty() ? "" : " ") + Joined(face.vi);
    return shown;
}

std::string ShownNgons(const GK_Mesh& mesh)
{
    std::string shown;
    for (int i = 0; mesh.NgonList() != nullptr && i < mesh.NgonList()->Count(); ++i) {
        const GK_MeshConstNgon ngon = mesh.NgonList()->Ngon(i);
        shown += (shown.empty() ? "" : " ") + Joined(ngon.vi) + ':' + Joined(ngon.fi);
    }
    return shown;
}

class BuildMesh : public ReaderTest
{
protected:
    /// Builds the mesh of the only record.
    static const GK_Mesh& Build(CReadOBJ& reader)
    {
        EXPECT_TRUE(reader.BuildMesh(*reader.currentGroup));
        const GK_Mesh& mesh = *reader.currentGroup->geometry->mesh;
        EXPECT_TRUE(mesh.DoublePrecisionVerticesAreValid());
        EXPECT_EQ(mesh.DoublePrecisionVertices().Count(), mesh.VertexCount());
        return mesh;
    }

    static std::vector<std::string> KernelErrors()
    {
        std::vector<std::string> errors;
        for (const ImportJournal::KernelError& error : Journal().kernelErrors)
            errors.push_back(error.source + ": " + error.text);
        return errors;
    }
};

const std::string BogusVertex = "mesh: Bogus vertex index.\n";

TEST_F(BuildMesh, MakesAVertexForEachDistinctCornerAndAFaceForEachFace)
{
    const struct
    {
        const char* what;
        const char* statements;
        const char* vertices;
        const char* faces;
        std::vector<std::string> errors = {};
    } cases[] = {
        {"two triangles share vertices", "f 1/1/1 2/2/1 3/3/1\nf 1/1/1 3/3/1 4/4/1",
         "0/0/0 1/1/0 2/2/0 3/3/0", "0,1,2,2 0,2,3,3"},
        {"a position with two texture coordinates", "f 1/1 2/2 3/3\nf 1/4 3/3 2/2",
         "0/0/ 0/3/ 1/1/ 2/2/", "0,2,3,3 1,3,2,2"},
        {"sorted by position, normal, texture coordinate",
         "f 9/1/1 2/3/1 2/1/3\nf 2/2/2 2/3/2 1/1/1", "0/0/0 1/2/0 1/1/1 1/2/1 1/0/2 8/0/0",
         "5,1,4,4 2,3,0,0"},
        {"triangles and quads", "f 4 3 2 1\nf 5 6 7", "0// 1// 2// 3// 4// 5// 6//",
         "3,2,1,0 4,5,6,6"},
        {"unused positions", "f 8 3 5", "2// 4// 7//", "2,0,1,1"},
        {"some corners without normals", "f 1//1 2//1 3//1\nf 1 2 3", "0// 0// 1// 1// 2// 2//",
         "1,3,5,5 0,2,4,4"},
        {"a corner of nothing leaves its face",
         "f 1 99 2 3\nf 1 2 99\nf 1 2 99 98",
         "0// 1// 2//",
         "0,1,2,2",
         {BogusVertex}},
        {"corners of nothing are told once each",
         "f 0/1 2/1 3/1 4/1\nf /2 2/1 3/1 4/1",
         "1/0/ 2/0/ 3/0/",
         "0,1,2,2 0,1,2,2",
         {BogusVertex, BogusVertex}},
        {"no usable face", "f 1 2 99", "0// 1//", "", {BogusVertex}},
        {"a rejected face keeps the corners before its fault",
         "f 1 2 3 4/4 5",
         "0// 1// 2//",
         "0,1,2,2",
         {BogusVertex}},
        {"repaired or not, faces stay", "f 1 1 2 3\nf 1 2 3 1\nf 4 4 4\nf 1 2 1 2",
         "0// 1// 2// 3//", "0,1,2,2 0,1,2,2 3,3,3,3 0,1,0,1"},
    };
    for (const auto& [what, statements, vertices, faces, errors] : cases) {
        SCOPED_TRACE(what);
        const GK_Mesh& mesh = Build(Parsed(Lists(10) + statements));
        EXPECT_EQ(ShownVertices(mesh), vertices);
        EXPECT_EQ(ShownFaces(mesh), faces);
        EXPECT_EQ(ShownNgons(mesh), "");
        EXPECT_EQ(KernelErrors(), errors);
    }
}

TEST_F(BuildMesh, PolygonsBecomeTrianglesAndAreKeptAsNgons)
{
    const GK_Mesh& mesh = Build(Parsed(Lists(10) + "f 9 1 2\nf 2 4 6 8 10\nf 7 8 99 9 10\n"
                                                   "f 1 99 3 5 7 9\nf 1 2 3"));
    EXPECT_EQ(ShownVertices(mesh), "0// 1// 2// 3// 4// 5// 6// 7// 8// 9//");
    EXPECT_EQ(ShownNgons(mesh), "1,3,5,7,9:1,2,3 0,2,4,6,8:5,6,7");
    ASSERT_EQ(mesh.FaceCount(), 9);
    const auto isFace = [&mesh](int index, GK_MeshFace face) { return mesh.faces[index] == face; };
    EXPECT_TRUE(isFace(0, {{8, 0, 1, 1}}) && isFace(4, {{6, 7, 8, 9}}) &&
                isFace(8, {{0, 1, 2, 2}}));
    for (const int face : {1, 2, 3, 5, 6, 7}) {
        EXPECT_TRUE(mesh.faces[face].IsTriangle());
        EXPECT_TRUE(mesh.faces[face].IsValid(mesh.VertexCount(), mesh.vertices.Array()));
        for (const int vertex : mesh.faces[face].vi)
            EXPECT_EQ(vertex % 2, face < 4 ? 1 : 0) << "a triangle of the polygon's own corners";
    }
}

TEST_F(BuildMesh, APolygonThatCannotBeTriangulatedBecomesAFan)
{
    const GK_Mesh& mesh = Build(Parsed(Lists(4) + "v nan 0 0\nf 1 5 4 3 2"));
    EXPECT_EQ(ShownFaces(mesh), "0,4,3,3 0,3,2,2 0,2,1,1");
    EXPECT_EQ(ShownNgons(mesh), "0,4,3,2,1:0,1,2");
}

TEST_F(BuildMesh, WithoutCornersThereIsNoMesh)
{
    for (const char* const statements : {"f 1 2", "p 1", "", "g a"}) {
        CReadOBJ& reader = Parsed(Lists(3) + statements);
        EXPECT_FALSE(reader.BuildMesh(*reader.currentGroup)) << statements;
    }
}

TEST_F(BuildMesh, ColoursComeFromTheirPositions)
{
    const struct
    {
        const char* text;
        std::vector<int> reds;
        std::size_t errors;
    } cases[] = {
        {"v 0 0 0 2 0 0\nv 1 0 0 3 0 0\nv 0 1 0 4 0 0\nv 1 1 0 5 0 0\nf 4 3 2", {3, 4, 5}, 0},
        // Not every position has a colour: what there is goes by its place in the list.
        {"v 0 0 0 2 0 0\nv 1 0 0\nv 0 1 0 4 0 0\nf 1 2 3", {2, 4}, 1},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3", {}, 0},
    };
    for (const auto& [text, reds, errors] : cases) {
        const GK_Mesh& mesh = Build(Parsed(text));
        std::vector<int> meshReds;
        for (const GK_Color& color : mesh.colors)
            meshReds.push_back(color.Red());
        EXPECT_EQ(meshReds, reds) << text;
        EXPECT_EQ(KernelErrors(), std::vector<std::string>(errors, "mesh: Bogus color index.\n"));
    }
}

TEST_F(BuildMesh, ListsThatDoNotFitAreTold)
{
    CReadOBJ& reader = Parsed(Lists(3) + "f 1/1/1 2/2/2 3/3/3");
    GK_SimpleArray<V_TN_IDX>& corners = reader.currentGroup->geometry->corners;
    corners[0].ni = 3;
    corners[1].ti = 3;
    corners[2].vi = 3;
    const GK_Mesh& mesh = Build(reader);
    EXPECT_EQ(KernelErrors(),
              (std::vector<std::string>{"mesh: Bogus normal index.\n",
                                        "mesh: Bogus texture index.\n", BogusVertex}));
    EXPECT_EQ(mesh.normals.Count(), 1);
    EXPECT_THAT(ListOf(mesh.textureCoordinates), IsEmpty());
}

/// Meshes of random faces against a map from corners to vertices.
TEST_F(BuildMesh, RandomFacesAreThoseOfASimpleReference)
{
    std::mt19937 random(5);
    const std::string lists = Lists(60);
    for (const unsigned int positions : {8U, 60U}) {
        std::vector<std::vector<std::array<int, 3>>> faces(positions == 8 ? 80 : 6);
        std::map<std::array<int, 3>, int> vertices; ///< by position, normal, texture coordinate
        std::string text = lists;
        for (auto& face : faces) {
            text += 'f';
            for (auto left = 3 + random() % 4; left > 0; --left) {
                const auto draw = [&random](unsigned int n) {
                    return static_cast<int>(random() % n);
                };
                face.push_back({draw(positions), draw(3), draw(3)});
                const auto& [vi, ni, ti] = face.back();
                text += ' ' + std::to_string(vi + 1) + '/' + std::to_string(ti + 1) + '/' +
                        std::to_string(ni + 1);
                vertices[face.back()] = 0;
            }
            text += '\n';
        }

        std::vector<V_TN_IDX> expected;
        for (auto& [corner, vertex] : vertices) {
            vertex = static_cast<int>(expected.size());
            expected.push_back({.vi = corner[0], .ti = corner[2], .ni = corner[1]});
        }
        const GK_Mesh& mesh = Build(Parsed(text));
        EXPECT_EQ(ShownVertices(mesh), Shown(expected));

        int meshFace = 0;
        int ngon = 0;
        for (const auto& face : faces) {
            std::vector<int> s;
            s.reserve(face.size());
            for (const auto& corner : face)
                s.push_back(vertices[corner]);
            if (s.size() > 4) {
                EXPECT_EQ(Joined(mesh.NgonList()->Ngon(ngon++).vi), Joined(s));
                meshFace += static_cast<int>(s.size()) - 2;
                continue;
            }
            GK_MeshFace simple{{s[0], s[1], s[2], s.back()}};
            if (!simple.IsValid(mesh.VertexCount(), mesh.vertices.Array()))
                simple.Repair(mesh.VertexCount(), mesh.vertices.Array());
            EXPECT_EQ(mesh.faces[meshFace++], simple);
        }
        EXPECT_EQ(mesh.FaceCount(), meshFace);
    }
}

} // namespace
