#include "brep_shapes.h"
#include "console_host/geokit/brep_repair.h"

namespace {

struct Shape
{
    const char* name;
    std::unique_ptr<VX_NurbsSurface> (*make)();
    int vertices;
    int edges;
    int trimsWithoutEdge;
};

TEST(NewOuterLoop, FollowsTheBoundary)
{
    const Shape shapes[] = {
        {"plane", [] { return MakePlane(2.0); }, 4, 4, 0},
        {"hill", [] { return MakeHill(true); }, 4, 4, 0},
        {"cylinder", MakeCylinder, 2, 3, 0},
        {"sphere", MakeSphere, 2, 1, 2},
        {"cone", [] { return Revolve(MakeLine(1, 0, 0, 2)); }, 2, 2, 1},
        {"torus", [] { return Revolve(MakeCircle2d(3, 0, 1)); }, 1, 2, 0},
        {"triangle",
         [] {
             return MakeSurface(false, 2, 2, {0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, 1}, {0, 1});
         },
         3, 3, 1},
    };
    for (const Shape& shape : shapes) {
        SCOPED_TRACE(shape.name);
        const auto brep = MakeBrep(shape.make());
        AddNaturalLoop(*brep);
        ASSERT_EQ(brep->LoopCount(), 1);
        EXPECT_EQ(brep->TrimCount(), 4);
        EXPECT_EQ(brep->VertexCount(), shape.vertices);
        EXPECT_EQ(brep->EdgeCount(), shape.edges);
        int withoutEdge = 0;
        for (int i = 0; i < 4; ++i)
            withoutEdge += brep->Trim(i).edgeIndex < 0 ? 1 : 0;
        EXPECT_EQ(withoutEdge, shape.trimsWithoutEdge);
        ExpectSoundLoops(*brep, 1e-9);

        // A repair finds nothing to change.
        BrepRepairReport report;
        EXPECT_TRUE(RepairBrep(*brep, 1e-3, report)) << report.reason;
        EXPECT_EQ(brep->VertexCount(), shape.vertices);
        EXPECT_EQ(brep->EdgeCount(), shape.edges);
        ExpectSoundLoops(*brep, 1e-9);
    }
}

// Two sides at one place with different weights run there differently: they are not a seam.
TEST(NewOuterLoop, SidesOfOtherWeightsStayApart)
{
    const auto brep =
        MakeBrep(MakeSurface(true, 2, 3, {0, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0, 1, 1, 1,
                                          0, 1, 0, 1, 0, 2, 0, 4, 0, 1, 1, 4, 0, 1, 0, 4, 0, 1},
                             {0, 1, 2}, {0, 0, 1, 1}));
    AddNaturalLoop(*brep);
    EXPECT_EQ(brep->EdgeCount(), 4);
}

TEST(NewOuterLoop, TakesTheVerticesAndEdgesOfItsArguments)
{
    const auto brep = MakeBrep(MakePlane(1.0));
    AddNaturalLoop(*brep);
    brep->AddSurface(MakePlane(1.0));
    brep->NewFace(1);
    int vertices[4] = {-1, 1, 2, -1}; // the side of u highest, from below upwards
    int edges[4] = {-1, 1, -1, -1};
    bool reversed[4] = {};
    ASSERT_NE(brep->NewOuterLoop(1, vertices, edges, reversed), nullptr);
    EXPECT_EQ(brep->VertexCount(), 6);
    EXPECT_EQ(brep->EdgeCount(), 7);
    EXPECT_EQ(brep->Edge(1).trimIndices.Count(), 2);
    ExpectSoundLoops(*brep, 1e-9);
}

TEST(NewOuterLoop, ReturnsNullWithoutAFaceOrAValidSurface)
{
    int none[4] = {-1, -1, -1, -1};
    bool reversed[4] = {};
    VX_Brep empty;
    EXPECT_EQ(empty.NewOuterLoop(0, none, none, reversed), nullptr);
    const auto brep = MakeBrep(std::make_unique<VX_NurbsSurface>());
    EXPECT_EQ(brep->NewOuterLoop(0, none, none, reversed), nullptr);
    EXPECT_EQ(brep->LoopCount(), 0);
}

} // namespace
