#include "geometry/finish_mesh.h"

#include "geometry/normal_repair.h"

namespace {

/// Empties a per-vertex list that has not one entry for each vertex.
template <class T>
void DropUnlessComplete(GK_SimpleArray<T>& list, int vertexCount)
{
    if (list.Count() != vertexCount)
        list.Destroy();
}

} // namespace

bool FinishMesh(GK_Mesh* mesh, bool isMorphTarget, KelvoWorkSharing* threads, StageLaps& laps)
{
    if (mesh == nullptr)
        return false;
    DropUnlessComplete(mesh->textureCoordinates, mesh->VertexCount());
    DropUnlessComplete(mesh->surfaceParameters, mesh->VertexCount());
    DropUnlessComplete(mesh->normals, mesh->VertexCount());
    mesh->Compact(threads);
    laps.Lap(ImportStage::CleanUp);
    if (mesh->FaceCount() == 0 || mesh->VertexCount() == 0)
        return false;

    RepairNormals(*mesh);
    if (!mesh->HasVertexNormals() || isMorphTarget)
        mesh->ComputeVertexNormals(threads);
    laps.Lap(ImportStage::Normals);
    if (mesh->IsClosed(threads) && mesh->Volume(GK_origin, nullptr, threads) < 0.0)
        mesh->Flip();
    laps.Lap(ImportStage::Closedness);
    return true;
}
