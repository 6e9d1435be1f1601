#include "objimport/exchange/object_drawing.h"

#include "objimport/exchange/brep_triangles.h"
#include "objimport/exchange/curve_line.h"
#include "objimport/exchange/mesh_edges.h"

#include "host/geokit/brep.h"

#include <utility>

namespace {

/// Returns a view of a per-vertex list; of nothing when the list does not go with the vertices.
template <class T>
std::span<const T> ViewOf(const GK_SimpleArray<T>& list, int vertexCount)
{
    if (list.Count() != vertexCount)
        return {};
    return {list.Array(), static_cast<std::size_t>(vertexCount)};
}

/// Appends the triangles of a face. A quad is cut along the diagonal from its first corner, unless
/// it is concave there.
void AddTriangles(const GK_MeshFace& face, std::span<const GK_3dPoint> positions,
                  std::vector<ObjectDrawing::Triangle>& triangles)
{
    const auto count = static_cast<std::int64_t>(positions.size());
    for (const int index : face.vi)
        if (index < 0 || index >= count)
            return;
    const auto [a, b, c, d] =
        std::array{static_cast<std::uint32_t>(face.vi[0]), static_cast<std::uint32_t>(face.vi[1]),
                   static_cast<std::uint32_t>(face.vi[2]), static_cast<std::uint32_t>(face.vi[3])};
    if (c == d) {
        triangles.push_back({a, b, c});
        return;
    }
    const GK_3dVector diagonal = positions[c] - positions[a];
    const GK_3dVector first = GK_CrossProduct(positions[b] - positions[a], diagonal);
    const GK_3dVector second = GK_CrossProduct(diagonal, positions[d] - positions[a]);
    const bool isConcave = GK_DotProduct(first, second) < 0.0;
    triangles.push_back(isConcave ? ObjectDrawing::Triangle{a, b, d}
                                  : ObjectDrawing::Triangle{a, b, c});
    triangles.push_back(isConcave ? ObjectDrawing::Triangle{b, c, d}
                                  : ObjectDrawing::Triangle{a, c, d});
}

void SetPositions(const GK_Mesh& mesh, ObjectDrawing& drawing)
{
    drawing.positions = ViewOf(mesh.DoublePrecisionVertices(), mesh.VertexCount());
    if (mesh.DoublePrecisionVerticesAreValid() && !drawing.positions.empty())
        return;
    drawing.ownPositions.reserve(static_cast<std::size_t>(mesh.VertexCount()));
    for (const GK_3fPoint& vertex : mesh.vertices)
        drawing.ownPositions.push_back({vertex.x, vertex.y, vertex.z});
    drawing.positions = drawing.ownPositions;
}

void DrawMesh(const GK_Mesh& mesh, DrawnEdges edges, ObjectDrawing& drawing)
{
    drawing.kind = ObjectDrawing::Kind::Triangles;
    SetPositions(mesh, drawing);
    drawing.normals = ViewOf(mesh.normals, mesh.VertexCount());
    drawing.textureCoordinates = ViewOf(mesh.textureCoordinates, mesh.VertexCount());
    drawing.colors = ViewOf(mesh.colors, mesh.VertexCount());
    drawing.triangles.reserve(static_cast<std::size_t>(mesh.FaceCount()) * 2);
    for (const GK_MeshFace& face : mesh.faces)
        AddTriangles(face, drawing.positions, drawing.triangles);
    if (edges == DrawnEdges::None)
        return;
    for (const auto& [from, to] : EdgesOfMesh(mesh))
        drawing.edges.push_back({drawing.positions[static_cast<std::size_t>(from)],
                                 drawing.positions[static_cast<std::size_t>(to)]});
}

void DrawBrep(const GK_Brep& brep, double tolerance, DrawnEdges edges, ObjectDrawing& drawing)
{
    drawing.kind = ObjectDrawing::Kind::Triangles;
    BrepTriangles faces = TrianglesOfBrep(brep, tolerance);
    drawing.ownPositions = std::move(faces.positions);
    drawing.ownNormals = std::move(faces.normals);
    drawing.positions = drawing.ownPositions;
    drawing.normals = drawing.ownNormals;
    drawing.triangles = std::move(faces.triangles);
    drawing.facesWithout = faces.facesWithout;
    drawing.whyWithout = std::move(faces.whyWithout);
    drawing.isCoarse = faces.isCoarse;
    if (edges == DrawnEdges::None)
        return;
    for (int i = 0; i < brep.EdgeCount(); ++i) {
        const CurveLine line = LineOfCurve(brep.Edge(i), tolerance);
        for (std::size_t j = 1; j < line.points.size(); ++j)
            drawing.edges.push_back({line.points[j - 1], line.points[j]});
    }
}

void DrawCurve(const GK_Curve& curve, double tolerance, ObjectDrawing& drawing)
{
    drawing.kind = ObjectDrawing::Kind::Line;
    CurveLine line = LineOfCurve(curve, tolerance);
    drawing.ownPositions = std::move(line.points);
    drawing.positions = drawing.ownPositions;
    drawing.isCoarse = line.isCoarse;
}

/// Draws geometry by its kind.
struct Drawer
{
    void operator()(const GK_Mesh* mesh) const { DrawMesh(*mesh, edges, drawing); }
    void operator()(const GK_Brep* brep) const { DrawBrep(*brep, tolerance, edges, drawing); }
    void operator()(const GK_Curve* curve) const { DrawCurve(*curve, tolerance, drawing); }
    void operator()(const GK_3dPoint* point) const { drawing.positions = {point, 1}; }
    void operator()(const GK_PointCloud* cloud) const
    {
        drawing.positions = ViewOf(cloud->points, cloud->points.Count());
    }

    double tolerance;
    DrawnEdges edges;
    ObjectDrawing& drawing;
};

} // namespace

ObjectDrawing DrawObject(const ExchangeObject& object, double tolerance, DrawnEdges edges)
{
    ObjectDrawing drawing;
    std::visit(Drawer{tolerance, edges, drawing}, object.geometry);
    if (object.attributes->MaterialSource() == GK::material_from_object)
        drawing.material = object.attributes->materialIndex;
    return drawing;
}
