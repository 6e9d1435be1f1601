// What a plain reading of a file counts is what the document holds.
//
// COUNT_FOLDER=path in the environment counts the files of that folder too; files with faults, or
// with faces that have no area, do not agree by their nature.

#include "tests/whole/plain_reading.h"
#include "tests/whole/session.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

struct Counter
{
    Counts counts;

    void operator()(const GK_Curve*) const {}
    void operator()(const GK_Brep*) const {}
    void operator()(const GK_3dPoint*) { ++counts.points; }

    void operator()(const GK_Mesh* mesh)
    {
        ++counts.meshes;
        counts.vertices += mesh->VertexCount();
        counts.faces += mesh->FaceCount();
        counts.ngons += mesh->NgonList() != nullptr ? mesh->NgonList()->Count() : 0;
    }

    void operator()(const GK_PointCloud* cloud)
    {
        ++counts.clouds;
        counts.cloudPoints += cloud->points.Count();
    }
};

Counts CountDocument(const ConsoleDoc& doc)
{
    Counter counter;
    for (int i = 0; i < doc.ObjectCount(); ++i)
        std::visit(counter, doc.Object(i).geometry);
    counter.counts.groups = doc.Groups().Count();
    counter.counts.materials = doc.Materials().Count();
    return counter.counts;
}

/// Returns the examples without those that are faulty on purpose.
std::vector<std::string> SoundFiles()
{
    std::vector<std::string> files = FilesIn(PROJECT_FOLDER "/examples", ".obj");
    std::erase_if(files, [](const std::string& path) {
        return path.ends_with("/faulty.obj") || path.ends_with("/textured.obj");
    });
    if (const char* folder = std::getenv("COUNT_FOLDER"); folder != nullptr)
        for (const std::string& file : FilesIn(folder, ".obj"))
            files.push_back(file);
    return files;
}

TEST(Counts, AgreeWithAPlainReading)
{
    for (const std::string& path : SoundFiles()) {
        SCOPED_TRACE(path);
        Session session;
        EXPECT_TRUE(session.Import(path));
        const Counts expected = ReadPlainly(path);
        const Counts counts = CountDocument(session.Doc());
        EXPECT_EQ(counts.meshes, expected.meshes);
        EXPECT_EQ(counts.vertices, expected.vertices);
        EXPECT_EQ(counts.faces, expected.faces);
        EXPECT_EQ(counts.ngons, expected.ngons);
        EXPECT_EQ(counts.points, expected.points);
        EXPECT_EQ(counts.clouds, expected.clouds);
        EXPECT_EQ(counts.cloudPoints, expected.cloudPoints);
        EXPECT_EQ(counts.groups, expected.groups);
        EXPECT_EQ(counts.materials, expected.materials);
    }
}

} // namespace
