#include "console_host/app/document.h"
#include "console_host/app/import_journal.h"
#include "console_host/geokit/mesh_positions.h"
#include "console_host/geokit/point_box.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <algorithm>

namespace {

/// Grows a box to hold geometry; curves and surfaces lie within their control points.
struct BoxVisitor
{
    PointBox box;

    void operator()(const GK_Mesh* mesh)
    {
        WithPositions(*mesh, [&](const auto& position) {
            for (int i = 0; i < mesh->VertexCount(); ++i)
                box.Add(position(i));
        });
    }

    void operator()(const GK_Curve* curve)
    {
        if (const GK_NurbsCurve* nurbs = GK_NurbsCurve::Cast(curve))
            for (int i = 0; i < nurbs->controlPointCount; ++i)
                box.Add(nurbs->ControlPoint(i));
    }

    void operator()(const GK_3dPoint* point) { box.Add(*point); }

    void operator()(const GK_PointCloud* cloud)
    {
        std::for_each(cloud->points.begin(), cloud->points.end(), [&](auto& p) { box.Add(p); });
    }

    void operator()(const GK_Brep* brep)
    {
        for (int i = 0; i < brep->SurfaceCount(); ++i)
            if (const auto* surface = GK_NurbsSurface::Cast(brep->Surface(i)))
                for (int u = 0; u < surface->ControlPointCount(0); ++u)
                    for (int v = 0; v < surface->ControlPointCount(1); ++v)
                        box.Add(surface->ControlPoint(u, v));
    }
};

} // namespace

GK_BoundingBox KvZoomExtentsBoundingBox(CKelvoDoc& doc)
{
    BoxVisitor visitor;
    const auto& consoleDoc = dynamic_cast<const ConsoleDoc&>(doc);
    for (int i = 0; i < consoleDoc.ObjectCount(); ++i)
        std::visit(visitor, consoleDoc.Object(i).geometry);
    const PointBox& box = visitor.box;
    return box.IsEmpty() ? GK_BoundingBox() : GK_BoundingBox{box.low, box.high};
}

void KvZoomExtentsHelper(const GK_BoundingBox& box, CKelvoDoc&, const CKelvoViewList& views)
{
    for (CKelvoView* view : views)
        view->shown = box;
    CurrentJournal().zoomed = true;
}
