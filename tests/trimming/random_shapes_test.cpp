#include "tests/trimming/check_shape.h"
#include "tests/trimming/random_shapes.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

// TRIMMED_FILES=10000 runs so many files, TRIMMED_SEED=17 begins at a seed.

namespace {

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): no one sets it
    return value == nullptr ? otherwise
                            : static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10));
}

std::string Keep(std::uint32_t seed, const std::string& text)
{
    const auto path = std::filesystem::temp_directory_path() /
                      ("trimmed_shapes." + std::to_string(seed) + ".obj");
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

TEST(RandomShapes, AreImportedAsTheyWereMeant)
{
    constexpr std::uint32_t MostFailures = 20;
    const std::uint32_t first = FromEnvironment("TRIMMED_SEED", 1);
    const std::uint32_t count = FromEnvironment("TRIMMED_FILES", 300);
    std::uint32_t failures = 0;
    for (std::uint32_t seed = first; seed < first + count && failures < MostFailures; ++seed) {
        const RandomFile file = MakeRandomFile(seed);
        const auto faults = ImportFaults(file.shapes, file.writing, file.tolerance);
        if (faults.empty())
            continue;
        ++failures;
        ADD_FAILURE() << "seed " << seed << ", tolerance " << file.tolerance << ": "
                      << Keep(seed, ObjText(file.shapes, file.writing)) << "\n"
                      << testing::PrintToString(faults);
    }
}

} // namespace
