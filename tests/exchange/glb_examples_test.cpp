// GLB files of whole imports, compared with the documents that they were made from.

#include "objimport/saved_forms.h"
#include "tests/exchange/glb_reading.h"
#include "tests/whole/session.h"

#include "host/geokit/brep.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

struct Counts
{
    std::size_t vertices = 0;
    std::size_t triangles = 0;
};

Counts CountsOf(const GK_Mesh& mesh)
{
    Counts counts{static_cast<std::size_t>(mesh.VertexCount()), 0};
    for (const GK_MeshFace& face : mesh.faces)
        counts.triangles += face.IsTriangle() ? 1U : 2U;
    return counts;
}

void ExpectMesh(const ReadGlb& glb, const tinygltf::Node& node, const GK_Mesh& mesh)
{
    const Counts counts = CountsOf(mesh);
    const auto positions = glb.Attribute(node, "POSITION");
    EXPECT_EQ(positions.size(), counts.vertices);
    EXPECT_EQ(glb.Values(glb.PrimitiveOf(node).indices).size(), counts.triangles * 3);
    const auto normals = glb.Attribute(node, "NORMAL");
    const auto coordinates = glb.Attribute(node, "TEXCOORD_0");
    EXPECT_EQ(normals.size(), static_cast<std::size_t>(mesh.normals.Count()));
    EXPECT_EQ(coordinates.size(), static_cast<std::size_t>(mesh.textureCoordinates.Count()));
    for (int i = 0; i < mesh.VertexCount(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        EXPECT_EQ(positions[at][1], mesh.vertices[i].y);
        if (!normals.empty()) {
            EXPECT_NEAR(normals[at][2], mesh.normals[i].z, 1e-6);
        }
        if (!coordinates.empty()) {
            EXPECT_EQ(coordinates[at][0], mesh.textureCoordinates[i].x);
            EXPECT_EQ(coordinates[at][1], 1.0F - mesh.textureCoordinates[i].y);
        }
    }
}

void ExpectGeometry(const ReadGlb& glb, const tinygltf::Node& node, const AnyGeometry& geometry)
{
    if (const auto* mesh = std::get_if<const GK_Mesh*>(&geometry))
        return ExpectMesh(glb, node, **mesh);
    if (const auto* point = std::get_if<const GK_3dPoint*>(&geometry)) {
        EXPECT_EQ(glb.PrimitiveOf(node).mode, TINYGLTF_MODE_POINTS);
        EXPECT_EQ(node.translation, (std::vector{(*point)->x, (*point)->y, (*point)->z}));
    }
    if (const auto* cloud = std::get_if<const GK_PointCloud*>(&geometry)) {
        EXPECT_EQ(glb.PrimitiveOf(node).mode, TINYGLTF_MODE_POINTS);
        EXPECT_EQ(glb.Attribute(node, "POSITION").size(),
                  static_cast<std::size_t>((*cloud)->points.Count()));
    }
    if (const auto* curve = std::get_if<const GK_Curve*>(&geometry)) {
        EXPECT_EQ(glb.PrimitiveOf(node).mode, TINYGLTF_MODE_LINE_STRIP);
        const auto line = glb.Attribute(node, "POSITION");
        EXPECT_NEAR(line.front()[0], (*curve)->PointAtStart().x, 1e-6);
        EXPECT_NEAR(line.back()[1], (*curve)->PointAtEnd().y, 1e-6);
    }
}

std::vector<std::string> Texts(const tinygltf::Value& list)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < list.ArrayLen(); ++i)
        texts.push_back(list.Get(static_cast<int>(i)).Get<std::string>());
    return texts;
}

void ExpectAttributes(const ReadGlb& glb, const tinygltf::Node& node,
                      const GK_MdxObjectAttributes& attributes, const ConsoleDoc& doc)
{
    EXPECT_EQ(node.name, attributes.name.Utf8());
    EXPECT_EQ(node.extras.Get("layer").Get<std::string>(),
              doc.Layers()[attributes.layerIndex].name.Utf8());
    std::vector<std::string> groups;
    for (const int group : attributes.Groups())
        groups.push_back(doc.Groups()[group].name.Utf8());
    EXPECT_EQ(Texts(node.extras.Get("groups")), groups);
    EXPECT_EQ(node.extras.Get("source").Get<std::string>(), "example.obj");
    if (node.mesh < 0 || attributes.MaterialSource() != GK::material_from_object)
        return;
    const auto& material =
        glb.model.materials.at(static_cast<std::size_t>(glb.PrimitiveOf(node).material));
    EXPECT_EQ(material.name, doc.Materials()[attributes.materialIndex].Name().Utf8());
}

using GlbExamples = testing::TestWithParam<std::string>;

TEST_P(GlbExamples, HoldTheDocument)
{
    for (const char* switches : {"--groups groups", "--groups layers --z-up"}) {
        Session session;
        session.SetOptions(switches);
        session.Import(GetParam());
        const ConsoleDoc& doc = session.Doc();
        const ReadGlb glb = WriteAndRead(ViewForExchange(doc, {{{"example.obj", 0}}, false}));
        ASSERT_EQ(glb.model.nodes.size(), static_cast<std::size_t>(doc.ObjectCount()));
        for (int i = 0; i < doc.ObjectCount(); ++i) {
            const tinygltf::Node& node = glb.Node(static_cast<std::size_t>(i));
            ExpectAttributes(glb, node, *doc.Object(i).attributes, doc);
            ExpectGeometry(glb, node, doc.Object(i).geometry);
        }
    }
}

std::string ExampleName(const testing::TestParamInfo<std::string>& info)
{
    return std::filesystem::path(info.param).stem().string();
}

INSTANTIATE_TEST_SUITE_P(Examples, GlbExamples,
                         testing::ValuesIn(FilesIn(PROJECT_FOLDER "/examples/", ".obj")),
                         ExampleName);

} // namespace
