#include "bench/scenes.h"
#include "tests/bench/imported_scene.h"
#include "tests/temporary_folder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

/// Returns how many lines of a text begin so.
int LinesThatBegin(const std::string& text, std::string_view beginning)
{
    int count = 0;
    for (std::size_t line = 0; line < text.size(); line = text.find('\n', line) + 1)
        count += static_cast<int>(text.compare(line, beginning.size(), beginning) == 0);
    return count;
}

const Scene& SceneNamed(const std::vector<Scene>& scenes, std::string_view name)
{
    return *std::ranges::find(scenes, name, &Scene::name);
}

class ScenesTest : public testing::Test
{
protected:
    std::string WriteScene(const Scene& scene, std::size_t bytes)
    {
        scene.write((folder / "scene.obj").string(), bytes);
        return folder.Read("scene.obj");
    }

    const TemporaryFolder folder;
    const std::vector<Scene> scenes = Scenes("");
};

TEST_F(ScenesTest, HoldFacesThatAreAllImportedInTheSizeAskedFor)
{
    constexpr std::size_t Bytes = 400'000;
    for (const Scene& scene : scenes) {
        SCOPED_TRACE(scene.name);
        const std::string text = WriteScene(scene, Bytes);
        EXPECT_EQ(ImportScene(folder / "scene.obj").faces, LinesThatBegin(text, "f "));
        if (scene.name == "groups" || scene.name == "large_polygons")
            continue; // their parts have a least size
        EXPECT_GT(text.size(), Bytes * 3 / 4);
        EXPECT_LT(text.size(), Bytes * 5 / 4);
    }
}

TEST_F(ScenesTest, AreTheSameEachTime)
{
    for (const char* const name : {"scattered_blocks", "seams_wholly"}) {
        SCOPED_TRACE(name);
        const std::string text = WriteScene(SceneNamed(scenes, name), 100'000);
        EXPECT_TRUE(WriteScene(SceneNamed(scenes, name), 100'000) == text);
    }
}

TEST_F(ScenesTest, CloseTheirSurfaces)
{
    for (const char* const name :
         {"scattered_blocks", "scattered_wholly", "seams_blocks", "seams_wholly", "objects"}) {
        SCOPED_TRACE(name);
        WriteScene(SceneNamed(scenes, name), 400'000);
        const ImportedScene scene = ImportScene(folder / "scene.obj");
        EXPECT_GT(scene.meshes, 0);
        EXPECT_EQ(scene.closedMeshes, scene.meshes);
    }
}

TEST_F(ScenesTest, SplitSomeVerticesAtSeams)
{
    for (const char* const name : {"seams_blocks", "seams_wholly"}) {
        SCOPED_TRACE(name);
        const std::string text = WriteScene(SceneNamed(scenes, name), 2'000'000);
        const int positions = LinesThatBegin(text, "v ");
        const int vertices = ImportScene(folder / "scene.obj").vertices;
        EXPECT_GT(vertices, positions);
        EXPECT_LT(vertices, positions * 11 / 10);
    }
}

/// Returns how many faces have a corner whose number is far from that of the first.
int FarReachingFaces(const std::string& text)
{
    int count = 0;
    for (std::size_t line = text.find("f "); line != std::string::npos;
         line = text.find("\nf ", line + 1)) {
        const char* const corners = text.c_str() + text.find(' ', line);
        char* next = nullptr;
        const long first = std::strtol(corners, &next, 10);
        count += static_cast<int>(std::abs(std::strtol(next, nullptr, 10) - first) > 3000);
    }
    return count;
}

TEST_F(ScenesTest, ScatterNumbersInBlocksOrWholly)
{
    const std::string blocks = WriteScene(SceneNamed(scenes, "scattered_blocks"), 1'000'000);
    const std::string wholly = WriteScene(SceneNamed(scenes, "scattered_wholly"), 1'000'000);
    const int faces = LinesThatBegin(wholly, "f ");
    EXPECT_LT(FarReachingFaces(blocks), faces / 50);
    EXPECT_GT(FarReachingFaces(wholly), faces / 2);
}

} // namespace
