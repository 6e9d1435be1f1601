#include "host/geokit/brep.h"

#include "console_host/geokit/compact_curves.h"

#include <algorithm>
#include <vector>

namespace {

template <class Pointer>
const auto* At(const GK_ClassArray<Pointer>& list, int index)
{
    return index >= 0 && index < list.Count() ? list[index].get() : nullptr;
}

template <class T>
int Take(GK_ClassArray<T>& list, T item)
{
    list.Append(std::move(item));
    return list.Count() - 1;
}

/// Removes from a list what no index names, and updates the indices, of which -1 names nothing.
template <class T>
void KeepNamed(GK_ClassArray<T>& list, const std::vector<int*>& indices)
{
    std::vector<int> numbers(static_cast<std::size_t>(list.Count()), -1);
    const auto numberOf = [&](int i) -> int& { return numbers[static_cast<std::size_t>(i)]; };
    for (const int* index : indices)
        if (*index >= 0)
            numberOf(*index) = 0;
    GK_ClassArray<T> kept;
    kept.Reserve(static_cast<int>(std::count(numbers.begin(), numbers.end(), 0)));
    for (int i = 0; i < list.Count(); ++i)
        if (numberOf(i) == 0)
            numberOf(i) = Take(kept, std::move(list[i]));
    list = std::move(kept);
    for (int* index : indices)
        if (*index >= 0)
            *index = numberOf(*index);
}

} // namespace

int GK_Brep::AddSurface(std::unique_ptr<GK_Surface> surface)
{
    return Take(m_surfaces, std::shared_ptr<GK_Surface>(std::move(surface)));
}

int GK_Brep::AddTrimCurve(std::unique_ptr<GK_Curve> curve2d)
{
    return Take(m_trimCurves, std::move(curve2d));
}

int GK_Brep::AddEdgeCurve(std::unique_ptr<GK_Curve> curve3d)
{
    return Take(m_edgeCurves, std::move(curve3d));
}

int GK_Brep::AddIsoCurve(int surfaceIndex, int direction, double parameter)
{
    return AddEdgeCurve(std::make_unique<IsoCurve>(m_surfaces[surfaceIndex], direction, parameter));
}

void GK_Brep::RemoveFaces()
{
    m_trimCurves.Destroy();
    m_edgeCurves.Destroy();
    m_faces.Destroy();
    m_loops.Destroy();
    m_trims.Destroy();
    m_edges.Destroy();
    m_vertices.Destroy();
}

GK_BrepFace& GK_Brep::NewFace(int surfaceIndex)
{
    GK_BrepFace& face = m_faces.AppendNew();
    face.faceIndex = m_faces.Count() - 1;
    face.surfaceIndex = surfaceIndex;
    return face;
}

GK_BrepLoop& GK_Brep::NewLoop(GK_BrepLoop::TYPE type, GK_BrepFace& face)
{
    GK_BrepLoop& loop = m_loops.AppendNew();
    loop.loopIndex = m_loops.Count() - 1;
    loop.type = type;
    loop.faceIndex = face.faceIndex;
    face.loopIndices.Append(loop.loopIndex);
    return loop;
}

GK_BrepVertex& GK_Brep::NewVertex(const GK_3dPoint& point, double tolerance)
{
    GK_BrepVertex& vertex = m_vertices.AppendNew();
    vertex.vertexIndex = m_vertices.Count() - 1;
    vertex.point = point;
    vertex.tolerance = tolerance;
    return vertex;
}

GK_BrepEdge& GK_Brep::NewEdge(const GK_BrepVertex& start, const GK_BrepVertex& end,
                              int curve3dIndex, const GK_Interval* subdomain, double tolerance)
{
    GK_BrepEdge& edge = m_edges.AppendNew();
    edge.edgeIndex = m_edges.Count() - 1;
    edge.curveIndex = curve3dIndex;
    edge.vertexIndex = {start.vertexIndex, end.vertexIndex};
    edge.tolerance = tolerance;
    edge.SetProxyCurve(EdgeCurve(curve3dIndex));
    // A pushed-up curve covers what its sub-domain has in common with the 2D curve's domain.
    const GK_Interval whole = edge.Domain();
    if (subdomain != nullptr && subdomain->Min() < whole[1] && subdomain->Max() > whole[0])
        edge.SetDomain(
            {std::max(subdomain->Min(), whole[0]), std::min(subdomain->Max(), whole[1])});
    return edge;
}

GK_BrepTrim& GK_Brep::NewTrim(GK_BrepEdge& edge, int reversedOnEdge, GK_BrepLoop& loop,
                              int curve2dIndex)
{
    const std::size_t first = reversedOnEdge != 0 ? 1 : 0;
    GK_BrepTrim& trim = NewSingularTrim(Vertex(edge.vertexIndex[first]), loop, curve2dIndex);
    trim.edgeIndex = edge.edgeIndex;
    trim.vertexIndex[1] = edge.vertexIndex[1 - first];
    trim.reversed = reversedOnEdge != 0;
    edge.trimIndices.Append(trim.trimIndex);
    return trim;
}

GK_BrepTrim& GK_Brep::NewSingularTrim(const GK_BrepVertex& vertex, GK_BrepLoop& loop,
                                      int curve2dIndex)
{
    GK_BrepTrim& trim = m_trims.AppendNew();
    trim.trimIndex = m_trims.Count() - 1;
    trim.curveIndex = curve2dIndex;
    trim.loopIndex = loop.loopIndex;
    trim.vertexIndex = {vertex.vertexIndex, vertex.vertexIndex};
    trim.SetProxyCurve(TrimCurve(curve2dIndex));
    loop.trimIndices.Append(trim.trimIndex);
    return trim;
}

const GK_Surface* GK_Brep::Surface(int index) const
{
    return At(m_surfaces, index);
}

const GK_Curve* GK_Brep::TrimCurve(int index) const
{
    return At(m_trimCurves, index);
}

const GK_Curve* GK_Brep::EdgeCurve(int index) const
{
    return At(m_edgeCurves, index);
}

void GK_Brep::RemoveUnused()
{
    std::vector<int*> surfaces;
    std::vector<int*> edges;
    std::vector<int*> vertices;
    std::vector<int*> edgeCurves;
    for (GK_BrepFace& face : m_faces) {
        surfaces.push_back(&face.surfaceIndex);
        face.loopIndices.Shrink();
    }
    for (GK_BrepLoop& loop : m_loops)
        loop.trimIndices.Shrink();
    for (GK_BrepTrim& trim : m_trims) {
        edges.push_back(&trim.edgeIndex);
        for (int& vertex : trim.vertexIndex)
            vertices.push_back(&vertex);
    }
    KeepNamed(m_edges, edges);
    for (GK_BrepEdge& edge : m_edges) {
        edge.trimIndices.Shrink();
        edge.edgeIndex = static_cast<int>(edgeCurves.size());
        edgeCurves.push_back(&edge.curveIndex);
        for (int& vertex : edge.vertexIndex)
            vertices.push_back(&vertex);
    }
    KeepNamed(m_surfaces, surfaces);
    KeepNamed(m_edgeCurves, edgeCurves);
    KeepNamed(m_vertices, vertices);
    for (int i = 0; i < VertexCount(); ++i)
        m_vertices[i].vertexIndex = i;
}
