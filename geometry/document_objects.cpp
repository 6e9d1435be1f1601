#include "geometry/document_objects.h"

#include "geometry/freeform_curve.h"
#include "geometry/out_of_memory.h"

#include <new>
#include <type_traits>

namespace {

void PrintNotImported(const GK_MdxObjectAttributes& attributes)
{
    PrintOutOfMemory(L"Out of memory: an object with the name \"%s\" is not imported.\n", 36002,
                     attributes.name.Array());
}

/// Carries out a step of making an object and returns its result. An object that cannot be made,
/// out of memory, costs only itself and the geometry that it would have taken.
template <class Step>
bool MakeOrSayWhy(Step step, const GK_MdxObjectAttributes& attributes)
try {
    return step();
} catch (const std::bad_alloc&) {
    PrintNotImported(attributes);
    return false;
}

/// Adds an object of this geometry, which `setGeometry` hands over; returns the outcome.
template <class Object, class Taken>
bool AddObjectOf(std::type_identity_t<Taken> geometry, void (Object::*setGeometry)(Taken),
                 CKelvoDoc& doc, const GK_MdxObjectAttributes& attributes)
{
    const auto add = [&] {
        auto object = std::make_unique<Object>(attributes);
        ((*object).*setGeometry)(std::forward<Taken>(geometry));
        return doc.AddObject(std::move(object), AddAsReference, false);
    };
    return MakeOrSayWhy(add, attributes);
}

// The records of files that have many are timed by samples.
constexpr int MostTimedRecords = 500;
constexpr int SamplingInterval = 31;

/// Bounds the first face by the edge of its surface.
void AddNaturalOuterLoop(GK_Brep& brep)
{
    int vertices[4] = {-1, -1, -1, -1};
    int edges[4] = {-1, -1, -1, -1};
    bool reversed[4] = {};
    brep.NewOuterLoop(0, vertices, edges, reversed);
}

} // namespace

DocumentObjects::DocumentObjects(ObjFile& file, const ImportChoices& choices, CKelvoDoc& doc,
                                 const ThreadUse& threads, ThreadTeam* team, StageTimes& times)
    : m_file(file), m_doc(doc), m_tolerance(doc.AbsoluteTolerance()),
      m_objectAttributes(file, choices, doc), m_meshes(file, choices, threads, team, times),
      m_breps(file.lists, file.trimCurves, m_tolerance), m_times(times),
      m_sampling(file.groupObjects.Count() > MostTimedRecords ? SamplingInterval : 1)
{
}

bool DocumentObjects::Build()
{
    m_result = true;
    for (const std::unique_ptr<Group_Object>& record : m_file.groupObjects) {
        if (record->geometry)
            BuildRecord(*record);
        else
            m_objectAttributes.EnterGroupNames(*record);
    }
    return m_result;
}

/// Adds the objects of one record: mesh, curves, points, point clouds, breps.
void DocumentObjects::BuildRecord(Group_Object& record)
{
    StageLaps laps(m_times, m_sampling.NextWeight());
    m_attributes.Default();
    m_objectAttributes.MakeAttributes(record, m_attributes);
    m_objectAttributes.SetMaterial(record, m_attributes);
    laps.Lap(ImportStage::Attributes);
    AddMesh(laps);
    AddCurves(*record.geometry);
    AddPoints(*record.geometry);
    AddBreps(*record.geometry);
    laps.Lap(ImportStage::HandOver);
}

void DocumentObjects::AddMesh(StageLaps& laps)
{
    RecordMesh made = m_meshes.TakeNext();
    laps.Restart();
    made.inconsistencies.Report();
    switch (made.outcome) {
    case RecordMesh::Outcome::Nothing:
        return;
    case RecordMesh::Outcome::Unfit:
        m_result = false;
        return;
    case RecordMesh::Outcome::OutOfMemory:
        PrintNotImported(m_attributes);
        m_result = false;
        return;
    case RecordMesh::Outcome::Ready:
        m_result =
            AddObjectOf(std::move(made.mesh), &CKelvoMeshObject::SetMesh, m_doc, m_attributes);
    }
}

void DocumentObjects::AddCurves(Geometry& geometry)
{
    std::vector<CurveData> curves = std::move(geometry.curves);
    for (CurveData& curve : curves) {
        const auto add = [&] {
            return AddObjectOf(MakeCurve(curve), &CKelvoCurveObject::SetCurve, m_doc, m_attributes);
        };
        m_result = MakeOrSayWhy(add, m_attributes);
    }
}

void DocumentObjects::AddPoints(const Geometry& geometry)
{
    for (const GK_3dPoint& point : geometry.points)
        m_doc.AddPointObject(point, m_attributes, nullptr, AddAsReference);
    int first = 0;
    for (const int end : geometry.cloudEnds) {
        m_result = AddPointCloud(
            {geometry.cloudVertices.Array() + first, geometry.cloudVertices.Array() + end});
        first = end;
    }
}

bool DocumentObjects::AddPointCloud(std::span<const int> indices)
{
    const auto add = [&] {
        GK_PointCloud cloud;
        cloud.points.Reserve(static_cast<int>(indices.size()));
        for (const int index : indices)
            cloud.AppendPoint(m_file.lists.Position(index));
        return AddObjectOf(cloud, &CKelvoPointCloudObject::SetPointCloud, m_doc, m_attributes);
    };
    return MakeOrSayWhy(add, m_attributes);
}

void DocumentObjects::AddBreps(Geometry& geometry)
{
    std::vector<SurfaceData> surfaces = std::move(geometry.surfaces);
    for (SurfaceData& surface : surfaces) {
        const auto add = [&] {
            const SurfaceData data = std::move(surface);
            return AddBrep(m_breps.MakeBrep(data));
        };
        m_result = MakeOrSayWhy(add, m_attributes);
    }
}

bool DocumentObjects::AddBrep(std::unique_ptr<VX_Brep> brep)
{
    if (brep->FaceCount() > 0 && brep->Face(0).LoopCount() == 0)
        AddNaturalOuterLoop(*brep);
    return KelvoRepairBrep(*brep, m_tolerance) &&
           AddObjectOf(std::move(brep), &CKelvoBrepObject::SetBrep, m_doc, m_attributes);
}
