#include "bench/scenes.h"

#include "bench/scene_writers.h"

namespace {

using SceneWriter = std::function<void(const std::string&, std::size_t)>;

/// Each kind of scene has its own aims, for they leave different work after the parse.
constexpr SceneAims Quads{1.5, 2.0};
constexpr SceneAims Triangles{2.0, 2.5};
constexpr SceneAims Scattered{2.7, 2.2};
constexpr SceneAims Parts{2.0, 2.5};
constexpr SceneAims Polygons{2.2};
// Triangulating them is most of the work, and grows by more than the corners.
constexpr SceneAims LargePolygons{5.2};
constexpr SceneAims OnePolygon{6.4};

SceneWriter Writer(void (*write)(const std::string&, std::size_t, Scatter), Scatter scatter)
{
    return [write, scatter](const std::string& path, std::size_t bytes) {
        write(path, bytes, scatter);
    };
}

void AppendSheets(std::vector<Scene>& scenes)
{
    scenes.push_back({"quads", "a sheet of quads with v, vt and vn", 100.0, WriteQuads, Quads});
    scenes.push_back(
        {"triangles", "a sheet of triangles with v only", 100.0, WriteTriangles, Triangles});
    scenes.push_back({"long_numbers",
                      "a sheet of quads, coordinates of 17 digits",
                      100.0,
                      WriteLongNumbers,
                      {2.0, 2.0}});
    scenes.push_back({"materials",
                      "a sheet of quads, usemtl after every few",
                      100.0,
                      WriteMaterialSwitches,
                      {}});
    scenes.push_back({"some_colors", "a sheet of triangles, every third vertex with a colour",
                      100.0, WriteSomeColors, Triangles});
}

void AppendParts(std::vector<Scene>& scenes)
{
    scenes.push_back({"groups", "20,000 groups", 100.0, WriteGroups, Parts});
    scenes.push_back(
        {"objects", "5,000 objects of 200 faces, v and vn", 126.0, WriteObjects, Parts});
    scenes.push_back({"negative", "quads by negative indices", 100.0, WriteNegative, {}});
}

void AppendScattered(std::vector<Scene>& scenes)
{
    scenes.push_back({"scattered_blocks",
                      "a closed surface of a million vertices, numbered at random in blocks", 76.3,
                      Writer(WriteScattered, Scatter::InBlocks), Scattered});
    scenes.push_back({"scattered_wholly",
                      "a closed surface of a million vertices, numbered at random", 76.3,
                      Writer(WriteScattered, Scatter::Wholly), Scattered});
    scenes.push_back({"seams_blocks",
                      "a closed surface with v, vt, vn and seams, numbered at random in blocks",
                      100.0, Writer(WriteScatteredWithSeams, Scatter::InBlocks), Scattered});
    scenes.push_back({"seams_wholly",
                      "a closed surface with v, vt, vn and seams, numbered at random", 100.0,
                      Writer(WriteScatteredWithSeams, Scatter::Wholly), Scattered});
}

void AppendPolygons(std::vector<Scene>& scenes)
{
    scenes.push_back({"shared_polygons", "a sheet of polygons of 5 to 8 corners", 100.0,
                      WriteSharedPolygons, Polygons});
    scenes.push_back(
        {"polygons", "concave polygons of 5 to 16 corners", 100.0, WritePolygons, Polygons});
    scenes.push_back({"large_polygons", "concave polygons of 100,000 corners", 98.0,
                      WriteLargePolygons, LargePolygons});
    scenes.push_back({"one_polygon", "one concave polygon", 98.0, WriteOnePolygon, OnePolygon});
}

} // namespace

std::vector<Scene> Scenes(const std::string& modelFolder)
{
    std::vector<Scene> scenes;
    AppendSheets(scenes);
    AppendParts(scenes);
    AppendScattered(scenes);
    AppendPolygons(scenes);
    if (!modelFolder.empty())
        scenes.push_back({"mix", "the models of " + modelFolder + ", joined", 200.0,
                          [modelFolder](const std::string& path, std::size_t bytes) {
                              WriteModelMix(modelFolder, path, bytes);
                          },
                          Scattered});
    return scenes;
}
