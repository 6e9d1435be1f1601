#include "console_host/geokit/line_curve.h"
#include "console_host/geokit/surface_closure.h"

#include "host/geokit/brep.h"

#include <algorithm>
#include <array>

namespace {

// Sides in the order of the loop, each from the corner of its number to the next corner.
enum : int
{
    South, // v lowest, u rising
    East,  // u highest, v rising
    North, // v highest, u falling
    West,  // u lowest, v falling
    SideCount
};

struct Side
{
    bool collapsed = false;
    bool shared = false; // the curve of the side opposite, of lower number, is the same
};

struct Boundary
{
    std::array<Side, SideCount> sides;
    std::array<GK_3dPoint, SideCount> uv; // corners in the parameter plane
};

std::size_t At(int side)
{
    return static_cast<std::size_t>(side % SideCount);
}

Boundary MakeBoundary(const GK_NurbsSurface& surface)
{
    const GK_Interval u = surface.Domain(0);
    const GK_Interval v = surface.Domain(1);
    Boundary boundary;
    boundary.uv = {GK_3dPoint{u[0], v[0], 0.0}, GK_3dPoint{u[1], v[0], 0.0},
                   GK_3dPoint{u[1], v[1], 0.0}, GK_3dPoint{u[0], v[1], 0.0}};
    const SurfaceClosure closure = ClosureOf(surface, 0.0);
    boundary.sides[South].collapsed = closure.pole[1][0];
    boundary.sides[East].collapsed = closure.pole[0][1];
    boundary.sides[North].collapsed = closure.pole[1][1];
    boundary.sides[West].collapsed = closure.pole[0][0];
    boundary.sides[North].shared = closure.closed[1];
    boundary.sides[West].shared = closure.closed[0];
    return boundary;
}

// For each corner the first corner that is at the same place because of a collapsed or shared side.
std::array<int, SideCount> MergeCorners(const Boundary& boundary)
{
    std::array<int, SideCount> leader{0, 1, 2, 3};
    const auto merge = [&](int a, int b) {
        const int low = std::min(leader[At(a)], leader[At(b)]);
        const int high = std::max(leader[At(a)], leader[At(b)]);
        std::replace(leader.begin(), leader.end(), high, low);
    };
    for (int side = South; side < SideCount; ++side) {
        if (boundary.sides[At(side)].collapsed)
            merge(side, side + 1);
        if (boundary.sides[At(side)].shared) {
            merge(side, side - 1);
            merge(side + 1, side - 2);
        }
    }
    return leader;
}

// Gives corners at one place one vertex, an existing one where a corner names it.
void ChooseVertices(GK_Brep& brep, const Boundary& boundary, const GK_Surface& surface,
                    int vertices[SideCount])
{
    const std::array<int, SideCount> leader = MergeCorners(boundary);
    std::array<int, SideCount> chosen{-1, -1, -1, -1};
    for (int corner = 0; corner < SideCount; ++corner)
        if (vertices[corner] >= 0 && vertices[corner] < brep.VertexCount())
            chosen[At(leader[At(corner)])] = vertices[corner];
    for (int corner = 0; corner < SideCount; ++corner) {
        int& vertex = chosen[At(leader[At(corner)])];
        if (vertex < 0) {
            const GK_3dPoint& uv = boundary.uv[At(corner)];
            vertex = brep.NewVertex(surface.PointAt(uv.x, uv.y), 0.0).vertexIndex;
        }
        vertices[corner] = vertex;
    }
}

// Adds the curve along a side, rising, whichever way the loop takes it.
int AddSideCurve(GK_Brep& brep, int surface, const Boundary& boundary, int side)
{
    const GK_3dPoint& corner = boundary.uv[At(side)];
    return side % 2 == 0 ? brep.AddIsoCurve(surface, 0, corner.y)
                         : brep.AddIsoCurve(surface, 1, corner.x);
}

// Gives each side that does not collapse its edge and says how the loop takes it.
void ChooseEdges(GK_Brep& brep, int surface, const Boundary& boundary,
                 const int vertices[SideCount], int edges[SideCount], bool reversed[SideCount])
{
    for (int i = South; i < SideCount; ++i) {
        const Side& side = boundary.sides[At(i)];
        if (side.collapsed) {
            edges[i] = -1;
        } else if (edges[i] >= 0 && edges[i] < brep.EdgeCount()) {
            continue;
        } else if (side.shared) {
            edges[i] = edges[i - 2];
            reversed[i] = !reversed[i - 2];
        } else {
            reversed[i] = i >= North;
            const int first = vertices[At(reversed[i] ? i + 1 : i)];
            const int last = vertices[At(reversed[i] ? i : i + 1)];
            const int curve = AddSideCurve(brep, surface, boundary, i);
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
    const Boundary boundary = MakeBoundary(*surface);
    ChooseVertices(*this, boundary, *surface, vertices);
    ChooseEdges(*this, surfaceIndex, boundary, vertices, edges, reversed);
    const int loop = NewLoop(GK_BrepLoop::outer, Face(faceIndex)).loopIndex;
    for (int i = South; i < SideCount; ++i) {
        const GK_Interval domain = surface->Domain(i % 2);
        const int curve = AddTrimCurve(
            std::make_unique<LineCurve>(boundary.uv[At(i)], boundary.uv[At(i + 1)], domain));
        if (edges[i] >= 0)
            NewTrim(Edge(edges[i]), reversed[i] ? 1 : 0, Loop(loop), curve);
        else
            NewSingularTrim(Vertex(vertices[i]), Loop(loop), curve);
    }
    return &Loop(loop);
}
