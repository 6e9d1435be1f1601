#include "geometry/mesh_builder.h"

#include "geometry/mesh_faces.h"
#include "geometry/mesh_vertices.h"

#include <utility>

std::unique_ptr<GK_Mesh> NewGroupMesh()
{
    auto mesh = std::make_unique<GK_Mesh>();
    mesh->surfaceParameterDomain.fill(GK_Interval(0.0, 1.0));
    mesh->packedTextureDomain.fill(GK_Interval(0.0, 1.0));
    return mesh;
}

std::unique_ptr<GK_Mesh> MeshBuilder::BuildMesh(Geometry& geometry, KelvoWorkSharing* threads,
                                                Inconsistencies& inconsistencies, StageLaps& laps)
{
    if (!geometry.HasCorners())
        return nullptr;
    const std::vector<FaceRun> runs = std::move(geometry.faces);
    std::unique_ptr<GK_Mesh> mesh = NewGroupMesh();
    m_corners.Find(runs, m_lists.vertices.Count(), geometry.hasEmptyCorner, threads);
    MakeMeshVertices(m_corners, m_lists, threads, *mesh, inconsistencies);
    laps.Lap(ImportStage::MeshVertices);

    MeshFaces faces(m_corners, runs, threads, *mesh);
    if (!faces.Place())
        return nullptr;
    faces.Fill();
    mesh->SetDoublePrecisionVerticesAsValid();
    laps.Lap(ImportStage::MeshFaces);
    return mesh;
}
