#include "tests/outside_check/outside_shape.h"

#include <BRep_Builder.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <vector>

namespace {

// Parameters of an edge, close enough to find the place where it lies farthest off.
std::vector<double> PlacesAlong(const GK_BrepEdge& edge, const Geom_BSplineCurve& curve)
{
    constexpr int PerSpan = 20;
    std::vector<double> places{edge.Domain()[0]};
    for (int i = 1; i < curve.NbKnots(); ++i)
        for (int k = 1; k <= PerSpan; ++k) {
            const double t =
                GK_Interval(curve.Knot(i), curve.Knot(i + 1)).ParameterAt(1.0 * k / PerSpan);
            if (t > places.front() && t < edge.Domain()[1])
                places.push_back(t);
        }
    places.push_back(edge.Domain()[1]);
    return places;
}

struct EdgeAndCurve
{
    TopoDS_Edge edge;
    Handle(Geom_BSplineCurve) curve;
};

class Converter
{
public:
    Converter(const GK_Brep& brep, double scale) : m_brep(brep), m_scale(scale) {}

    TopoDS_Shape Run()
    {
        TopoDS_Compound compound;
        m_builder.MakeCompound(compound);
        MakeVertices();
        for (int i = 0; i < m_brep.EdgeCount(); ++i)
            MakeEdge(m_brep.Edge(i));
        for (int i = 0; i < m_brep.FaceCount(); ++i)
            m_builder.Add(compound, MakeFace(m_brep.Face(i)));
        return compound;
    }

private:
    static std::size_t Size(int index) { return static_cast<std::size_t>(index); }

    void MakeVertices();
    void MakeEdge(const GK_BrepEdge& edge);
    void AddVertices(TopoDS_Edge& edge, int start, int end);
    TopoDS_Face MakeFace(const GK_BrepFace& face);
    TopoDS_Wire MakeWire(const GK_BrepLoop& loop, const TopoDS_Face& face);
    void AddPlaneCurve(const GK_BrepTrim& trim, const TopoDS_Face& face);
    TopoDS_Edge MakeCollapsed(const GK_BrepTrim& trim, const TopoDS_Face& face);
    void Measure(const GK_BrepTrim& trim, const Handle(Geom2d_BSplineCurve) & curve2d);
    [[nodiscard]] const GK_BrepTrim* OtherSide(const GK_BrepTrim& trim) const;

    void Widen(int vertex, double distance)
    {
        m_builder.UpdateVertex(m_vertices[Size(vertex)], 1.01 * distance + 1e-7);
    }

