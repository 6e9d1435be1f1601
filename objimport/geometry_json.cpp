#include "objimport/geometry_json.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

namespace {

/// Calls `write` for 0 to `count` - 1.
template <class Write>
void WriteCounted(JsonStream& json, std::string_view name, int count, Write write)
{
    json.Key(name);
    json.BeginArray();
    for (int i = 0; i < count; ++i)
        write(i);
    json.EndArray();
}

void WriteInterval(JsonStream& json, const GK_Interval& interval)
{
    json.Key("domain");
    json.Tuple(interval[0], interval[1]);
}

// Mesh lists: a lambda each, since their elements differ.

void WriteVertices(JsonStream& json, const GK_Mesh& mesh)
{
    const auto write = [&](const auto& point) {
        json.Tuple(static_cast<double>(point.x), static_cast<double>(point.y),
                   static_cast<double>(point.z));
    };
    if (mesh.DoublePrecisionVerticesAreValid())
        json.ListMember("vertices", mesh.DoublePrecisionVertices(), write);
    else
        json.ListMember("vertices", mesh.vertices, write);
}

void WriteNgons(JsonStream& json, const GK_Mesh& mesh)
{
    const GK_MeshNgonList* ngons = mesh.NgonList();
    WriteCounted(json, "ngons", ngons != nullptr ? ngons->Count() : 0, [&](int i) {
        const auto ngon = ngons->Ngon(i);
        json.BeginObject();
        json.ListMember("vertices", ngon.vi, [&](int vertex) { json.Value(vertex); });
        json.ListMember("faces", ngon.fi, [&](int face) { json.Value(face); });
        json.EndObject();
    });
}

void WriteMesh(JsonStream& json, const GK_Mesh& mesh)
{
    WriteVertices(json, mesh);
    // Single-precision values stand as the doubles that they exactly are.
    json.ListMember("normals", mesh.normals, [&](const GK_3fVector& normal) {
        json.Tuple(static_cast<double>(normal.x), static_cast<double>(normal.y),
                   static_cast<double>(normal.z));
    });
    json.ListMember("texture_coordinates", mesh.textureCoordinates, [&](const GK_2fPoint& point) {
        json.Tuple(static_cast<double>(point.x), static_cast<double>(point.y));
    });
    json.ListMember("colors", mesh.colors, [&](const GK_Color& color) {
        json.Tuple(color.Red(), color.Green(), color.Blue());
    });
    json.ListMember("faces", mesh.faces, [&](const GK_MeshFace& face) {
        json.Tuple(face.vi[0], face.vi[1], face.vi[2], face.vi[3]);
    });
    WriteNgons(json, mesh);
    json.Member("closed", mesh.IsClosed());
}

void WriteCurve(JsonStream& json, const GK_Curve& curve)
{
    const GK_NurbsCurve nurbs = curve.AsBspline();
    json.Member("dimension", curve.Dimension());
    json.Member("order", nurbs.order);
    json.Member("rational", nurbs.rational);
    WriteCounted(json, "points", nurbs.controlPointCount, [&](int i) {
        const GK_3dPoint point = nurbs.ControlPoint(i);
        if (nurbs.dimension == 2)
            json.Tuple(point.x, point.y);
        else
            json.Tuple(point.x, point.y, point.z);
    });
    WriteCounted(json, "weights", nurbs.rational ? nurbs.controlPointCount : 0,
                 [&](int i) { json.Value(nurbs.Weight(i)); });
    json.ListMember("knots", nurbs.knots, [&](double knot) { json.Value(knot); });
}

/// Calls `write` for each control point, u running fastest.
template <class Write>
void WriteNet(JsonStream& json, std::string_view name, const GK_NurbsSurface& surface, Write write)
{
    json.Key(name);
    json.BeginArray();
    for (int v = 0; v < surface.ControlPointCount(1); ++v)
        for (int u = 0; u < surface.ControlPointCount(0); ++u)
            write(u, v);
    json.EndArray();
}

void WriteSurface(JsonStream& json, const GK_Surface& surface)
{
    const GK_NurbsSurface none;
    const GK_NurbsSurface* found = GK_NurbsSurface::Cast(&surface);
    const GK_NurbsSurface& nurbs = found != nullptr ? *found : none;
    json.BeginObject();
    json.Key("order");
    json.Tuple(nurbs.Order(0), nurbs.Order(1));
    json.Key("counts");
    json.Tuple(nurbs.ControlPointCount(0), nurbs.ControlPointCount(1));
    json.Member("rational", nurbs.IsRational());
    WriteNet(json, "points", nurbs, [&](int u, int v) {
        const GK_3dPoint point = nurbs.ControlPoint(u, v);
        json.Tuple(point.x, point.y, point.z);
    });
    WriteNet(json, "weights", nurbs.IsRational() ? nurbs : none,
             [&](int u, int v) { json.Value(nurbs.Weight(u, v)); });
    json.Key("knots");
    json.BeginArray();
    for (const int direction : {0, 1}) {
        json.BeginArray();
        for (const double knot : nurbs.Knots(direction))
            json.Value(knot);
        json.EndArray();
    }
    json.EndArray();
    json.EndObject();
}

void WriteEdge(JsonStream& json, const GK_BrepEdge& edge)
{
    json.BeginObject();
    json.Member("curve_3d", edge.curveIndex);
    json.Key("vertices");
    json.Tuple(edge.vertexIndex[0], edge.vertexIndex[1]);
    WriteInterval(json, edge.Domain());
    json.EndObject();
}

void WriteTrim(JsonStream& json, const GK_BrepTrim& trim)
{
    json.BeginObject();
    json.Member("curve_2d", trim.curveIndex);
    json.Member("edge", trim.edgeIndex);
    json.Member("reversed", trim.reversed);
    WriteInterval(json, trim.Domain());
    json.Key("vertices");
    json.Tuple(trim.vertexIndex[0], trim.vertexIndex[1]);
    json.EndObject();
}

const char* LoopType(GK_BrepLoop::TYPE type)
{
    if (type == GK_BrepLoop::outer)
        return "outer";
    return type == GK_BrepLoop::inner ? "inner" : "unknown";
}

void WriteFace(JsonStream& json, const GK_Brep& brep, const GK_BrepFace& face)
{
    json.BeginObject();
    json.Member("surface", face.surfaceIndex);
    json.ListMember("loops", face.loopIndices, [&](int loopIndex) {
        const GK_BrepLoop& loop = brep.Loop(loopIndex);
        json.BeginObject();
        json.Member("type", LoopType(loop.type));
        json.ListMember("trims", loop.trimIndices,
                        [&](int trim) { WriteTrim(json, brep.Trim(trim)); });
        json.EndObject();
    });
    json.EndObject();
}

void WriteBrep(JsonStream& json, const GK_Brep& brep)
{
    const auto writeCurve = [&](const GK_Curve& curve) {
        json.BeginObject();
        WriteCurve(json, curve);
        json.EndObject();
    };
    WriteCounted(json, "surfaces", brep.SurfaceCount(),
                 [&](int i) { WriteSurface(json, *brep.Surface(i)); });
    WriteCounted(json, "curves_2d", brep.TrimCurveCount(),
                 [&](int i) { writeCurve(*brep.TrimCurve(i)); });
    WriteCounted(json, "curves_3d", brep.EdgeCurveCount(),
                 [&](int i) { writeCurve(*brep.EdgeCurve(i)); });
    WriteCounted(json, "vertices", brep.VertexCount(), [&](int i) {
        const GK_3dPoint& point = brep.Vertex(i).point;
        json.Tuple(point.x, point.y, point.z);
    });
    WriteCounted(json, "edges", brep.EdgeCount(), [&](int i) { WriteEdge(json, brep.Edge(i)); });
    WriteCounted(json, "faces", brep.FaceCount(),
                 [&](int i) { WriteFace(json, brep, brep.Face(i)); });
}

struct GeometryVisitor
{
    JsonStream& json;

    void operator()(const GK_Mesh* mesh) const { WriteMesh(json, *mesh); }
    void operator()(const GK_Curve* curve) const { WriteCurve(json, *curve); }
    void operator()(const GK_3dPoint* point) const
    {
        json.Key("point");
        json.Tuple(point->x, point->y, point->z);
    }
    void operator()(const GK_PointCloud* cloud) const
    {
        json.ListMember("points", cloud->points,
                        [&](const GK_3dPoint& point) { json.Tuple(point.x, point.y, point.z); });
    }
    void operator()(const GK_Brep* brep) const { WriteBrep(json, *brep); }
};

} // namespace

void WriteGeometry(JsonStream& json, const AnyGeometry& geometry)
{
    std::visit(GeometryVisitor{json}, geometry);
}
