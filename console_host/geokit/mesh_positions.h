#pragma once

#include "host/geokit/mesh.h"

/// A function from a vertex index to its position in double precision.
template <class Point>
class Positions
{
public:
    explicit Positions(const Point* points) : m_points(points) {}

    GK_3dPoint operator()(int i) const { return {m_points[i].x, m_points[i].y, m_points[i].z}; }

    /// Has a position fetched into the processor's cache: faces in a scattered order would wait for
    /// one after the other.
    void Fetch(int i) const { __builtin_prefetch(m_points + i); }

private:
    const Point* m_points;
};

/// Calls `use` with the positions of a mesh (the double-precision vertices when they are valid,
/// otherwise the others) and returns its result.
template <class Use>
auto WithPositions(const GK_Mesh& mesh, const Use& use)
{
    const GK_SimpleArray<GK_3dPoint>& exact = mesh.DoublePrecisionVertices();
    if (mesh.DoublePrecisionVerticesAreValid() && exact.Count() == mesh.VertexCount())
        return use(Positions(exact.Array()));
    return use(Positions(mesh.vertices.Array()));
}

/// Returns whether all four indices are those of vertices, whether or not the corners differ.
inline bool IndicesInRange(const GK_MeshFace& face, int vertexCount)
{
    const auto inRange = [vertexCount](int index) { return index >= 0 && index < vertexCount; };
    return inRange(face.vi[0]) && inRange(face.vi[1]) && inRange(face.vi[2]) && inRange(face.vi[3]);
}

/// Has the positions of a face's corners fetched, when they are those of vertices.
template <class Position>
void FetchCorners(const GK_MeshFace& face, int vertexCount, const Position& position)
{
    if (IndicesInRange(face, vertexCount))
        for (const int vertex : face.vi)
            position.Fetch(vertex);
}