    const GK_Brep& m_brep;
    double m_scale;
    BRep_Builder m_builder;
    Handle(Geom_BSplineSurface) m_surface; // of the face at hand
    std::vector<TopoDS_Vertex> m_vertices;
    std::vector<EdgeAndCurve> m_edges;
};

void Converter::MakeVertices()
{
    for (int i = 0; i < m_brep.VertexCount(); ++i) {
        const GK_3dPoint& p = m_brep.Vertex(i).point;
        TopoDS_Vertex vertex;
        m_builder.MakeVertex(vertex, gp_Pnt(m_scale * p.x, m_scale * p.y, m_scale * p.z), 1e-7);
        m_vertices.push_back(vertex);
    }
}

void Converter::AddVertices(TopoDS_Edge& edge, int start, int end)
{
    m_builder.Add(edge, m_vertices[Size(start)].Oriented(TopAbs_FORWARD));
    m_builder.Add(edge, m_vertices[Size(end)].Oriented(TopAbs_REVERSED));
}

void Converter::MakeEdge(const GK_BrepEdge& edge)
{
    EdgeAndCurve made;
    made.curve = OutsideCurve(edge, m_scale);
    m_builder.MakeEdge(made.edge, made.curve, 1e-7);
    AddVertices(made.edge, edge.vertexIndex[0], edge.vertexIndex[1]);
    m_builder.Range(made.edge, edge.Domain()[0], edge.Domain()[1]);
    for (const int end : {0, 1}) {
        const int vertex = edge.vertexIndex[Size(end)];
        const GK_3dPoint place = edge.PointAt(edge.Domain()[end]);
        Widen(vertex, m_scale * place.DistanceTo(m_brep.Vertex(vertex).point));
    }
    m_edges.push_back(made);
}

TopoDS_Face Converter::MakeFace(const GK_BrepFace& face)
{
    m_surface = OutsideSurface(*m_brep.Surface(face.surfaceIndex), m_scale);
    TopoDS_Face made;
    m_builder.MakeFace(made, m_surface, 1e-7);
    for (const int loop : face.loopIndices)
        m_builder.Add(made, MakeWire(m_brep.Loop(loop), made));
    return made;
}

TopoDS_Wire Converter::MakeWire(const GK_BrepLoop& loop, const TopoDS_Face& face)
{
    TopoDS_Wire wire;
    m_builder.MakeWire(wire);
    for (const int index : loop.trimIndices) {
        const GK_BrepTrim& trim = m_brep.Trim(index);
        if (trim.edgeIndex < 0) {
            m_builder.Add(wire, MakeCollapsed(trim, face));
            continue;
        }
        AddPlaneCurve(trim, face);
        m_builder.Add(wire, m_edges[Size(trim.edgeIndex)].edge.Oriented(
                                trim.reversed ? TopAbs_REVERSED : TopAbs_FORWARD));
    }
    wire.Closed(true);
    return wire;
}

const GK_BrepTrim* Converter::OtherSide(const GK_BrepTrim& trim) const
{
    for (const int index : m_brep.Edge(trim.edgeIndex).trimIndices) {
        const GK_BrepTrim& other = m_brep.Trim(index);
        if (index != trim.trimIndex &&
            m_brep.Loop(other.loopIndex).faceIndex == m_brep.Loop(trim.loopIndex).faceIndex)
            return &other;
    }
    return nullptr;
}

// A seam has one curve for each direction of its edge; both are set with the forward one.
void Converter::AddPlaneCurve(const GK_BrepTrim& trim, const TopoDS_Face& face)
{
    const GK_BrepEdge& edge = m_brep.Edge(trim.edgeIndex);
    const TopoDS_Edge& made = m_edges[Size(trim.edgeIndex)].edge;
    const Handle(Geom2d_BSplineCurve) curve = OutsideTrimCurve(trim, edge.Domain());
    Measure(trim, curve);
    const GK_BrepTrim* other = OtherSide(trim);
    if (other != nullptr && trim.reversed)
        return;
    if (other == nullptr)
        m_builder.UpdateEdge(made, curve, face, 1e-7);
    else
        m_builder.UpdateEdge(made, curve, OutsideTrimCurve(*other, edge.Domain()), face, 1e-7);
    m_builder.Range(made, face, edge.Domain()[0], edge.Domain()[1]);
}

// An edge's tolerance is what its trim really lies off; a vertex's what ends there.
void Converter::Measure(const GK_BrepTrim& trim, const Handle(Geom2d_BSplineCurve) & curve2d)
{
    const EdgeAndCurve& made = m_edges[Size(trim.edgeIndex)];
    const GK_BrepEdge& edge = m_brep.Edge(trim.edgeIndex);
    double worst = 0.0;
    const std::vector<double> places = PlacesAlong(edge, *made.curve);
    for (const double t : places) {
        const gp_Pnt2d uv = curve2d->Value(t);
        const gp_Pnt place = m_surface->Value(uv.X(), uv.Y());
        worst = std::max(worst, place.Distance(made.curve->Value(t)));
        if (t > places.front() && t < places.back())
            continue;
        const int vertex = edge.vertexIndex[t > places.front() ? 1 : 0];
        const GK_3dPoint& p = m_brep.Vertex(vertex).point;
        Widen(vertex, place.Distance(gp_Pnt(m_scale * p.x, m_scale * p.y, m_scale * p.z)));
    }
    m_builder.UpdateEdge(made.edge, 1.05 * worst + 1e-7);
    for (const int vertex : edge.vertexIndex)
        Widen(vertex, 1.05 * worst);
}

TopoDS_Edge Converter::MakeCollapsed(const GK_BrepTrim& trim, const TopoDS_Face& face)
{
    const GK_Interval domain(trim.Domain().Min(), trim.Domain().Max());
    const Handle(Geom2d_BSplineCurve) curve = OutsideTrimCurve(trim, domain);
    TopoDS_Edge edge;
    m_builder.MakeEdge(edge);
    m_builder.UpdateEdge(edge, curve, face, 1e-7);
    AddVertices(edge, trim.vertexIndex[0], trim.vertexIndex[1]);
    m_builder.Range(edge, face, domain[0], domain[1]);
    m_builder.Degenerated(edge, true);
    const gp_Pnt2d uv = curve->Value(domain[0]);
    const GK_3dPoint& p = m_brep.Vertex(trim.vertexIndex[0]).point;
    Widen(trim.vertexIndex[0], m_surface->Value(uv.X(), uv.Y())
                                   .Distance(gp_Pnt(m_scale * p.x, m_scale * p.y, m_scale * p.z)));
    return edge;
}

} // namespace

TopoDS_Shape OutsideShape(const GK_Brep& brep, double scale)
{
    return Converter(brep, scale).Run();
}
