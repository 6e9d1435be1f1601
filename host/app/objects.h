#pragma once

#include "host/geokit/brep.h"
#include "host/geokit/mesh.h"
#include "host/geokit/object.h"
#include "host/geokit/object_attributes.h"
#include "host/geokit/point_cloud.h"

#include <memory>
#include <utility>

/// Something in a document: attributes and geometry. A document object is made from its attributes,
/// given its geometry and handed to CKelvoDoc::AddObject. Until then the maker owns it, and may do
/// all that on any one thread; an object that is not handed over is simply destroyed. Setters throw
/// std::bad_alloc when out of memory and leave the object as it was.
class CKelvoObject : public GK_Object
{
public:
    explicit CKelvoObject(GK_MdxObjectAttributes attributes) : m_attributes(std::move(attributes))
    {
    }
    CKelvoObject(const CKelvoObject&) = delete;
    CKelvoObject& operator=(const CKelvoObject&) = delete;
    ~CKelvoObject() override = 0;

    [[nodiscard]] const GK_MdxObjectAttributes& Attributes() const { return m_attributes; }

private:
    GK_MdxObjectAttributes m_attributes;
};

class CKelvoMeshObject : public CKelvoObject
{
public:
    using CKelvoObject::CKelvoObject;
    ~CKelvoMeshObject() override;

    /// Takes the mesh over in place of the one before.
    void SetMesh(std::unique_ptr<GK_Mesh> mesh) { m_mesh = std::move(mesh); }
    [[nodiscard]] GK_Mesh* Mesh() { return m_mesh.get(); }
    [[nodiscard]] const GK_Mesh* Mesh() const { return m_mesh.get(); }

private:
    std::unique_ptr<GK_Mesh> m_mesh;
};

class CKelvoCurveObject : public CKelvoObject
{
public:
    using CKelvoObject::CKelvoObject;
    ~CKelvoCurveObject() override;

    /// Takes the curve over in place of the one before.
    void SetCurve(std::unique_ptr<GK_Curve> curve) { m_curve = std::move(curve); }
    [[nodiscard]] const GK_Curve* Curve() const { return m_curve.get(); }

private:
    std::unique_ptr<GK_Curve> m_curve;
};

class CKelvoPointCloudObject : public CKelvoObject
{
public:
    using CKelvoObject::CKelvoObject;
    ~CKelvoPointCloudObject() override;

    /// Copies the cloud; the caller keeps its own.
    void SetPointCloud(const GK_PointCloud& cloud) { m_cloud = cloud; }
    [[nodiscard]] const GK_PointCloud& PointCloud() const { return m_cloud; }

private:
    GK_PointCloud m_cloud;
};

class CKelvoBrepObject : public CKelvoObject
{
public:
    using CKelvoObject::CKelvoObject;
    ~CKelvoBrepObject() override;

    /// Takes the brep over in place of the one before.
    void SetBrep(std::unique_ptr<GK_Brep> brep) { m_brep = std::move(brep); }
    [[nodiscard]] const GK_Brep* Brep() const { return m_brep.get(); }

private:
    std::unique_ptr<GK_Brep> m_brep;
};

/// Makes a brep usable: chains the trims of each loop by the ends that lie nearest, joins ends that
/// meet within the tolerance, turns loops the right way, completes them along seams and poles of
/// their surface, makes a face of each outer loop and drops loops that bound nothing. Loops, trims,
/// edges and vertices get other indices. Returns true when the brep can be added to a document with
/// a tolerance (above 0) of this size. Returns false when it cannot be used; it is then as it was.
/// It stays the caller's in any case. The host tells the user what was dropped or refused and why.
/// User-interface thread only. Throws std::bad_alloc when out of memory.
bool KelvoRepairBrep(GK_Brep& brep, double tolerance);
