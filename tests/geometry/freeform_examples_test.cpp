#include "tests/geokit/brep_shapes.h"
#include "tests/geometry/document_test.h"
#include "tests/temporary_folder.h"

// The loops of the examples' breps. Their shapes are checked where they leave the program, as JSON.

namespace {

using FreeformExamples = DocumentTest;

TEST_F(FreeformExamples, LoopsOfBrepsAreSound)
{
    struct Case
    {
        const char* name;
        int edges;
        int vertices;
        int loops;
    };
    const Case cases[] = {
        {"bezier_patch.obj", 4, 4, 1},    {"untrimmed_surface.obj", 4, 4, 1},
        {"cylinder.obj", 3, 2, 1},        {"sphere.obj", 1, 2, 1},
        {"trimmed_surface.obj", 4, 4, 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(Build(ReadBytes(PROJECT_FOLDER "/examples/" + std::string(c.name))));
        ASSERT_EQ(doc->ObjectCount(), 1);
        const auto& brep = Object<GK_Brep>(0);
        EXPECT_EQ(brep.EdgeCount(), c.edges);
        EXPECT_EQ(brep.VertexCount(), c.vertices);
        EXPECT_EQ(brep.LoopCount(), c.loops);
        ExpectSoundLoops(brep, 0.001);
    }
}

} // namespace
