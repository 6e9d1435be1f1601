#include "objimport/exchange/brep_triangles.h"

#include "objimport/exchange/brep_fineness.h"
#include "objimport/exchange/brep_shape.h"
#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/library_failure.h"
#include "objimport/exchange/surface_mesh.h"

#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Geom2d_Curve.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Vertex.hxx>
#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

namespace {

GK_3dPoint InDocument(const gp_Pnt& p, const Placing& placing)
{
    return placing.InDocument({p.X(), p.Y(), p.Z()});
}

constexpr double InsideDeflection = 5.0; // of a size of 512 to 1024

// Divides faces as far as their edges call for it: their insides are the caller's.
void Divide(const std::vector<TopoDS_Face>& faces, double deflection, IMeshTools_MeshAlgoType way)
{
    const BRep_Builder builder;
    TopoDS_Compound all;
    builder.MakeCompound(all);
    for (const TopoDS_Face& face : faces)
        builder.Add(all, face);
    BRepTools::Clean(all);
    IMeshTools_Parameters parameters;
    parameters.Deflection = deflection;
    parameters.Angle = 0.3;
    parameters.DeflectionInterior = std::max(deflection, InsideDeflection);

    parameters.MeshAlgo = way;
    parameters.ControlSurfaceDeflection = false;
    const BRepMesh_IncrementalMesh mesh(all, parameters);
}

double AreaOf(const gp_Pnt2d& a, const gp_Pnt2d& b, const gp_Pnt2d& c)
{
    return 0.5 * ((b.X() - a.X()) * (c.Y() - a.Y()) - (c.X() - a.X()) * (b.Y() - a.Y()));
}

// Returns the area that the points along the loops of a face bound in the parameter plane. The
// points are those of the 2D curves: the two sides of a seam may have each other's nodes.
double AreaWithinLoops(const TopoDS_Face& face, const Handle(Poly_Triangulation) & triangulation)
{
    double area = 0.0;
    for (TopExp_Explorer part(face, TopAbs_EDGE); part.More(); part.Next()) {
        const TopoDS_Edge& edge = TopoDS::Edge(part.Current());
        const Handle(Poly_PolygonOnTriangulation) polygon =
            BRep_Tool::PolygonOnTriangulation(edge, triangulation, TopLoc_Location());
        if (polygon.IsNull() || !polygon->HasParameters())
            continue;
        double first = 0.0;
        double last = 0.0;
        const Handle(Geom2d_Curve) curve = BRep_Tool::CurveOnSurface(edge, face, first, last);
        const double sign = edge.Orientation() == TopAbs_REVERSED ? -1.0 : 1.0;
        gp_Pnt2d before = curve->Value(polygon->Parameter(1));
        for (int i = 2; i <= polygon->NbNodes(); ++i) {
            const gp_Pnt2d point = curve->Value(polygon->Parameter(i));
            area += sign * AreaOf(triangulation->UVNode(1), before, point);
            before = point;
        }
    }
    return area;
}

// Returns whether the triangles of a face cover what its loops bound, without overlaps.
bool AreTrianglesSound(const TopoDS_Face& face)
{
    constexpr double Accuracy = 1e-5;
    TopLoc_Location none;
    const Handle(Poly_Triangulation) triangulation = BRep_Tool::Triangulation(face, none);
    if (triangulation.IsNull() || triangulation->NbTriangles() == 0 || !triangulation->HasUVNodes())
        return false;
    const double whole = AreaWithinLoops(face, triangulation);
    double sum = 0.0;
    double absolute = 0.0;
    for (int i = 1; i <= triangulation->NbTriangles(); ++i) {
        int a = 0;
        int b = 0;
        int c = 0;
        triangulation->Triangle(i).Get(a, b, c);
        const double area =
            AreaOf(triangulation->UVNode(a), triangulation->UVNode(b), triangulation->UVNode(c));
        sum += area;
        absolute += std::abs(area);
    }
    return std::abs(sum - whole) <= Accuracy * whole &&
           std::abs(absolute - whole) <= Accuracy * whole;
}

// The places of the points along edges, which are the same for all faces that meet there.
class EdgePoints
{
public:
    explicit EdgePoints(const Placing& placing) : m_placing(placing) {}

    // Puts the nodes of a face along an edge where those of the other faces there are.
    void Join(const TopoDS_Edge& edge, const Handle(Poly_Triangulation) & triangulation,
              std::vector<GK_3dPoint>& positions)
    {
        const TopLoc_Location none;
        const Handle(Poly_PolygonOnTriangulation) polygon =
            BRep_Tool::PolygonOnTriangulation(edge, triangulation, none);
        if (polygon.IsNull())
            return;
        const auto at = [&](int i) -> GK_3dPoint& {
            return positions[static_cast<std::size_t>(polygon->Node(i)) - 1];
        };
        std::vector<GK_3dPoint>& points = m_points[edge.TShape().get()];
        if (points.empty())
            points = PointsOf(edge, polygon->NbNodes(), at);
        if (points.size() != static_cast<std::size_t>(polygon->NbNodes()))
            throw std::runtime_error(Say(ExchangeTexts::DividedDifferently));
        for (int i = 1; i <= polygon->NbNodes(); ++i)
            at(i) = points[static_cast<std::size_t>(i) - 1];
    }

private:
    template <class At>
    std::vector<GK_3dPoint> PointsOf(const TopoDS_Edge& edge, int count, const At& at) const
    {
        std::vector<GK_3dPoint> points;
        for (int i = 1; i <= count; ++i)
            points.push_back(at(i));
        TopoDS_Vertex first;
        TopoDS_Vertex last;
        TopExp::Vertices(TopoDS::Edge(edge.Oriented(TopAbs_FORWARD)), first, last);
        if (BRep_Tool::Degenerated(edge))
            points.assign(points.size(), InDocument(BRep_Tool::Pnt(first), m_placing));
        points.front() = InDocument(BRep_Tool::Pnt(first), m_placing);
        points.back() = InDocument(BRep_Tool::Pnt(last), m_placing);
        return points;
    }

