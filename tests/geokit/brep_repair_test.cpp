#include "brep_shapes.h"
#include "console_host/geokit/brep_repair.h"

#include <algorithm>

namespace {

constexpr double Tolerance = 1e-3;

const std::vector<std::array<double, 2>> Square{{0.5, 0.5}, {3, 0.5}, {3, 3}, {0.5, 3}};

std::vector<Piece> Circle(bool backwards)
{
    return {{MakeCircle2d(1.5, 1.5, 0.5), backwards ? GK_Interval(4, 0) : GK_Interval(0, 4)}};
}

std::vector<Piece> Backwards(std::vector<Piece> pieces)
{
    std::reverse(pieces.begin(), pieces.end());
    for (Piece& piece : pieces)
        piece.curve.Reverse();
    return pieces;
}

// Returns the same loop with its pieces' domains reversed: each runs back along its curve.
std::vector<Piece> Downwards(std::vector<Piece> pieces)
{
    std::reverse(pieces.begin(), pieces.end());
    for (Piece& piece : pieces)
        piece.part = GK_Interval(piece.part[1], piece.part[0]);
    return pieces;
}

TEST(RepairBrep, TurnsAndJoinsLoopsInAnyDirectionAndOrder)
{
    std::vector<Piece> oneTurned = Polygon(Square);
    oneTurned[2].curve.Reverse();
    std::vector<Piece> firstTurned = Polygon(Square);
    firstTurned[0].curve.Reverse();
    const std::vector<Piece> outers[] = {Polygon(Square),
                                         Backwards(Polygon(Square)),
                                         Downwards(Polygon(Square)),
                                         oneTurned,
                                         firstTurned,
                                         Polygon({{0.5, 0.5}, {3.9, 0.5}, {0.5, 3.9}})};
    for (const std::vector<Piece>& outer : outers) {
        for (const bool backwards : {false, true}) {
            const auto brep = MakeBrep(MakePlane(4.0));
            AddLoop(*brep, GK_BrepLoop::outer, outer);
            AddLoop(*brep, GK_BrepLoop::inner, Circle(backwards));
            BrepRepairReport report;
            ASSERT_TRUE(RepairBrep(*brep, Tolerance, report)) << report.reason;
            EXPECT_TRUE(report.dropped.empty());
            const int corners = static_cast<int>(outer.size());
            EXPECT_EQ(brep->VertexCount(), corners + 1);
            EXPECT_EQ(brep->EdgeCount(), corners + 1);
            ExpectSoundLoops(*brep, 2 * Tolerance);
        }
    }
}

TEST(RepairBrep, WorksOnCurvedSurfaces)
{
    const auto hill = MakeBrep(MakeHill(true));
    AddLoop(*hill, GK_BrepLoop::outer, Backwards(Polygon(Square)));
    AddLoop(*hill, GK_BrepLoop::inner, Circle(false));
    BrepRepairReport report;
    ASSERT_TRUE(RepairBrep(*hill, Tolerance, report)) << report.reason;
    ExpectSoundLoops(*hill, 2 * Tolerance);

    // All the way around in two pieces, with the two sides of the seam: they share an edge.
    const auto cylinder = MakeBrep(MakeCylinder());
    AddLoop(*cylinder, GK_BrepLoop::outer,
            Backwards(Polygon({{0, 0.5}, {2, 0.5}, {4, 0.5}, {4, 1.5}, {0, 1.5}})));
    ASSERT_TRUE(RepairBrep(*cylinder, Tolerance, report)) << report.reason;
    EXPECT_EQ(cylinder->VertexCount(), 3);
    EXPECT_EQ(cylinder->EdgeCount(), 4);
    ExpectSoundLoops(*cylinder, 2 * Tolerance);

    // The side along a pole becomes a trim without an edge.
    const auto sphere = MakeBrep(MakeSphere());
    AddLoop(*sphere, GK_BrepLoop::outer, Polygon({{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    ASSERT_TRUE(RepairBrep(*sphere, Tolerance, report)) << report.reason;
    EXPECT_EQ(sphere->EdgeCount(), 3);
    EXPECT_EQ(sphere->VertexCount(), 3);
    EXPECT_EQ(sphere->TrimCount(), 4);
    ExpectSoundLoops(*sphere, 2 * Tolerance);
}

TEST(RepairBrep, JoinsWithinTheToleranceAndRefusesGaps)
{
    struct Case
    {
        double gap;
        const char* reason; // empty: joined
    };
    const Case cases[] = {
        {0.0, ""},
        {0.9e-3, ""},
        {1.5e-3, "loop 1 does not close: trim 2 ends 0.0015 away from the start of trim 3 "
                 "(tolerance 0.001)"},
        {0.25, "loop 1 does not close: trim 2 ends 0.25 away from the start of trim 3 "
               "(tolerance 0.001)"},
    };
    for (const Case& c : cases) {
        std::vector<Piece> pieces = Polygon(Square);
        pieces[1] = LinePiece(3, 0.5, 3, 3 - c.gap);
        const auto brep = MakeBrep(MakePlane(4.0));
        AddLoop(*brep, GK_BrepLoop::outer, pieces);
        BrepRepairReport report;
        EXPECT_EQ(RepairBrep(*brep, Tolerance, report), *c.reason == '\0');
        EXPECT_EQ(report.reason, c.reason);
        if (*c.reason == '\0') {
            ASSERT_EQ(brep->VertexCount(), 4);
            const GK_3dPoint middle{3, 3 - 0.5 * c.gap, 0}; // of what it joins
            EXPECT_LT(brep->Vertex(2).point.DistanceTo(middle), 1e-12);
        }
    }
}

TEST(RepairBrep, RefusesASingleLoopAroundACylinder)
{
    const auto brep = MakeBrep(MakeCylinder());
    AddLoop(*brep, GK_BrepLoop::outer, {LinePiece(0, 1, 4, 1)});
    BrepRepairReport report;
    EXPECT_FALSE(RepairBrep(*brep, Tolerance, report));
    EXPECT_EQ(report.reason,
              "loop 1 runs around the surface, and nothing bounds the face on its left");
}

// A model smaller than the tolerance keeps its corners.
TEST(RepairBrep, KeepsTinyLoopsOpen)
{
    const auto brep = MakeBrep(MakePlane(1.0));
    AddLoop(*brep, GK_BrepLoop::outer, Polygon({{0, 0}, {5e-4, 0}, {5e-4, 5e-4}, {0, 5e-4}}));
    BrepRepairReport report;
    ASSERT_TRUE(RepairBrep(*brep, Tolerance, report)) << report.reason;
    EXPECT_EQ(brep->VertexCount(), 4);
    EXPECT_EQ(brep->EdgeCount(), 4);
}

} // namespace
