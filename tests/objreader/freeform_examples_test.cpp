#include "tests/geokit/brep_shapes.h"
#include "tests/objreader/freeform_reader.h"

#include <sstream>

// The examples of free-form objects hold what their comments promise.

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
        const GK_Brep& brep = file.Object<GK_Brep>(0);
        EXPECT_EQ(brep.EdgeCount(), c.edges);
        EXPECT_EQ(brep.VertexCount(), c.vertices);
        EXPECT_EQ(brep.LoopCount(), c.loops);
        ExpectSoundLoops(brep, 0.001);
    }
}

TEST(FreeformExamples, ShapesAreTheOnesPromised)
{
    const auto distance = [](double a, double b) { return std::hypot(a, b); };

    const FreeformReader circle(Example("rational_curve.obj"));
    EXPECT_TRUE(circle.Curve().IsClosed());
    const FreeformReader pillow(Example("bezier_patch.obj"));
    EXPECT_EQ(pillow.Surface().PointAt(0.5, 0.5), (GK_3dPoint{1.5, 1.5, 1.125}));
    const FreeformReader ball(Example("sphere.obj"));
    const FreeformReader window(Example("trimmed_surface.obj"));
    EXPECT_TRUE(window.reader->Build());
    const GK_Brep& brep = window.Object<GK_Brep>(0);

    for (int i = 0; i <= 100; ++i) {
        const double f = 0.01 * i;
        const GK_3dPoint round = circle.Curve().PointAt(4.0 * f);
        EXPECT_NEAR(distance(round.x - 3.0, round.y - 2.0), 2.0, 1e-12);
        const GK_3dPoint skin = ball.Surface().PointAt(4.0 * f, 2.0 * f);
        EXPECT_NEAR(std::hypot(skin.x, skin.y, skin.z), 1.0, 1e-12);
        for (int e = 0; e < brep.EdgeCount(); ++e) {
            const GK_BrepEdge& edge = brep.Edge(e);
            const GK_3dPoint point = edge.PointAt(edge.Domain().ParameterAt(f));
            EXPECT_NEAR(distance(point.x, point.z), 10.0, 0.001);
        }
    }

    const FreeformReader curves(Example("bezier_curves.obj"));
    EXPECT_TRUE(curves.reader->Build());
    ASSERT_EQ(curves.doc.ObjectCount(), 3);
    const auto& wave = curves.Object<GK_Curve>(1);
    EXPECT_EQ(wave.PointAt(1.0), (GK_3dPoint{4, 0, 0}));
    EXPECT_EQ(wave.PointAt(0.5), (GK_3dPoint{2, 1.5, 0}));
    EXPECT_EQ(curves.Object<GK_Curve>(2).PointAt(1.5), (GK_3dPoint{1.5, 0.5, 4}));
}

} // namespace
