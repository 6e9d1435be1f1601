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
    return {*MakeLine(u0, v0, u1, v1), {0, 1}};
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

// Walks the loops: indices agree both ways, each trim ends where the next starts, edges lie on the
// surface along their trims and end at their vertices, loops go the right way round.
inline void ExpectSoundLoops(const GK_Brep& brep, double tolerance)
{
    for (int f = 0; f < brep.FaceCount(); ++f) {
        EXPECT_EQ(brep.Face(f).faceIndex, f);
        ASSERT_GT(brep.Face(f).LoopCount(), 0);
        for (const int l : brep.Face(f).loopIndices) {
            const GK_BrepLoop& loop = brep.Loop(l);
            EXPECT_EQ(loop.faceIndex, f);
            EXPECT_EQ(loop.type == GK_BrepLoop::inner, SignedArea(brep, loop) < 0.0);
            for (int k = 0; k < loop.trimIndices.Count(); ++k) {
                const GK_BrepTrim& trim = brep.Trim(loop.trimIndices[k]);
                const GK_BrepTrim& next =
                    brep.Trim(loop.trimIndices[(k + 1) % loop.trimIndices.Count()]);
                EXPECT_EQ(trim.loopIndex, l);
                EXPECT_TRUE(trim.Domain().IsIncreasing());
                EXPECT_EQ(trim.vertexIndex[1], next.vertexIndex[0]);
                EXPECT_LT(trim.PointAtEnd().DistanceTo(next.PointAtStart()), tolerance);
            }
        }
    }
    for (int t = 0; t < brep.TrimCount(); ++t) {
        const GK_BrepTrim& trim = brep.Trim(t);
        const GK_Surface& surface = TrimSurface(brep, trim);
        const auto image = [&](double fraction) {
            const GK_3dPoint uv = trim.PointAt(trim.Domain().ParameterAt(fraction));
            return surface.PointAt(uv.x, uv.y);
        };
        if (trim.edgeIndex < 0) {
            EXPECT_EQ(trim.vertexIndex[0], trim.vertexIndex[1]);
            EXPECT_LT(image(0.3).DistanceTo(brep.Vertex(trim.vertexIndex[0]).point), tolerance);
            continue;
        }
        const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
        EXPECT_NE(std::find(edge.trimIndices.begin(), edge.trimIndices.end(), t),
                  edge.trimIndices.end());
        EXPECT_TRUE(edge.Domain().IsIncreasing());
        const std::size_t first = trim.reversed ? 1 : 0;
        EXPECT_EQ(trim.vertexIndex[0], edge.vertexIndex[first]);
        EXPECT_EQ(trim.vertexIndex[1], edge.vertexIndex[1 - first]);
        EXPECT_LT(edge.PointAtStart().DistanceTo(brep.Vertex(edge.vertexIndex[0]).point),
                  tolerance);
        EXPECT_LT(edge.PointAtEnd().DistanceTo(brep.Vertex(edge.vertexIndex[1]).point), tolerance);
        for (const double fraction : {0.0, 0.2, 0.5, 0.9, 1.0}) {
            const double along = trim.reversed ? 1.0 - fraction : fraction;
            EXPECT_LT(image(fraction).DistanceTo(edge.PointAt(edge.Domain().ParameterAt(along))),
                      tolerance);
        }
    }
}
