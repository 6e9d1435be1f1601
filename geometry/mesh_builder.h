#pragma once

#include "objreader/group_object.h"
#include "objreader/vertex_lists.h"

#include "host/geokit/mesh.h"

#include <memory>
#include <span>

/// Makes meshes of the faces of records.
class MeshBuilder
{
public:
    /// The lists must outlive the builder.
    explicit MeshBuilder(const VertexLists& lists) : m_lists(lists) {}

    /// Returns the mesh of a record's faces, or null when there is nothing to make one of. The
    /// corners get their mesh vertices.
    std::unique_ptr<GK_Mesh> BuildMesh(Geometry& geometry);

private:
    void MakeMeshVertices(GK_SimpleArray<V_TN_IDX>& corners, GK_Mesh& mesh);
    void AppendVertexValues(GK_Mesh& mesh, const V_TN_IDX& corner) const;
    bool MakeMeshFaces(const Geometry& geometry, GK_Mesh& mesh);
    bool AddNgon(GK_Mesh& mesh, std::span<const int> corners);

    const VertexLists& m_lists;

    // Scratch, kept to be used again.
    GK_SimpleArray<int> meshFaceIndices;
    GK_SimpleArray<double> m_polygonPoints;
    GK_SimpleArray<int> m_polygonTriangles;
};

/// Returns an empty mesh with the parameter domains of an imported one.
std::unique_ptr<GK_Mesh> NewGroupMesh();