    Placing m_placing;
    std::map<const TopoDS_TShape*, std::vector<GK_3dPoint>> m_points;
};

void AddTriangles(const Poly_Triangulation& triangulation, SurfaceMesh& mesh)
{
    mesh.triangles.reserve(static_cast<std::size_t>(triangulation.NbTriangles()));
    for (int i = 1; i <= triangulation.NbTriangles(); ++i) {
        std::array<int, 3> nodes{};
        triangulation.Triangle(i).Get(nodes[0], nodes[1], nodes[2]);
        const auto index = [&](std::size_t k) { return static_cast<std::uint32_t>(nodes[k]) - 1; };
        mesh.triangles.push_back({index(0), index(1), index(2)});
    }
}

SurfaceMesh MeshOf(const TopoDS_Face& face, const Placing& placing, EdgePoints& edgePoints)
{
    TopLoc_Location none;
    const Handle(Poly_Triangulation) triangulation = BRep_Tool::Triangulation(face, none);
    SurfaceMesh mesh;
    for (int i = 1; i <= triangulation->NbNodes(); ++i) {
        const gp_Pnt2d uv = triangulation->UVNode(i);
        mesh.parameters.push_back({uv.X(), uv.Y()});
        mesh.positions.push_back(InDocument(triangulation->Node(i), placing));
    }
    for (TopExp_Explorer edge(face, TopAbs_EDGE); edge.More(); edge.Next())
        edgePoints.Join(TopoDS::Edge(edge.Current()), triangulation, mesh.positions);
    AddTriangles(*triangulation, mesh);
    return mesh;
}

// Returns of how many polynomial pieces the trims consist: as many points stand on them at least.
std::size_t PiecesOf(const GK_Brep& brep)
{
    std::size_t pieces = 0;
    for (int i = 0; i < brep.TrimCount(); ++i) {
        const GK_NurbsCurve curve = brep.Trim(i).AsBspline();
        pieces += static_cast<std::size_t>(std::max(curve.controlPointCount - curve.order + 1, 1));
    }
    return pieces;
}

class Triangulation
{
public:
    Triangulation(const GK_Brep& brep, double tolerance)
        : m_brep(brep), m_fineness(FinenessOf(brep, tolerance)), m_edgePoints(m_fineness.placing)
    {
        m_result.isCoarse = m_fineness.tolerance > tolerance;
    }

    BrepTriangles Run()
    {
        const auto failure = FailureOf([&] { DivideEdges(); });
        for (int i = 0; i < m_brep.FaceCount(); ++i) {
            const auto reason = failure ? failure : FailureOf([&] { AddFace(i); });
            if (reason && m_result.facesWithout++ == 0)
                m_result.whyWithout = *reason;
            m_result.faceEnds.push_back(m_result.triangles.size());
        }
        return std::move(m_result);
    }

private:
    // The faster way at times leaves part of a face without triangles; the time of both grows
    // faster than the number of points.
    void DivideEdges()
    {
        constexpr std::size_t MostPieces = 100'000;
        constexpr std::size_t MostForSlowWay = 10'000;
        const std::size_t pieces = PiecesOf(m_brep);
        if (m_fineness.tolerance == 0.0)
            throw std::runtime_error(Say(ExchangeTexts::NoFiniteSize));
        if (pieces > MostPieces)
            throw std::runtime_error(
                Say(ExchangeTexts::TooManyPieces,
                    {ExchangeTexts::Number(pieces), ExchangeTexts::Number(MostPieces)}));
        m_faces = LibraryFaces(m_brep, m_fineness.placing);
        const double deflection = m_fineness.tolerance * m_fineness.placing.scale;
        Divide(m_faces, deflection, IMeshTools_MeshAlgoType_Delabella);
        if (pieces <= MostForSlowWay && !std::ranges::all_of(m_faces, AreTrianglesSound))
            Divide(m_faces, deflection, IMeshTools_MeshAlgoType_Watson);
    }

    void AddFace(int index)
    {
        const TopoDS_Face& face = m_faces[static_cast<std::size_t>(index)];
        if (!AreTrianglesSound(face))
            throw std::runtime_error(Say(ExchangeTexts::NoTriangles));
        const auto* surface =
            GK_NurbsSurface::Cast(m_brep.Surface(m_brep.Face(index).surfaceIndex));
        SurfaceMesh mesh = MeshOf(face, m_fineness.placing, m_edgePoints);
        const std::size_t most = m_fineness.mostTriangles;
        if (!RefineToTolerance(mesh, *surface, m_fineness.tolerance,
                               most - std::min(most, m_result.triangles.size())))
            m_result.isCoarse = true;
        RemoveCollapsed(mesh);
        AppendWithNormals(mesh, *surface, m_result);
    }

    const GK_Brep& m_brep;
    BrepFineness m_fineness;
    EdgePoints m_edgePoints;
    std::vector<TopoDS_Face> m_faces;
    BrepTriangles m_result;
};

} // namespace

bool HasBrepTriangles()
{
    return true;
}

BrepTriangles TrianglesOfBrep(const GK_Brep& brep, double tolerance)
{
    return Triangulation(brep, tolerance).Run();
}
