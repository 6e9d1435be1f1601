#include "objimport/exchange/brep_shape.h"

#include <BRep_Builder.hxx>
#include <Geom2d_BSplineCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <vector>

namespace {

constexpr double Precision = 1e-7; // the smallest tolerance that the library knows

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

gp_Pnt LibraryPoint(const GK_3dPoint& p)
{
    return {p.x, p.y, p.z};
}

struct EdgeAndCurve
{
    TopoDS_Edge edge;
    Handle(Geom_BSplineCurve) curve;
};

struct SurfaceCopy
{
    Handle(Geom_BSplineSurface) surface;
    int lastFace = -1; // that uses it
};

class Converter
{
public:
    Converter(const GK_Brep& brep, const Placing& placing)
        : m_brep(brep), m_placing(placing), m_copies(Size(brep.SurfaceCount())),
          m_copyOfFace(Size(brep.FaceCount()), -1)
    {
    }

    std::vector<TopoDS_Face> Run()
    {
        MakeVertices();
        for (int i = 0; i < m_brep.EdgeCount(); ++i)
            MakeEdge(m_brep.Edge(i));
        std::vector<TopoDS_Face> faces;
        for (int i = 0; i < m_brep.FaceCount(); ++i)
            faces.push_back(MakeFace(m_brep.Face(i)));
        return faces;
    }

private:
    static std::size_t Size(int index) { return static_cast<std::size_t>(index); }

    void MakeVertices();
    void MakeEdge(const GK_BrepEdge& edge);
    void AddVertices(TopoDS_Edge& edge, int start, int end);
    TopoDS_Face MakeFace(const GK_BrepFace& face);
    Handle(Geom_BSplineSurface) SurfaceFor(const GK_BrepFace& face);
    void MarkNeighbours(const GK_BrepLoop& loop, std::vector<SurfaceCopy>& copies) const;
    TopoDS_Wire MakeWire(const GK_BrepLoop& loop, const TopoDS_Face& face);
    void AddPlaneCurve(const GK_BrepTrim& trim, const TopoDS_Face& face);
    TopoDS_Edge MakeCollapsed(const GK_BrepTrim& trim, const TopoDS_Face& face);
    void Measure(const GK_BrepTrim& trim, const Geom2d_BSplineCurve& curve2d);
    [[nodiscard]] const GK_BrepTrim* OtherSide(const GK_BrepTrim& trim) const;
    [[nodiscard]] int FaceOf(const GK_BrepTrim& trim) const
    {
        return m_brep.Loop(trim.loopIndex).faceIndex;
    }

    [[nodiscard]] gp_Pnt VertexPoint(int vertex) const
    {
        return LibraryPoint(m_placing.Placed(m_brep.Vertex(vertex).point));
    }
    [[nodiscard]] gp_Pnt SurfacePoint(const gp_Pnt2d& uv) const
    {
        return m_surface->Value(uv.X(), uv.Y());
    }
    void Widen(int vertex, double distance)
    {
        m_builder.UpdateVertex(m_vertices[Size(vertex)], 1.01 * distance + Precision);
    }

