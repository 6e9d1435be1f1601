#include "host/geokit/brep.h"

#include "console_host/geokit/iso_curve.h"

#include <algorithm>

namespace {

template <class Pointer>
auto At(const std::vector<Pointer>& list, int index) -> decltype(list[0].get())
{
    const bool present = index >= 0 && static_cast<std::size_t>(index) < list.size();
    return present ? list[static_cast<std::size_t>(index)].get() : nullptr;
}

template <class Pointer, class T>
int Take(std::vector<Pointer>& list, std::unique_ptr<T> item)
{
    list.push_back(std::move(item));
    return static_cast<int>(list.size()) - 1;
}

} // namespace

int GK_Brep::AddSurface(std::unique_ptr<GK_Surface> surface)
{
    return Take(m_surfaces, std::move(surface));
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
    return AddEdgeCurve(std::make_unique<IsoCurve>(
        m_surfaces[static_cast<std::size_t>(surfaceIndex)], direction, parameter));
}

void GK_Brep::RemoveFaces()
{
    m_trimCurves.clear();
    m_edgeCurves.clear();
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
        edge.SetDomain(std::max(subdomain->Min(), whole[0]), std::min(subdomain->Max(), whole[1]));
    return edge;
}

GK_BrepTrim& GK_Brep::NewTrim(GK_BrepEdge& edge, int reversedOnEdge, GK_BrepLoop& loop,
                              int curve2dIndex)
{
    const std::size_t first = reversedOnEdge != 0 ? 1 : 0;
    GK_BrepTrim& trim = m_trims.AppendNew();
    trim.trimIndex = m_trims.Count() - 1;
    trim.curveIndex = curve2dIndex;
    trim.edgeIndex = edge.edgeIndex;
    trim.loopIndex = loop.loopIndex;
    trim.vertexIndex = {edge.vertexIndex[first], edge.vertexIndex[1 - first]};
    trim.reversed = reversedOnEdge != 0;
    trim.SetProxyCurve(TrimCurve(curve2dIndex));
    edge.trimIndices.Append(trim.trimIndex);
    loop.trimIndices.Append(trim.trimIndex);
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

GK_Surface* GK_Brep::Surface(int index)
{
    return At(m_surfaces, index);
}

const GK_Surface* GK_Brep::Surface(int index) const
{
    return At(m_surfaces, index);
}

GK_Curve* GK_Brep::TrimCurve(int index)
{
    return At(m_trimCurves, index);
}

const GK_Curve* GK_Brep::TrimCurve(int index) const
{
    return At(m_trimCurves, index);
}

GK_Curve* GK_Brep::EdgeCurve(int index)
{
    return At(m_edgeCurves, index);
}

const GK_Curve* GK_Brep::EdgeCurve(int index) const
{
    return At(m_edgeCurves, index);
}
