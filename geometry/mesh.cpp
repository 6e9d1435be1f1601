#include "geometry/corner_order.h"
#include "objreader/group_object.h"
#include "objreader/read_obj.h"

#include "host/geokit/error.h"
#include "host/vxkit/triangulate.h"

#include <array>

namespace {

void ReportInconsistency(const char* text)
{
    GK_Error("mesh", 0, text);
}

/// Gives the mesh one corner's normal, texture coordinate and colour, as far as the corner has
/// them.
void AppendVertexValues(GK_Mesh& mesh, const CReadOBJ& reader, const V_TN_IDX& corner)
{
    if (corner.ni >= reader.normals.Count() && !reader.normals.IsEmpty())
        return ReportInconsistency("Bogus normal index.\n");
    if (!reader.normals.IsEmpty() && corner.ni >= 0)
        mesh.normals.Append(reader.normals[corner.ni]);

    if (corner.ti >= reader.texCoords.Count() && !reader.texCoords.IsEmpty())
        return ReportInconsistency("Bogus texture index.\n");
    if (!reader.texCoords.IsEmpty() && corner.ti >= 0)
        mesh.textureCoordinates.Append(reader.texCoords[corner.ti]);

    if (!reader.hasVertexColors || reader.vertexColors.IsEmpty())
        return;
    if (corner.vi >= reader.vertexColors.Count())
        return ReportInconsistency("Bogus color index.\n");
    mesh.colors.Append(reader.vertexColors[corner.vi]);
}

} // namespace

bool CReadOBJ::BuildMesh(Group_Object& record)
{
    if (!record.geometry || !record.geometry->mesh || record.geometry->corners.IsEmpty())
        return false;
    Geometry& geometry = *record.geometry;
    MakeMeshVertices(geometry);
    if (!MakeMeshFaces(geometry))
        return false;
    geometry.mesh->UpdateSinglePrecisionVertices();
    geometry.mesh->SetDoublePrecisionVerticesAsValid();
    return true;
}

/// Makes one mesh vertex for each distinct corner, in the order of CompareCorners, and tells every
/// corner its mesh vertex. A corner whose position is none stays without.
void CReadOBJ::MakeMeshVertices(Geometry& geometry)
{
    GK_SimpleArray<V_TN_IDX>& corners = geometry.corners;
    GK_Mesh& mesh = *geometry.mesh;
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
        AppendVertexValues(mesh, *this, corner);
    }
}

/// Makes the mesh faces in the order of the file. Corners without a mesh vertex are left out; what
/// has fewer than three corners then is no face.
bool CReadOBJ::MakeMeshFaces(Geometry& geometry)
{
    GK_Mesh& mesh = *geometry.mesh;
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
bool CReadOBJ::AddNgon(GK_Mesh& mesh, std::span<const int> corners)
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
