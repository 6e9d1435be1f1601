#pragma once

#include "console_host/app/document.h"
#include "objimport/saved_forms.h"

#include "host/geokit/mesh.h"
#include "host/geokit/nurbs_curve.h"

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

/// A document that tests put together.
class DocumentBuilder
{
public:
    explicit DocumentBuilder(double tolerance = 0.001) : doc(tolerance) {}

    ConsoleDoc doc;
    GK_MdxObjectAttributes attributes; ///< of the objects that are added next

    void AddMesh(std::unique_ptr<GK_Mesh> mesh)
    {
        auto object = std::make_unique<CKelvoMeshObject>(attributes);
        object->SetMesh(std::move(mesh));
        Add(std::move(object));
    }

    void AddCurve(const GK_NurbsCurve& curve)
    {
        auto object = std::make_unique<CKelvoCurveObject>(attributes);
        object->SetCurve(curve.Duplicate());
        Add(std::move(object));
    }

    void AddCloud(std::initializer_list<GK_3dPoint> points)
    {
        GK_PointCloud cloud;
        for (const GK_3dPoint& point : points)
            cloud.AppendPoint(point);
        auto object = std::make_unique<CKelvoPointCloudObject>(attributes);
        object->SetPointCloud(cloud);
        Add(std::move(object));
    }

    void AddPoint(const GK_3dPoint& point)
    {
        if (!doc.AddPointObject(point, attributes, nullptr, false))
            throw std::invalid_argument("the point is refused");
    }

    /// Adds a material, which the next objects have.
    void AddMaterial(const GK_Material& material)
    {
        attributes.materialIndex = doc.MaterialTable().AddMaterial(material, false);
        attributes.SetMaterialSource(GK::material_from_object);
    }

    [[nodiscard]] ExchangeDocument View(const DocumentOrigin& origin = {}) const
    {
        return ViewForExchange(doc, origin);
    }

private:
    void Add(std::unique_ptr<CKelvoObject> object)
    {
        if (!doc.AddObject(std::move(object), false, false))
            throw std::invalid_argument("the object is refused");
    }
};

/// Returns a mesh with these positions and faces, and nothing else.
inline std::unique_ptr<GK_Mesh> MakeMesh(const std::vector<GK_3dPoint>& positions,
                                         std::initializer_list<GK_MeshFace> faces)
{
    auto mesh = std::make_unique<GK_Mesh>();
    for (const GK_3dPoint& position : positions)
        mesh->DoublePrecisionVertices().Append(position);
    mesh->SetDoublePrecisionVerticesAsValid();
    mesh->UpdateSinglePrecisionVertices();
    for (const GK_MeshFace& face : faces)
        mesh->faces.Append(face);
    return mesh;
}

inline std::unique_ptr<GK_Mesh> MakeTriangle()
{
    return MakeMesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{{0, 1, 2, 2}}});
}
