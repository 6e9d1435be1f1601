#pragma once

#include "nurbs_shapes.h"
#include "tests/trimming/brep_walk.h"

#include "host/vxkit/brep.h"

#include <gmock/gmock.h>
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

// Adds a loop whose trims share nothing yet, as an importer makes it from separate curves.
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

// Walks the brep; see FaultsOf.
inline void ExpectSoundLoops(const GK_Brep& brep, double tolerance)
{
    EXPECT_THAT(FaultsOf(brep, tolerance), testing::IsEmpty());
}
