#pragma once

#include "host/geokit/mesh.h"

/// Calls `use` with a function from a vertex index to its position in double precision (the
/// double-precision vertices of the mesh when they are valid, otherwise the others) and returns its
/// result.
template <class Use>
auto WithPositions(const GK_Mesh& mesh, const Use& use)
{
    const GK_SimpleArray<GK_3dPoint>& exact = mesh.DoublePrecisionVertices();
    if (mesh.DoublePrecisionVerticesAreValid() && exact.Count() == mesh.VertexCount())
        return use([points = exact.Array()](int i) -> const GK_3dPoint& { return points[i]; });
    return use([points = mesh.vertices.Array()](int i) {
        return GK_3dPoint{points[i].x, points[i].y, points[i].z};
    });
}

/// Returns whether all four indices are those of vertices, whether or not the corners differ.
inline bool IndicesInRange(const GK_MeshFace& face, int vertexCount)
{
    const auto inRange = [vertexCount](int index) { return index >= 0 && index < vertexCount; };
    return inRange(face.vi[0]) && inRange(face.vi[1]) && inRange(face.vi[2]) && inRange(face.vi[3]);
}
