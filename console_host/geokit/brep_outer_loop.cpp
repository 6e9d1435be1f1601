#include "console_host/geokit/compact_curves.h"
#include "console_host/geokit/parameter_plane.h"

#include "host/geokit/brep.h"

#include <algorithm>
#include <array>

namespace {

constexpr int SideCount = AllSides.size();

Side At(int side)
{
    return AllSides[static_cast<std::size_t>(side % SideCount)];
}

GK_3dPoint Corner(const ParameterPlane& plane, int side)
{
    const Uv uv = plane.Corner(At(side));
    return {uv[0], uv[1], 0.0};
}

// Returns whether the opposite side, of lower number, has the same curve.
bool IsShared(const ParameterPlane& plane, int side)
{
    return side >= 2 && plane.IsSeam(At(side));
}

// Returns for each corner the first corner that is at the same place because of a pole or a seam.
std::array<int, SideCount> MergeCorners(const ParameterPlane& plane)
{
    std::array<int, SideCount> leader{0, 1, 2, 3};
    const auto merge = [&](int a, int b) {
        const auto [low, high] = std::minmax(
            {leader[static_cast<std::size_t>(a)], leader[static_cast<std::size_t>(b % SideCount)]});
        std::replace(leader.begin(), leader.end(), high, low);
    };
    for (int side = 0; side < SideCount; ++side) {
        if (plane.IsPole(At(side)))
            merge(side, side + 1);
        if (IsShared(plane, side)) {
            merge(side, side - 1);
            merge(side - 2, side + 1);
        }
    }
    return leader;
}

// Chooses one vertex for the corners at one place, an existing one where a corner names it.
void ChooseVertices(GK_Brep& brep, const ParameterPlane& plane, int vertices[SideCount])
{
    const std::array<int, SideCount> leader = MergeCorners(plane);
    std::array<int, SideCount> chosen{-1, -1, -1, -1};
    const auto chosenFor = [&](int corner) -> int& {
        return chosen[static_cast<std::size_t>(leader[static_cast<std::size_t>(corner)])];
    };
    for (int corner = 0; corner < SideCount; ++corner)
        if (vertices[corner] >= 0 && vertices[corner] < brep.VertexCount())
            chosenFor(corner) = vertices[corner];
    for (int corner = 0; corner < SideCount; ++corner) {
        int& vertex = chosenFor(corner);
        if (vertex < 0)
            vertex = brep.NewVertex(plane.PointAt(plane.Corner(At(corner))), 0.0).vertexIndex;
        vertices[corner] = vertex;
    }
}

// Chooses the edge of each side that does not collapse and the direction in which the loop runs
// along it.
void ChooseEdges(GK_Brep& brep, int surface, const ParameterPlane& plane,
                 const int vertices[SideCount], int edges[SideCount], bool reversed[SideCount])
{
    for (int i = 0; i < SideCount; ++i) {
        if (plane.IsPole(At(i))) {
            edges[i] = -1;
        } else if (edges[i] >= 0 && edges[i] < brep.EdgeCount()) {
            continue;
        } else if (IsShared(plane, i)) {
            edges[i] = edges[i - 2];
            reversed[i] = !reversed[i - 2];
        } else {
            reversed[i] = i >= 2;
            const int first = vertices[reversed[i] ? (i + 1) % SideCount : i];
            const int last = vertices[reversed[i] ? i : i + 1];
            const int curve = brep.AddIsoCurve(surface, i % 2, plane.Value(At(i)));
            edges[i] =
                brep.NewEdge(brep.Vertex(first), brep.Vertex(last), curve, nullptr, 0.0).edgeIndex;
        }
    }
}

} // namespace

GK_BrepLoop* GK_Brep::NewOuterLoop(int faceIndex, int vertices[4], int edges[4], bool reversed[4])
{
    if (faceIndex < 0 || faceIndex >= FaceCount())
        return nullptr;
    const int surfaceIndex = Face(faceIndex).surfaceIndex;
    const auto* surface = GK_NurbsSurface::Cast(Surface(surfaceIndex));
    if (surface == nullptr || !surface->IsValid())
        return nullptr;
    const ParameterPlane plane(*surface, 0.0);
    ChooseVertices(*this, plane, vertices);
    ChooseEdges(*this, surfaceIndex, plane, vertices, edges, reversed);
    const int loop = NewLoop(GK_BrepLoop::outer, Face(faceIndex)).loopIndex;
    for (int i = 0; i < SideCount; ++i) {
        const int curve = AddTrimCurve(std::make_unique<LineCurve>(
            Corner(plane, i), Corner(plane, i + 1), surface->Domain(i % 2)));
        if (edges[i] >= 0)
            NewTrim(Edge(edges[i]), reversed[i] ? 1 : 0, Loop(loop), curve);
        else
            NewSingularTrim(Vertex(vertices[i]), Loop(loop), curve);
    }
    return &Loop(loop);
}
