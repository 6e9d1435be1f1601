#include "objimport/geometry_json.h"

#include "objimport/indices.h"

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <array>

namespace {

/// Returns coordinates; single-precision values as the doubles that they exactly are.
template <class Point>
std::array<double, 3> Coordinates(const Point& point)
{
    return {point.x, point.y, point.z};
}

void WriteMesh(JsonStream& json, const GK_Mesh& mesh)
{
    const auto writePoint = [&](const auto& point) { json.Value(Coordinates(point)); };
    if (mesh.DoublePrecisionVerticesAreValid())
        json.ListMember("vertices", mesh.DoublePrecisionVertices(), writePoint);
    else
        json.ListMember("vertices", mesh.vertices, writePoint);
    json.ListMember("normals", mesh.normals, writePoint);
    json.ListMember("texture_coordinates", mesh.textureCoordinates, [&](const GK_2fPoint& point) {
        json.Value(std::array<double, 2>{point.x, point.y});
    });
    json.ListMember("colors", mesh.colors, [&](const GK_Color& color) {
        json.Value(std::array{color.Red(), color.Green(), color.Blue()});
    });
    json.ListMember("faces", mesh.faces, [&](const GK_MeshFace& face) { json.Value(face.vi); });
    const GK_MeshNgonList* ngons = mesh.NgonList();
    json.ListMember("ngons", Indices(ngons != nullptr ? ngons->Count() : 0), [&](int i) {
        json.Object("vertices", ngons->Ngon(i).vi, "faces", ngons->Ngon(i).fi);
    });
    json.Members("closed", mesh.IsClosed());
}

void WriteCurve(JsonStream& json, const GK_Curve& curve)
{
    const GK_NurbsCurve nurbs = curve.AsBspline();
    json.Members("dimension", curve.Dimension(), "order", nurbs.order, "rational", nurbs.rational);
    json.ListMember("points", Indices(nurbs.controlPointCount), [&](int i) {
        const auto point = Coordinates(nurbs.ControlPoint(i));
        json.Value(std::span(point).first(nurbs.dimension == 2 ? 2 : 3));
    });
    json.ListMember("weights", Indices(nurbs.rational ? nurbs.controlPointCount : 0),
                    [&](int i) { json.Value(nurbs.Weight(i)); });
    json.Members("knots", nurbs.knots);
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
    json.Members("order", std::array{nurbs.Order(0), nurbs.Order(1)}, "counts",
                 std::array{nurbs.ControlPointCount(0), nurbs.ControlPointCount(1)}, "rational",
                 nurbs.IsRational());
    WriteNet(json, "points", nurbs,
             [&](int u, int v) { json.Value(Coordinates(nurbs.ControlPoint(u, v))); });
    WriteNet(json, "weights", nurbs.IsRational() ? nurbs : none,
             [&](int u, int v) { json.Value(nurbs.Weight(u, v)); });
    json.ListMember("knots", Indices(2),
                    [&](int direction) { json.Value(nurbs.Knots(direction)); });
    json.EndObject();
}

std::array<double, 2> EndsOf(const GK_Interval& interval)
{
    return {interval[0], interval[1]};
}

void WriteTrim(JsonStream& json, const GK_BrepTrim& trim)
{
    json.Object("curve_2d", trim.curveIndex, "edge", trim.edgeIndex, "reversed", trim.reversed,
                "domain", EndsOf(trim.Domain()), "vertices", trim.vertexIndex);
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
    json.Members("surface", face.surfaceIndex);
    json.ListMember("loops", face.loopIndices, [&](int loopIndex) {
        const GK_BrepLoop& loop = brep.Loop(loopIndex);
        json.BeginObject();
        json.Members("type", LoopType(loop.type));
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
    json.ListMember("surfaces", Indices(brep.SurfaceCount()),
                    [&](int i) { WriteSurface(json, *brep.Surface(i)); });
    json.ListMember("curves_2d", Indices(brep.TrimCurveCount()),
                    [&](int i) { writeCurve(*brep.TrimCurve(i)); });
    json.ListMember("curves_3d", Indices(brep.EdgeCurveCount()),
                    [&](int i) { writeCurve(*brep.EdgeCurve(i)); });
    json.ListMember("vertices", Indices(brep.VertexCount()),
                    [&](int i) { json.Value(Coordinates(brep.Vertex(i).point)); });
    json.ListMember("edges", Indices(brep.EdgeCount()), [&](int i) {
        const GK_BrepEdge& edge = brep.Edge(i);
        json.Object("curve_3d", edge.curveIndex, "vertices", edge.vertexIndex, "domain",
                    EndsOf(edge.Domain()));
    });
    json.ListMember("faces", Indices(brep.FaceCount()),
                    [&](int i) { WriteFace(json, brep, brep.Face(i)); });
}

struct GeometryVisitor
{
    JsonStream& json;

    void operator()(const GK_Mesh* mesh) const { WriteMesh(json, *mesh); }
    void operator()(const GK_Curve* curve) const { WriteCurve(json, *curve); }
    void operator()(const GK_3dPoint* point) const { json.Members("point", Coordinates(*point)); }
    void operator()(const GK_PointCloud* cloud) const
    {
        json.ListMember("points", cloud->points,
                        [&](const GK_3dPoint& point) { json.Value(Coordinates(point)); });
    }
    void operator()(const GK_Brep* brep) const { WriteBrep(json, *brep); }
};

} // namespace

void WriteGeometry(JsonStream& json, const AnyGeometry& geometry)
{
    std::visit(GeometryVisitor{json}, geometry);
}
