#include "tests/exchange/step_reading.h"
#include "tests/trimming/brep_walk.h"
#include "tests/trimming/import_text.h"
#include "tests/trimming/random_shapes.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

// STEP_FILES=500 writes so many files, STEP_SEED=17 begins at a seed.

namespace {

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise)
{
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): no one sets it
    return value == nullptr ? otherwise
                            : static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10));
}

void ExpectReadAs(const StepPart& part, const GK_Brep& brep)
{
    EXPECT_TRUE(part.isValid);
    EXPECT_EQ(part.faces, brep.FaceCount());
    const double area = AreaOf(brep);
    EXPECT_NEAR(part.area, area, 1e-5 * area);
}

TEST(StepFile, ReadsBackRandomShapes)
{
    const std::uint32_t first = FromEnvironment("STEP_SEED", 1);
    const std::uint32_t count = FromEnvironment("STEP_FILES", 100);
    for (std::uint32_t seed = first; seed < first + count; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const RandomFile file = MakeRandomFile(seed);
        const ImportedText imported(ObjText(file.shapes, file.writing), file.tolerance);
        const std::vector<const GK_Brep*> breps = imported.Breps();
        const StepWriting writing = WriteStepOf(imported.Doc());
        ASSERT_EQ(writing.outcome.error, "");
        EXPECT_TRUE(writing.outcome.losses.empty());
        const StepReading reading = ReadStep(writing.text);
        ASSERT_EQ(reading.parts.size(), breps.size());
        for (std::size_t i = 0; i < breps.size(); ++i)
            ExpectReadAs(reading.parts[i], *breps[i]);
    }
}

} // namespace
