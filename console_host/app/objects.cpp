#include "host/app/objects.h"

#include "console_host/app/document_object.h"
#include "console_host/app/import_journal.h"
#include "console_host/geokit/brep_repair.h"

#include <utility>

CKelvoObject::CKelvoObject(GK_MdxObjectAttributes attributes) : m_attributes(std::move(attributes))
{
}

CKelvoObject::~CKelvoObject() = default;

CKelvoMeshObject::~CKelvoMeshObject() = default;

void CKelvoMeshObject::SetMesh(std::unique_ptr<GK_Mesh> mesh)
{
    m_mesh = std::move(mesh);
}

CKelvoCurveObject::CKelvoCurveObject(const GK_MdxObjectAttributes& attributes)
    : CKelvoObject(attributes)
{
}

CKelvoCurveObject::~CKelvoCurveObject() = default;

void CKelvoCurveObject::SetCurve(std::unique_ptr<GK_Curve> curve)
{
    m_curve = std::move(curve);
}

CKelvoPointCloudObject::~CKelvoPointCloudObject() = default;

void CKelvoPointCloudObject::SetPointCloud(const GK_PointCloud& cloud)
{
    m_cloud = cloud;
}

CKelvoBrepObject::CKelvoBrepObject(const GK_MdxObjectAttributes& attributes)
    : CKelvoObject(attributes)
{
}

CKelvoBrepObject::~CKelvoBrepObject() = default;

void CKelvoBrepObject::SetBrep(std::unique_ptr<GK_Brep> brep)
{
    m_brep = std::move(brep);
}

bool KelvoRepairBrep(GK_Brep& brep, double tolerance)
{
    const int number = ++CurrentJournal().offered[AnyGeometry(&brep).index()];
    BrepRepairReport report;
    const bool sound = RepairBrep(brep, tolerance, report);
    for (std::string& reason : report.dropped)
        NoteRefused("loop", std::move(reason), number);
    if (!sound)
        NoteRefused("brep", std::move(report.reason), number);
    return sound;
}

AnyGeometry GeometryOf(const CKelvoObject& object)
{
    if (const auto* mesh = dynamic_cast<const CKelvoMeshObject*>(&object))
        return mesh->Mesh();
    if (const auto* curve = dynamic_cast<const CKelvoCurveObject*>(&object))
        return curve->Curve();
    if (const auto* cloud = dynamic_cast<const CKelvoPointCloudObject*>(&object))
        return &cloud->PointCloud();
    const auto* brep = dynamic_cast<const CKelvoBrepObject*>(&object);
    return brep != nullptr ? brep->Brep() : nullptr;
}

const char* KindOf(const AnyGeometry& geometry)
{
    constexpr const char* Kinds[] = {"mesh", "curve", "point", "point_cloud", "brep"};
    return Kinds[geometry.index()];
}
