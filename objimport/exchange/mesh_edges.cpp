#include "objimport/exchange/mesh_edges.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace {

using Edges = std::vector<std::array<int, 2>>;

/// Adds the sides of a face or polygon, unless a corner is not a vertex of the mesh.
void AddSides(std::span<const int> corners, const GK_Mesh& mesh, Edges& edges)
{
    const int count = mesh.VertexCount();
    if (std::any_of(corners.begin(), corners.end(), [&](int i) { return i < 0 || i >= count; }))
        return;
    int before = corners.back();
    for (const int corner : corners) {
        edges.push_back({std::min(before, corner), std::max(before, corner)});
        before = corner;
    }
}

/// Returns for each face whether it is a part of a polygon, whose sides are added.
std::vector<bool> AddPolygons(const GK_Mesh& mesh, Edges& edges)
{
    std::vector<bool> isCovered(static_cast<std::size_t>(mesh.FaceCount()));
    const GK_MeshNgonList* polygons = mesh.NgonList();
    for (int i = 0; polygons != nullptr && i < polygons->Count(); ++i) {
        const GK_MeshConstNgon polygon = polygons->Ngon(i);
        AddSides(polygon.vi, mesh, edges);
        for (const int face : polygon.fi)
            if (face >= 0 && face < mesh.FaceCount())
                isCovered[static_cast<std::size_t>(face)] = true;
    }
    return isCovered;
}

} // namespace

std::vector<std::array<int, 2>> EdgesOfMesh(const GK_Mesh& mesh)
{
    Edges edges;
    edges.reserve(static_cast<std::size_t>(mesh.FaceCount()) * 4);
    const std::vector<bool> isCovered = AddPolygons(mesh, edges);
    for (int i = 0; i < mesh.FaceCount(); ++i) {
        const GK_MeshFace& face = mesh.faces[i];
        const std::span<const int> corners = face.vi;
        if (!isCovered[static_cast<std::size_t>(i)])
            AddSides(corners.first(face.IsTriangle() ? 3 : 4), mesh, edges);
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}
