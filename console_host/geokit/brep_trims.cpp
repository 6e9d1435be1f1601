#include "console_host/geokit/brep_trims.h"

#include <utility>

const GK_Surface& TrimSurface(const GK_Brep& brep, const GK_BrepTrim& trim)
{
    return *brep.Surface(brep.Face(brep.Loop(trim.loopIndex).faceIndex).surfaceIndex);
}

TrimEnds EndsOf(const GK_Brep& brep, const GK_BrepTrim& trim)
{
    TrimEnds ends;
    ends.uv = {trim.PointAtStart(), trim.PointAtEnd()};
    if (trim.edgeIndex < 0) {
        const GK_Surface& surface = TrimSurface(brep, trim);
        ends.point = {surface.PointAt(ends.uv[0].x, ends.uv[0].y),
                      surface.PointAt(ends.uv[1].x, ends.uv[1].y)};
        return ends;
    }
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    ends.point = {edge.PointAtStart(), edge.PointAtEnd()};
    if (trim.reversed)
        std::swap(ends.point[0], ends.point[1]);
    return ends;
}
