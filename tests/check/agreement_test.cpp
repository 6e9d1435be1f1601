#include "tests/check/checked_text.h"
#include "tests/check/import_losses.h"
#include "tests/check/random_obj.h"
#include "tests/temporary_folder.h"
#include "tests/trimming/random_shapes.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;

/// Returns how many random files are tried; CHECKED_FILES=50000 tries more.
std::uint32_t CountOfFiles()
{
    const char* const count = std::getenv("CHECKED_FILES");
    return count == nullptr ? 2000 : static_cast<std::uint32_t>(std::strtoul(count, nullptr, 10));
}

TEST(Agreement, WithImportsOfFiles)
{
    std::vector<fs::path> folders{fs::path(PROJECT_FOLDER) / "examples",
                                  fs::path(PROJECT_FOLDER) / "tests",
                                  fs::path(PROJECT_FOLDER) / "fuzz/seeds/whole"};
    if (const char* const more = std::getenv("CHECKED_FOLDER"))
        folders.emplace_back(more);
    int files = 0;
    for (const fs::path& folder : folders)
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            const fs::path extension = entry.path().extension();
            if (!entry.is_regular_file() || (extension != ".obj" && !extension.empty()))
                continue;
            ++files;
            EXPECT_EQ(LossesToldByCheck(entry.path()), LossesOfImport(entry.path()))
                << entry.path();
        }
    EXPECT_GT(files, 50);
}

TEST(Agreement, WithImportsOfRandomFiles)
{
    const TemporaryFolder folder;
    std::size_t lossy = 0;
    for (std::uint32_t seed = 0; seed < CountOfFiles(); ++seed) {
        // Some file systems write out at once what replaces a file.
        fs::remove(folder / "random.mtl");
        fs::remove(folder / "random.obj");
        folder.Write("random.mtl", RandomMtl(seed));
        const fs::path path = folder.Write("random.obj", RandomObj(seed));
        const ImportLosses losses = LossesOfImport(path);
        lossy += losses == ImportLosses() ? 0U : 1U;
        ASSERT_EQ(LossesToldByCheck(path), losses) << "seed " << seed << "\n" << ReadBytes(path);
    }
    EXPECT_GT(lossy, CountOfFiles() / 2);
}

TEST(Agreement, WithImportsOfTrimmedSurfaces)
{
    const TemporaryFolder folder;
    for (std::uint32_t seed = 0; seed < CountOfFiles() / 20; ++seed) {
        const RandomFile file = MakeRandomFile(seed);
        fs::remove(folder / "trimmed.obj");
        const fs::path path = folder.Write("trimmed.obj", ObjText(file.shapes, file.writing));
        EXPECT_EQ(LossesToldByCheck(path), LossesOfImport(path)) << "seed " << seed;
    }
}

} // namespace