    const GK_Brep& m_brep;
    Placing m_placing;
    BRep_Builder m_builder;
    Handle(Geom_BSplineSurface) m_surface; // of the current face
    std::vector<TopoDS_Vertex> m_vertices;
    std::vector<EdgeAndCurve> m_edges;
    std::vector<std::vector<SurfaceCopy>> m_copies; // of each surface
    std::vector<int> m_copyOfFace;
};

void Converter::MakeVertices()
{
    for (int i = 0; i < m_brep.VertexCount(); ++i) {
        TopoDS_Vertex vertex;
        m_builder.MakeVertex(vertex, VertexPoint(i), Precision);
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
    made.curve = LibraryCurve(edge.AsBspline(), edge.Domain(), m_placing);
    m_builder.MakeEdge(made.edge, made.curve, Precision);
    AddVertices(made.edge, edge.vertexIndex[0], edge.vertexIndex[1]);
    m_builder.Range(made.edge, edge.Domain()[0], edge.Domain()[1]);
    for (const int end : {0, 1}) {
        const int vertex = edge.vertexIndex[Size(end)];
        Widen(vertex, VertexPoint(vertex).Distance(made.curve->Value(edge.Domain()[end])));
    }
    m_edges.push_back(made);
}

TopoDS_Face Converter::MakeFace(const GK_BrepFace& face)
{
    m_surface = SurfaceFor(face);
    TopoDS_Face made;
    m_builder.MakeFace(made, m_surface, Precision);
    for (const int loop : face.loopIndices)
        m_builder.Add(made, MakeWire(m_brep.Loop(loop), made));
    return made;
}

// Returns a face's surface. Faces share it unless they share an edge as well: the library keeps the
// 2D curves of an edge by surface, not by face.
Handle(Geom_BSplineSurface) Converter::SurfaceFor(const GK_BrepFace& face)
{
    std::vector<SurfaceCopy>& copies = m_copies[Size(face.surfaceIndex)];
    for (const int loop : face.loopIndices)
        MarkNeighbours(m_brep.Loop(loop), copies);
    auto copy = std::find_if(copies.begin(), copies.end(),
                             [&](const SurfaceCopy& c) { return c.lastFace != face.faceIndex; });
    if (copy == copies.end())
        copy = copies.insert(
            copy, {LibrarySurface(*m_brep.Surface(face.surfaceIndex), m_placing), face.faceIndex});
    m_copyOfFace[Size(face.faceIndex)] = static_cast<int>(copy - copies.begin());
    return copy->surface;
}

// Marks the copies that the faces across the loop's edges have, as used by the loop's own face.
void Converter::MarkNeighbours(const GK_BrepLoop& loop, std::vector<SurfaceCopy>& copies) const
{
    const int surface = m_brep.Face(loop.faceIndex).surfaceIndex;
    for (const int trim : loop.trimIndices) {
        const int edge = m_brep.Trim(trim).edgeIndex;
        if (edge < 0)
            continue;
        for (const int other : m_brep.Edge(edge).trimIndices) {
            const int face = FaceOf(m_brep.Trim(other));
            const int copy = m_copyOfFace[Size(face)];
            if (copy >= 0 && m_brep.Face(face).surfaceIndex == surface)
                copies[Size(copy)].lastFace = loop.faceIndex;
        }
    }
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
    for (const int index : m_brep.Edge(trim.edgeIndex).trimIndices)
        if (index != trim.trimIndex && FaceOf(m_brep.Trim(index)) == FaceOf(trim))
            return &m_brep.Trim(index);
    return nullptr;
}

// Adds the 2D curve of a trim. A seam has one for each direction of its edge; both are set with the
// forward one.
void Converter::AddPlaneCurve(const GK_BrepTrim& trim, const TopoDS_Face& face)
{
    const GK_BrepEdge& edge = m_brep.Edge(trim.edgeIndex);
    const TopoDS_Edge& made = m_edges[Size(trim.edgeIndex)].edge;
    const Handle(Geom2d_BSplineCurve) curve = LibraryTrimCurve(trim, edge.Domain());
    Measure(trim, *curve);
    const GK_BrepTrim* other = OtherSide(trim);
    if (other != nullptr && trim.reversed)
        return;
    if (other == nullptr)
        m_builder.UpdateEdge(made, curve, face, Precision);
    else
        m_builder.UpdateEdge(made, curve, LibraryTrimCurve(*other, edge.Domain()), face, Precision);
    m_builder.Range(made, face, edge.Domain()[0], edge.Domain()[1]);
}

// Measures the tolerance of an edge, which is how far its trim lies off, and those of its vertices.
void Converter::Measure(const GK_BrepTrim& trim, const Geom2d_BSplineCurve& curve2d)
{
    const EdgeAndCurve& made = m_edges[Size(trim.edgeIndex)];
    const GK_BrepEdge& edge = m_brep.Edge(trim.edgeIndex);
    double worst = 0.0;
    for (const double t : PlacesAlong(edge, *made.curve))
        worst = std::max(worst, SurfacePoint(curve2d.Value(t)).Distance(made.curve->Value(t)));
    for (const int end : {0, 1}) {
        const int vertex = edge.vertexIndex[Size(end)];
        Widen(vertex,
              SurfacePoint(curve2d.Value(edge.Domain()[end])).Distance(VertexPoint(vertex)));
        Widen(vertex, 1.05 * worst);
    }
    m_builder.UpdateEdge(made.edge, 1.05 * worst + Precision);
}

TopoDS_Edge Converter::MakeCollapsed(const GK_BrepTrim& trim, const TopoDS_Face& face)
{
    const GK_Interval domain(trim.Domain().Min(), trim.Domain().Max());
    const Handle(Geom2d_BSplineCurve) curve = LibraryTrimCurve(trim, domain);
    TopoDS_Edge edge;
    m_builder.MakeEdge(edge);
    m_builder.UpdateEdge(edge, curve, face, Precision);
    AddVertices(edge, trim.vertexIndex[0], trim.vertexIndex[1]);
    m_builder.Range(edge, face, domain[0], domain[1]);
    m_builder.Degenerated(edge, true);
    const int vertex = trim.vertexIndex[0];
    Widen(vertex, SurfacePoint(curve->Value(domain[0])).Distance(VertexPoint(vertex)));
    return edge;
}

} // namespace

std::vector<TopoDS_Face> LibraryFaces(const GK_Brep& brep, const Placing& placing)
{
    return Converter(brep, placing).Run();
}
