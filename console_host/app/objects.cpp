#include "host/app/objects.h"

#include "console_host/app/document_object.h"

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

const GK_Geometry* CKelvoMeshObject::Geometry() const
{
    return m_mesh.get();
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

const GK_Geometry* CKelvoCurveObject::Geometry() const
{
    return m_curve.get();
}

CKelvoPointCloudObject::~CKelvoPointCloudObject() = default;

void CKelvoPointCloudObject::SetPointCloud(const GK_PointCloud& cloud)
{
    m_cloud = cloud;
}

const GK_Geometry* CKelvoPointCloudObject::Geometry() const
{
    return &m_cloud;
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

const GK_Geometry* CKelvoBrepObject::Geometry() const
{
    return m_brep.get();
}

namespace {

template <class Geometry>
AnyGeometry IfAny(const Geometry* geometry)
{
    return geometry != nullptr ? AnyGeometry(geometry) : AnyGeometry();
}

} // namespace

AnyGeometry GeometryOf(const CKelvoObject& object)
{
    if (const auto* mesh = dynamic_cast<const CKelvoMeshObject*>(&object))
        return IfAny(mesh->Mesh());
    if (const auto* curve = dynamic_cast<const CKelvoCurveObject*>(&object))
        return IfAny(curve->Curve());
    if (const auto* cloud = dynamic_cast<const CKelvoPointCloudObject*>(&object))
        return IfAny(&cloud->PointCloud());
    if (const auto* brep = dynamic_cast<const CKelvoBrepObject*>(&object))
        return IfAny(brep->Brep());
    return {};
}

const char* KindOf(const CKelvoObject& object)
{
    if (dynamic_cast<const CKelvoMeshObject*>(&object) != nullptr)
        return "mesh";
    if (dynamic_cast<const CKelvoCurveObject*>(&object) != nullptr)
        return "curve";
    if (dynamic_cast<const CKelvoPointCloudObject*>(&object) != nullptr)
        return "point_cloud";
    return dynamic_cast<const CKelvoBrepObject*>(&object) != nullptr ? "brep" : "object";
}
