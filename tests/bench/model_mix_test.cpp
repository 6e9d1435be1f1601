#include "bench/scene_writers.h"
#include "tests/bench/imported_scene.h"
#include "tests/temporary_folder.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

/// Relative indices, a comment, a weight, CR LF, corners without a normal.
constexpr std::string_view Tetrahedron = "# a solid\r\n"
                                         "g solid\r\n"
                                         "v 0 0 0\r\nv 1.5 0 0 1.0\r\nv 0 1 0\r\nv 0 0 1\r\n"
                                         "vt 0.5 0.5\r\n"
                                         "f 1/1 3/1 2/1\r\nf -4/-1 -3/-1 -1/-1\r\n"
                                         "f 1/1 4/1 3/1\r\nf 2/1 3/1 4/1\r\n";

constexpr std::string_view Square = "mtllib missing.mtl\no square\n"
                                    "v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nvn 0 0 1\n"
                                    "usemtl paint\nf 1//1 2//1 3//1 4//1\n";

/// One triangle among statements that must be left out.
constexpr std::string_view Faulty = "v 0 0 0\nv 1 0 0\nv x y z\nv 0 1 0\nv nan 0 0\n"
                                    "usemtl\ncurv 0 1 1 2\nl 1 2\n"
                                    "f 1 2\nf 1 2 4\nf 1 2 0\nf 1 2 -9\nf 1 2/1 3\n"
                                    "f 1 2 3\n";

int CountOf(const std::string& text, std::string_view part)
{
    int count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos;
         place = text.find(part, place + 1))
        ++count;
    return count;
}

TEST(ModelMix, JoinsTheModelsAgainAndAgain)
{
    const TemporaryFolder folder;
    folder.Write("models/a/tetrahedron.obj", Tetrahedron);
    folder.Write("models/square.obj", Square);
    folder.Write("models/faulty.obj", Faulty);
    folder.Write("models/empty.obj", "v 0 0 0\n");
    folder.Write("models/notes.txt", "f 1 2 3\n");
    WriteModelMix((folder / "models").string(), (folder / "mix.obj").string(), 20'000);

    const std::string text = folder.Read("mix.obj");
    const int copies = CountOf(text, "o square\n");
    EXPECT_GT(copies, 20);
    EXPECT_EQ(CountOf(text, "usemtl\n") + CountOf(text, "curv") + CountOf(text, "mtllib"), 0);
    const ImportedScene scene = ImportScene(folder / "mix.obj");
    EXPECT_EQ(scene.faces, CountOf(text, "\nf "));
    // Copies are placed side by side and do not touch; the tetrahedra are one record.
    EXPECT_GE(scene.vertices, CountOf(text, "\nv ") - CountOf(text, "\nvt "));
}

TEST(ModelMix, NamesTheFolderWithoutModels)
{
    const TemporaryFolder folder;
    folder.Write("empty.obj", "v 0 0 0\n");
    try {
        WriteModelMix(folder.Path().string(), (folder / "mix").string(), 1000);
        FAIL() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find(folder.Path().string()), std::string::npos);
    }
}

} // namespace
