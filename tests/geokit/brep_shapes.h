#pragma once

#include "console_host/geokit/brep_trims.h"
#include "nurbs_shapes.h"

#include "host/vxkit/brep.h"

#include <gtest/gtest.h>

// Breps for tests.

inline std::unique_ptr<VX_Brep> MakeBrep(std::unique_ptr<VX_NurbsSurface> surface)
{
    auto brep = std::make_unique<VX_Brep>();
    brep->AddSurface(std::move(surface));
    brep->NewFace(0);
    return brep;
}

inline void AddNaturalLoop(GK_Brep& brep)
{
    int vertices[4] = {-1, -1, -1, -1};
    int edges[4] = {-1, -1, -1, -1};
    bool reversed[4] = {};
    ASSERT_NE(brep.NewOuterLoop(0, vertices, edges, reversed), nullptr);
}

struct Piece
{
    GK_NurbsCurve curve;
    GK_Interval part;
};

inline Piece LinePiece(double u0, double v0, double u1, double v1)
{
    return {MakeLine(u0, v0, u1, v1), {0, 1}};
}

// A loop whose trims share nothing yet, as an importer makes it from separate curves.
inline void AddLoop(GK_Brep& brep, GK_BrepLoop::TYPE type, const std::vector<Piece>& pieces)
{
    const auto* surface = VX_NurbsSurface::Cast(brep.Surface(0));
    const int loop = brep.NewLoop(type, brep.Face(0)).loopIndex;
    for (const Piece& piece : pieces) {
        auto curve3d = surface->Pushup(piece.curve, 1e-3, &piece.part);
        ASSERT_NE(curve3d, nullptr);
        const int start = brep.NewVertex(curve3d->PointAtStart(), 1e-3).vertexIndex;
        const int end =
            curve3d->IsClosed() ? start : brep.NewVertex(curve3d->PointAtEnd(), 1e-3).vertexIndex;
        const int c3 = brep.AddEdgeCurve(std::move(curve3d));
        const int c2 = brep.AddTrimCurve(piece.curve.Duplicate());
        const int edge =
            brep.NewEdge(brep.Vertex(start), brep.Vertex(end), c3, &piece.part, GK_UNSET_VALUE)
                .edgeIndex;
        brep.NewTrim(brep.Edge(edge), 1, brep.Loop(loop), c2).SetDomain(piece.part);
    }
}

inline std::vector<Piece> Polygon(const std::vector<std::array<double, 2>>& corners)
{
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto& next = corners[(i + 1) % corners.size()];
        pieces.push_back(LinePiece(corners[i][0], corners[i][1], next[0], next[1]));
    }
    return pieces;
}

// The edge of a trim, if it has one, lies on the surface along the trim and ends at its vertices.
inline void ExpectSoundEdge(const GK_Brep& brep, const GK_BrepTrim& trim, double tolerance)
{
    const auto place = [&](double fraction) {
        const GK_3dPoint uv = trim.PointAt(trim.Domain().ParameterAt(fraction));
        return TrimSurface(brep, trim).PointAt(uv.x, uv.y);
    };
    const auto vertex = [&](std::size_t end) { return brep.Vertex(trim.vertexIndex[end]).point; };
    if (trim.edgeIndex < 0) {
        EXPECT_EQ(trim.vertexIndex[0], trim.vertexIndex[1]);
        EXPECT_LT(place(0.3).DistanceTo(vertex(0)), tolerance);
        return;
    }
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    EXPECT_EQ(std::count(edge.trimIndices.begin(), edge.trimIndices.end(), trim.trimIndex), 1);
    EXPECT_TRUE(edge.Domain().IsIncreasing());
    EXPECT_EQ(trim.vertexIndex[0], edge.vertexIndex[trim.reversed ? 1 : 0]);
    EXPECT_EQ(trim.vertexIndex[1], edge.vertexIndex[trim.reversed ? 0 : 1]);
    EXPECT_LT(place(0.0).DistanceTo(vertex(0)), tolerance);
    EXPECT_LT(place(1.0).DistanceTo(vertex(1)), tolerance);
    for (const double fraction : {0.0, 0.2, 0.5, 0.9, 1.0}) {
        const double along = trim.reversed ? 1.0 - fraction : fraction;
        EXPECT_LT(place(fraction).DistanceTo(edge.PointAt(edge.Domain().ParameterAt(along))),
                  tolerance);
    }
}

// Walks the loops: each trim ends where the next starts, indices agree both ways, loops go the
// right way round.
inline void ExpectSoundLoops(const GK_Brep& brep, double tolerance)
{
    for (int f = 0; f < brep.FaceCount(); ++f) {
        EXPECT_EQ(brep.Face(f).faceIndex, f);
        ASSERT_GT(brep.Face(f).LoopCount(), 0);
        for (const int l : brep.Face(f).loopIndices) {
            const GK_BrepLoop& loop = brep.Loop(l);
            EXPECT_EQ(loop.faceIndex, f);
            EXPECT_EQ(loop.type == GK_BrepLoop::inner, SignedArea(brep, loop) < 0.0);
            const GK_BrepTrim* before = &brep.Trim(*loop.trimIndices.Last());
            for (const int t : loop.trimIndices) {
                const GK_BrepTrim& trim = brep.Trim(t);
                EXPECT_EQ(trim.trimIndex, t);
                EXPECT_EQ(trim.loopIndex, l);
                EXPECT_TRUE(trim.Domain().IsIncreasing());
                EXPECT_EQ(before->vertexIndex[1], trim.vertexIndex[0]);
                EXPECT_LT(before->PointAtEnd().DistanceTo(trim.PointAtStart()), tolerance);
                ExpectSoundEdge(brep, trim, tolerance);
                before = &trim;
            }
        }
    }
}
