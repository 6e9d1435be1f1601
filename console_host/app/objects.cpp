#include "host/app/objects.h"

#include "console_host/app/document.h"
#include "console_host/app/import_journal.h"
#include "console_host/geokit/brep_repair.h"

#include <utility>

CKelvoObject::~CKelvoObject() = default;
CKelvoMeshObject::~CKelvoMeshObject() = default;
CKelvoCurveObject::~CKelvoCurveObject() = default;
CKelvoPointCloudObject::~CKelvoPointCloudObject() = default;
CKelvoBrepObject::~CKelvoBrepObject() = default;

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
