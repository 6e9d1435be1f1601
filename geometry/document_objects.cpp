#include "objreader/group_object.h"
#include "objreader/out_of_memory.h"
#include "objreader/read_obj.h"

#include <new>
#include <type_traits>

namespace {

/// Adds an object of this geometry, which `setGeometry` hands over; returns the outcome. An object
/// that cannot be made, out of memory, costs only itself and the geometry that it would have taken.
template <class Object, class Taken>
bool AddObjectOf(std::type_identity_t<Taken> geometry, void (Object::*setGeometry)(Taken),
                 CKelvoDoc& doc, const GK_MdxObjectAttributes& attributes)
try {
    auto object = std::make_unique<Object>(attributes);
    ((*object).*setGeometry)(std::forward<Taken>(geometry));
    return doc.AddObject(std::move(object), CReadOBJ::AddAsReference, false);
} catch (const std::bad_alloc&) {
    PrintOutOfMemory(L"Out of memory: an object with the name \"%s\" is not imported.\n",
                     attributes.name.Array());
    return false;
}

/// Bounds the first face by the edge of its surface.
void AddNaturalOuterLoop(GK_Brep& brep)
{
    int vertices[4] = {-1, -1, -1, -1};
    int edges[4] = {-1, -1, -1, -1};
    bool reversed[4] = {};
    brep.NewOuterLoop(0, vertices, edges, reversed);
}

} // namespace

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

/// Adds the objects of one record: mesh, curves, points, point clouds, breps. `result` becomes the
/// outcome of the last object attempted.
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
    AddCurves(*record.geometry, attributes, result);
    AddPoints(*record.geometry, attributes, result);
    AddBreps(*record.geometry, attributes, result);
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
    result = AddObjectOf(std::move(mesh), &CKelvoMeshObject::SetMesh, doc, attributes);
}

void CReadOBJ::AddPoints(const Geometry& geometry, const GK_MdxObjectAttributes& attributes,
                         bool& result)
{
    for (const GK_3dPoint& point : geometry.points)
        doc.AddPointObject(point, attributes, nullptr, AddAsReference);
    int first = 0;
    for (const int end : geometry.cloudEnds) {
        const std::span<const int> cloud(geometry.cloudVertices.Array() + first,
                                         geometry.cloudVertices.Array() + end);
        result = AddPointCloud(cloud, attributes);
        first = end;
    }
}

/// As AddObjectOf, also when there is no memory for the cloud itself.
bool CReadOBJ::AddPointCloud(std::span<const int> indices, const GK_MdxObjectAttributes& attributes)
try {
    GK_PointCloud cloud;
    cloud.points.Reserve(static_cast<int>(indices.size()));
    for (const int index : indices)
        cloud.AppendPoint(vertices[index]);
    return AddObjectOf(cloud, &CKelvoPointCloudObject::SetPointCloud, doc, attributes);
} catch (const std::bad_alloc&) {
    return false;
}

void CReadOBJ::AddCurves(Geometry& geometry, const GK_MdxObjectAttributes& attributes, bool& result)
{
    for (std::unique_ptr<VX_NurbsCurve>& curve : geometry.curves) {
        result = AddObjectOf(std::move(curve), &CKelvoCurveObject::SetCurve, doc, attributes);
    }
}

void CReadOBJ::AddBreps(Geometry& geometry, const GK_MdxObjectAttributes& attributes, bool& result)
{
    for (std::unique_ptr<VX_Brep>& owned : geometry.breps) {
        std::unique_ptr<VX_Brep> brep = std::move(owned);
        if (brep->FaceCount() > 0 && brep->Face(0).LoopCount() == 0)
            AddNaturalOuterLoop(*brep);
        result = KelvoRepairBrep(*brep, tolerance);
        if (!result)
            continue;
        result = AddObjectOf(std::move(brep), &CKelvoBrepObject::SetBrep, doc, attributes);
    }
}
