#include "bench/scenes.h"

#include "bench/scene_writers.h"

namespace {

std::function<void(const std::string&, std::size_t)>
Scattered(void (*write)(const std::string&, std::size_t, Scatter), Scatter scatter)
{
    return [write, scatter](const std::string& path, std::size_t bytes) {
        write(path, bytes, scatter);
    };
}

} // namespace

std::vector<Scene> Scenes(const std::string& modelFolder)
{
    const auto blocks = Scatter::InBlocks;
    const auto wholly = Scatter::Wholly;
    std::vector<Scene> scenes{
        {"quads", "a sheet of quads with v, vt and vn", 100.0, WriteQuads},
        {"triangles", "a sheet of triangles with v only", 100.0, WriteTriangles},
        {"long_numbers", "a sheet of quads, coordinates of 17 digits", 100.0, WriteLongNumbers},
        {"groups", "20,000 groups", 100.0, WriteGroups},
        {"objects", "5,000 objects of 200 faces, v and vn", 126.0, WriteObjects},
        {"materials", "a sheet of quads, usemtl after every few", 100.0, WriteMaterialSwitches},
        {"some_colors", "a sheet of triangles, every third vertex with a colour", 100.0,
         WriteSomeColors},
        {"negative", "quads by negative indices", 100.0, WriteNegative},
        {"scattered_blocks", "a closed surface of a million vertices, numbered at random in blocks",
         76.3, Scattered(WriteScattered, blocks)},
        {"scattered_wholly", "a closed surface of a million vertices, numbered at random", 76.3,
         Scattered(WriteScattered, wholly)},
        {"seams_blocks", "a closed surface with v, vt, vn and seams, numbered at random in blocks",
         100.0, Scattered(WriteScatteredWithSeams, blocks)},
        {"seams_wholly", "a closed surface with v, vt, vn and seams, numbered at random", 100.0,
         Scattered(WriteScatteredWithSeams, wholly)},
        {"shared_polygons", "a sheet of polygons of 5 to 8 corners", 100.0, WriteSharedPolygons},
        {"polygons", "concave polygons of 5 to 16 corners", 100.0, WritePolygons},
        {"large_polygons", "concave polygons of 100,000 corners", 98.0, WriteLargePolygons},
        {"one_polygon", "one concave polygon", 98.0, WriteOnePolygon},
    };
    if (!modelFolder.empty())
        scenes.push_back({"mix", "the models of " + modelFolder + ", joined", 200.0,
                          [modelFolder](const std::string& path, std::size_t bytes) {
                              WriteModelMix(modelFolder, path, bytes);
                          }});
    return scenes;
}
