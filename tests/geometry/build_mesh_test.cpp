#include "geometry/mesh_builder.h"
#include "tests/geometry/document_test.h"

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

/// Returns the mesh vertices as "v/vt/vn"; texture coordinates and normals are left out where the
/// mesh has not one for each vertex.
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

class BuildMesh : public DocumentTest
{
protected:
    /// Builds the mesh of the only record.
    const GK_Mesh& MeshOf(const ReadText& text)
    {
        StageTimes times;
        StageLaps laps(times);
        Inconsistencies inconsistencies;
        m_mesh = MeshBuilder(text.file.lists)
                     .BuildMesh(text.CurrentGeometry(), nullptr, inconsistencies, laps);
        inconsistencies.Report();
        EXPECT_TRUE(m_mesh->DoublePrecisionVerticesAreValid());
        EXPECT_EQ(m_mesh->DoublePrecisionVertices().Count(), m_mesh->VertexCount());
        for (const std::size_t direction : {0U, 1U}) {
            EXPECT_EQ(m_mesh->surfaceParameterDomain[direction], GK_Interval(0, 1));
            EXPECT_EQ(m_mesh->packedTextureDomain[direction], GK_Interval(0, 1));
        }
        return *m_mesh;
    }

    static std::vector<std::string> KernelErrors()
    {
        std::vector<std::string> errors;
        for (const ImportJournal::KernelError& error : Journal().kernelErrors)
            errors.insert(errors.end(), static_cast<std::size_t>(error.times),
                          error.source + ": " + error.text);
        return errors;
    }

private:
    std::unique_ptr<GK_Mesh> m_mesh;
};

const std::string BogusVertex = "mesh: Bogus vertex index.\n";

TEST_F(BuildMesh, ListsThatDoNotFitAreReported)
{
    const ReadText text(Lists(3) + "f 1/1/1 2/2/2 3/3/3");
    GK_SimpleArray<int>& values = text.CurrentGeometry().faces[0].block->values;
    for (int corner = 0; corner < 3; ++corner)
        values[3 * corner + (2 - corner)] = 3;
    const GK_Mesh& mesh = MeshOf(text);
    EXPECT_EQ(KernelErrors(),
              (std::vector<std::string>{"mesh: Bogus normal index.\n",
                                        "mesh: Bogus texture index.\n", BogusVertex}));
    EXPECT_THAT(ListOf(mesh.normals), IsEmpty());
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
        const GK_Mesh& mesh = MeshOf(ReadText(text));
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
