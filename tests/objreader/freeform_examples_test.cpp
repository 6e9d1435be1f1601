#include "tests/geokit/brep_shapes.h"
#include "tests/objreader/freeform_reader.h"

#include <sstream>

// The loops of the examples' breps. Their shapes are checked where they leave the program, as JSON.

namespace {

std::string Example(const std::string& name)
{
    std::ostringstream text;
    text << std::ifstream(PROJECT_FOLDER "/examples/" + name, std::ios::binary).rdbuf();
    EXPECT_FALSE(text.str().empty()) << name;
    return text.str();
}

TEST(FreeformExamples, LoopsOfBrepsAreSound)
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
        const FreeformReader file(Example(c.name));
        EXPECT_TRUE(file.parsed);
        EXPECT_TRUE(file.reader->Build());
        ASSERT_EQ(file.doc.ObjectCount(), 1);
        const auto& brep = file.Object<GK_Brep>(0);
        EXPECT_EQ(brep.EdgeCount(), c.edges);
        EXPECT_EQ(brep.VertexCount(), c.vertices);
        EXPECT_EQ(brep.LoopCount(), c.loops);
        ExpectSoundLoops(brep, 0.001);
    }
}

} // namespace
