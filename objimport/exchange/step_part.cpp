#include "objimport/exchange/step_part.h"

#include "objimport/exchange/brep_geometry.h"

#include <BRep_Builder.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Precision.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Vertex.hxx>

TopoDS_Shape CurvePart(const GK_Curve& curve)
{
    const BRep_Builder builder;
    const Handle(Geom_BSplineCurve) made = LibraryCurve(curve.AsBspline(), curve.Domain(), {});
    TopoDS_Edge edge;
    builder.MakeEdge(edge, made, Precision::Confusion());
    TopoDS_Vertex start;
    builder.MakeVertex(start, made->StartPoint(), Precision::Confusion());
    TopoDS_Vertex end = start;
    if (!curve.IsClosed())
        builder.MakeVertex(end, made->EndPoint(), Precision::Confusion());
    builder.Add(edge, start.Oriented(TopAbs_FORWARD));
    builder.Add(edge, end.Oriented(TopAbs_REVERSED));
    builder.Range(edge, made->FirstParameter(), made->LastParameter());
    return edge;
}

TopoDS_Shape PointsPart(const std::vector<GK_3dPoint>& points)
{
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const GK_3dPoint& point : points) {
        TopoDS_Vertex vertex;
        builder.MakeVertex(vertex, gp_Pnt(point.x, point.y, point.z), Precision::Confusion());
        builder.Add(compound, vertex);
    }
    return compound;
}
