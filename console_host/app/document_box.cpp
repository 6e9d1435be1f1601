#include "console_host/app/document.h"
#include "console_host/app/import_journal.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <algorithm>

namespace {

/// Grows a box to hold geometry; curves and surfaces lie within their control points.
struct BoxVisitor
{
    GK_BoundingBox box;
    bool empty = true;

    void Take(const GK_3dPoint& point)
    {
        if (empty)
            box = {point, point};
        empty = false;
        box.min = {std::min(box.min.x, point.x), std::min(box.min.y, point.y),
                   std::min(box.min.z, point.z)};
        box.max = {std::max(box.max.x, point.x), std::max(box.max.y, point.y),
                   std::max(box.max.z, point.z)};
    }

    void Take(const GK_3fPoint& point) { Take(GK_3dPoint{point.x, point.y, point.z}); }

    template <class Points>
    void TakeAll(const Points& points)
    {
        for (const auto& point : points)
            Take(point);
    }

    void operator()(const GK_Mesh* mesh)
    {
        if (mesh->DoublePrecisionVerticesAreValid())
            TakeAll(mesh->DoublePrecisionVertices());
        else
            TakeAll(mesh->vertices);
    }

    void operator()(const GK_Curve* curve)
    {
        if (const GK_NurbsCurve* nurbs = GK_NurbsCurve::Cast(curve))
            for (int i = 0; i < nurbs->controlPointCount; ++i)
                Take(nurbs->ControlPoint(i));
    }

    void operator()(const GK_3dPoint* point) { Take(*point); }

    void operator()(const GK_PointCloud* cloud) { TakeAll(cloud->points); }

    void operator()(const GK_Brep* brep)
    {
        for (int i = 0; i < brep->SurfaceCount(); ++i)
            if (const auto* surface = GK_NurbsSurface::Cast(brep->Surface(i)))
                for (int u = 0; u < surface->ControlPointCount(0); ++u)
                    for (int v = 0; v < surface->ControlPointCount(1); ++v)
                        Take(surface->ControlPoint(u, v));
    }
};

} // namespace

GK_BoundingBox KvZoomExtentsBoundingBox(CKelvoDoc& doc)
{
    BoxVisitor visitor;
    const auto& consoleDoc = dynamic_cast<const ConsoleDoc&>(doc);
    for (int i = 0; i < consoleDoc.ObjectCount(); ++i)
        std::visit(visitor, consoleDoc.Object(i).geometry);
    return visitor.box;
}

void KvZoomExtentsHelper(const GK_BoundingBox& box, CKelvoDoc&, const CKelvoViewList& views)
{
    for (CKelvoView* view : views)
        view->shown = box;
    CurrentJournal().zoomed = true;
}
