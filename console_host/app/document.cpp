#include "console_host/app/document.h"

#include "console_host/app/import_journal.h"
#include "console_host/geokit/mesh_positions.h"
#include "console_host/geokit/point_box.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace {

constexpr const char* NoMemory = "out of memory";

bool IsIndexOf(int index, int count)
{
    return index >= 0 && index < count;
}

/// Counts what is offered and returns which of its kind it is, from 1. Breps are counted by the
/// repair.
int CountOffered(const AnyGeometry& geometry)
{
    int& count = CurrentJournal().offered[geometry.index()];
    return std::holds_alternative<const GK_Brep*>(geometry) ? count : ++count;
}

/// Notes a refusal as far as there is memory to; always false.
bool Refuse(const char* type, const std::string& reason, int number,
            const GK_MdxObjectAttributes& attributes)
{
    constexpr std::size_t LongestName = 1000; // very many objects may have a longer one
    try {
        const GK_wString& name = attributes.name;
        const bool isShort = name.View().size() <= LongestName;
        NoteRefused(type, reason, number, isShort ? name.Utf8() : std::string());
    } catch (const std::bad_alloc&) {
        return false;
    }
    return false;
}

template <class Point>
bool AreFinite(const GK_SimpleArray<Point>& points)
{
    return std::all_of(points.begin(), points.end(), IsFinite<Point>);
}

std::string WhyUnsound(const GK_Mesh& mesh)
{
    if (mesh.FaceCount() == 0)
        return "the mesh has no faces";
    // Valid double-precision vertices are the positions; the others are those rounded, and infinite
    // for large ones.
    const bool finite = mesh.DoublePrecisionVerticesAreValid()
                            ? AreFinite(mesh.DoublePrecisionVertices())
                            : AreFinite(mesh.vertices);
    return finite ? "" : "the mesh has a vertex that is not finite";
}

std::string WhyUnsound(const GK_Curve& curve)
{
    std::string reason;
    return curve.IsValid(&reason) ? "" : reason;
}

std::string WhyUnsound(const GK_3dPoint& point)
{
    return IsFinite(point) ? "" : "the point is not finite";
}

std::string WhyUnsound(const GK_PointCloud& cloud)
{
    if (cloud.points.IsEmpty())
        return "the point cloud has no points";
    return AreFinite(cloud.points) ? "" : "the point cloud has a point that is not finite";
}

std::string WhyUnsound(const GK_Brep& brep)
{
    if (brep.FaceCount() == 0)
        return "the brep has no face";
    std::string reason;
    for (int i = 0; i < brep.SurfaceCount(); ++i)
        if (!brep.Surface(i)->IsValid(&reason))
            return reason;
    return {};
}

/// Returns why geometry cannot be in a document ("the curve has no knots"); empty when it can.
std::string WhyUnsound(const AnyGeometry& geometry)
{
    return std::visit(
        [](const auto* any) { return any != nullptr ? WhyUnsound(*any) : "there is no geometry"; },
        geometry);
}

/// Replaces normals and texture coordinates that are not finite, for which a mesh is not refused,
/// by (0, 0, 1) and (0, 0).
void ReplaceUnsoundDirections(GK_Mesh& mesh)
{
    for (GK_3fVector& normal : mesh.normals)
        if (!IsFinite(normal))
            normal = {0.0F, 0.0F, 1.0F};
    for (GK_2fPoint& coordinates : mesh.textureCoordinates)
        if (!std::isfinite(coordinates.x) || !std::isfinite(coordinates.y))
            coordinates = {};
}

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

ConsoleDoc::ConsoleDoc(double absoluteTolerance) : m_absoluteTolerance(absoluteTolerance) {}

void ConsoleDoc::CheckAttributes(const char* call, const GK_MdxObjectAttributes& attributes) const
{
    if (!IsIndexOf(attributes.layerIndex, Layers().Count()))
        NoteGuestFault(call, "a layer index that the document does not have");
    if (attributes.materialIndex != -1 && !IsIndexOf(attributes.materialIndex, Materials().Count()))
        NoteGuestFault(call, "a material index that the document does not have");
    if (!attributes.GroupsAreBelow(Groups().Count()))
        NoteGuestFault(call, "a group index that the document does not have");
}

bool ConsoleDoc::AddObject(std::unique_ptr<CKelvoObject> object, bool, bool)
{
    if (object == nullptr) {
        NoteGuestFault("AddObject", "no object");
        return false;
    }
    const AnyGeometry geometry = GeometryOf(*object);
    const char* kind = KindOf(geometry);
    const int number = CountOffered(geometry);
    try {
        if (std::visit([](const auto* any) { return any == nullptr; }, geometry))
            NoteGuestFault("AddObject", "an object without geometry");
        if (const std::string reason = WhyUnsound(geometry); !reason.empty())
            return Refuse(kind, reason, number, object->Attributes());
        CheckAttributes("AddObject", object->Attributes());
        if (auto* mesh = dynamic_cast<CKelvoMeshObject*>(object.get()))
            ReplaceUnsoundDirections(*mesh->Mesh());
        m_entries.push_back({});
    } catch (const std::bad_alloc&) {
        return Refuse(kind, NoMemory, number, object->Attributes());
    }
    m_entries.back().object = std::move(object);
    return true;
}

bool ConsoleDoc::AddPointObject(const GK_3dPoint& point, const GK_MdxObjectAttributes& attributes,
                                const CKelvoHistory*, bool)
{
    const int number = CountOffered(&point);
    try {
        if (const std::string reason = WhyUnsound(&point); !reason.empty())
            return Refuse("point", reason, number, attributes);
        const bool shared = !m_pointAttributes.empty() && m_pointAttributes.back() == attributes;
        if (!shared) {
            CheckAttributes("AddPointObject", attributes);
            m_pointAttributes.push_back(attributes);
        }
        m_entries.push_back({nullptr, &m_pointAttributes.back(), point});
    } catch (const std::bad_alloc&) {
        return Refuse("point", NoMemory, number, attributes);
    }
    return true;
}

void ConsoleDoc::GetViewList(CKelvoViewList& views, bool modelViews, bool)
{
    views.Empty();
    if (modelViews)
        views.Append(&m_view);
}

void ConsoleDoc::Redraw()
{
    CurrentJournal().redrawn = true;
}

DocumentObject ConsoleDoc::Object(int index) const
{
    const Entry& entry = m_entries[static_cast<std::size_t>(index)];
    if (entry.object == nullptr)
        return {entry.pointAttributes, &entry.point};
    return {&entry.object->Attributes(), GeometryOf(*entry.object)};
}

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
