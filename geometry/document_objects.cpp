#include "objreader/group_object.h"
#include "objreader/read_obj.h"

bool CReadOBJ::Build()
{
    bool result = true;
    GK_MdxObjectAttributes attributes;
    for (const std::unique_ptr<Group_Object>& record : groupObjects) {
        if (record->geometry)
            BuildRecord(*record, attributes, result);
        else
            EnterGroupNames(record->groupNames.get());
    }
    return result;
}

/// Adds the objects of one record: mesh, points, point clouds. `result` becomes the outcome of the
/// last object attempted.
void CReadOBJ::BuildRecord(Group_Object& record, GK_MdxObjectAttributes& attributes, bool& result)
{
    attributes.Default();
    MakeAttributes(record, attributes);
    const int material = doc.MaterialTable().FindMaterial(GK_wString(*record.materialName), true);
    if (material != -1) {
        attributes.materialIndex = material;
        attributes.SetMaterialSource(GK::material_from_object);
    }
    AddMesh(record, attributes, result);
    AddPoints(*record.geometry, attributes, result);
}

void CReadOBJ::AddMesh(Group_Object& record, const GK_MdxObjectAttributes& attributes, bool& result)
{
    Geometry& geometry = *record.geometry;
    if (!geometry.mesh)
        return;
    const bool built = BuildMesh(record);
    // The mesh holds all that follows needs, so the room can serve its clean-up.
    geometry.corners.Destroy();
    geometry.faces.Destroy();
    std::unique_ptr<GK_Mesh> mesh = std::move(geometry.mesh);
    if (!built)
        return;
    result = FinishMesh(mesh.get());
    if (!result)
        return;
    if (ZUp)
        mesh->Transform(ObjYToZ);
    auto object = std::make_unique<CKelvoMeshObject>(attributes);
    object->SetMesh(std::move(mesh));
    result = doc.AddObject(std::move(object), AddAsReference, false);
}

void CReadOBJ::AddPoints(const Geometry& geometry, const GK_MdxObjectAttributes& attributes,
                         bool& result)
{
    for (const GK_3dPoint& point : geometry.points)
        doc.AddPointObject(point, attributes, nullptr, AddAsReference);
    for (const GK_PointCloud& cloud : geometry.pointClouds) {
        auto object = std::make_unique<CKelvoPointCloudObject>(attributes);
        object->SetPointCloud(cloud);
        result = doc.AddObject(std::move(object), AddAsReference, false);
    }
}
