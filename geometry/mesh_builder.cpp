#include "geometry/mesh_builder.h"

#include "geometry/corner_order.h"

#include "host/geokit/error.h"
#include "host/vxkit/triangulate.h"

#include <algorithm>

namespace {

void ReportInconsistency(const char* text)
{
    GK_Error("mesh", 0, text);
}

} // namespace

std::unique_ptr<GK_Mesh> NewGroupMesh()
{
    auto mesh = std::make_unique<GK_Mesh>();
    for (const int direction : {0, 1}) {
        mesh->SetSurfaceParameterDomain(direction, GK_Interval(0.0, 1.0));
        mesh->SetPackedTextureDomain(direction, GK_Interval(0.0, 1.0));
    }
    return mesh;
}

std::unique_ptr<GK_Mesh> MeshBuilder::BuildMesh(Geometry& geometry)
{
    if (geometry.corners.IsEmpty())
        return nullptr;
    std::unique_ptr<GK_Mesh> mesh = NewGroupMesh();
    MakeMeshVertices(geometry.corners, *mesh);
    if (!MakeMeshFaces(geometry, *mesh))
        return nullptr;
    mesh->UpdateSinglePrecisionVertices();
    mesh->SetDoublePrecisionVerticesAsValid();
    return mesh;
}

/// Appends one corner's normal, texture coordinate and colour, as far as the corner has them.
void MeshBuilder::AppendVertexValues(GK_Mesh& mesh, const V_TN_IDX& corner) const
{
    if (corner.ni >= m_lists.normals.Count() && !m_lists.normals.IsEmpty())
        return ReportInconsistency("Bogus normal index.\n");
    if (!m_lists.normals.IsEmpty() && corner.ni >= 0)
        mesh.normals.Append(m_lists.normals[corner.ni]);

    if (corner.ti >= m_lists.texCoords.Count() && !m_lists.texCoords.IsEmpty())
        return ReportInconsistency("Bogus texture index.\n");
    if (!m_lists.texCoords.IsEmpty() && corner.ti >= 0)
        mesh.textureCoordinates.Append(m_lists.texCoords[corner.ti]);

    if (!m_lists.hasVertexColors || m_lists.vertexColors.IsEmpty())
        return;
    if (corner.vi >= m_lists.vertexColors.Count())
        return ReportInconsistency("Bogus color index.\n");
    mesh.colors.Append(m_lists.vertexColors[corner.vi]);
}

/// Makes one mesh vertex for each distinct corner, in the order of CompareCorners, and tells every
/// corner its mesh vertex. A corner whose position is none stays without.
void MeshBuilder::MakeMeshVertices(GK_SimpleArray<V_TN_IDX>& corners, GK_Mesh& mesh)
{
    const GK_SimpleArray<GK_3dPoint>& vertices = m_lists.vertices;
    GK_SimpleArray<GK_3dPoint>& doubleVertices = mesh.DoublePrecisionVertices();
    const GK_SimpleArray<int> order =
        SortCorners({corners.Array(), static_cast<std::size_t>(corners.Count())});

    const V_TN_IDX* previous = nullptr;
    for (const int position : order) {
        V_TN_IDX& corner = corners[position];
        if (previous != nullptr && CompareCorners(*previous, corner) == 0) {
            corner.mesh_vi = previous->mesh_vi;
            continue;
        }
        previous = &corner;
        if (corner.vi < 0 || corner.vi >= vertices.Count()) {
            ReportInconsistency("Bogus vertex index.\n");
            continue;
        }
        corner.mesh_vi = mesh.VertexCount();
        mesh.vertices.Append(GK_3fPoint(vertices[corner.vi]));
        doubleVertices.Append(vertices[corner.vi]);
        AppendVertexValues(mesh, corner);
    }
}

/// Makes the mesh faces in the order of the file. Corners without a mesh vertex are left out; what
/// has fewer than three corners then is no face.
bool MeshBuilder::MakeMeshFaces(const Geometry& geometry, GK_Mesh& mesh)
{
    mesh.faces.Reserve(geometry.faces.Count());
    for (const Face& face : geometry.faces) {
        meshFaceIndices.Empty();
        const V_TN_IDX* const corners = geometry.corners.Array() + face.firstCorner;
        for (int i = 0; i < face.cornerCount; ++i) {
            if (corners[i].mesh_vi >= 0)
                meshFaceIndices.Append(corners[i].mesh_vi);
        }
        const int* const s = meshFaceIndices.Array();
        const int cornerCount = meshFaceIndices.Count();
        if (cornerCount < 3)
            continue;
        if (cornerCount > 4) {
            if (!AddNgon(mesh, {s, static_cast<std::size_t>(cornerCount)}))
                return false;
            continue;
        }
        GK_MeshFace meshFace{{s[0], s[1], s[2], s[cornerCount - 1]}};
        if (!meshFace.IsValid(mesh.VertexCount(), mesh.vertices.Array()))
            meshFace.Repair(mesh.VertexCount(), mesh.vertices.Array());
        mesh.faces.Append(meshFace);
    }
    return true;
}

/// Adds a polygon of five or more corners as an n-gon and the triangles that cover it.
bool MeshBuilder::AddNgon(GK_Mesh& mesh, std::span<const int> corners)
{
    GK_MeshNgonList* const ngons = mesh.ModifyNgonList();
    if (ngons == nullptr)
        return false;
    const auto cornerCount = static_cast<int>(corners.size());
    m_polygonPoints.Empty();
    for (const int corner : corners) {
        const GK_3fPoint& point = mesh.vertices[corner];
        for (const float coordinate : {point.x, point.y, point.z})
            m_polygonPoints.Append(coordinate);
    }
    m_polygonTriangles.SetCount((cornerCount - 2) * 3);
    int* const triangles = m_polygonTriangles.Array();
    if (!VX_Triangulate3dPolygon(cornerCount, 3, m_polygonPoints.Array(), 3, triangles)) {
        int* corner = triangles;
        for (int i = 0; i < cornerCount - 2; ++i) {
            *corner++ = 0;
            *corner++ = i + 1;
            *corner++ = i + 2;
        }
    }

    const GK_MeshNgon ngon = ngons->AddNgon(cornerCount);
    std::copy(corners.begin(), corners.end(), ngon.vi.begin());
    for (int i = 0; i < cornerCount - 2; ++i) {
        const auto meshVertex = [&](int k) {
            return corners[static_cast<std::size_t>(triangles[3 * i + k])];
        };
        ngon.fi[static_cast<std::size_t>(i)] = mesh.FaceCount();
        mesh.faces.Append({{meshVertex(0), meshVertex(1), meshVertex(2), meshVertex(2)}});
    }
    return true;
}
