#pragma once

#include "host/geokit/brep.h"

#include <Geom2d_BSplineCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <TopoDS_Shape.hxx>

// Breps and their parts as the other library holds them, with nothing improved on the way. Lengths
// are multiplied by a scale.

Handle(Geom_BSplineCurve) OutsideCurve(const GK_BrepEdge& edge, double scale);
Handle(Geom_BSplineSurface) OutsideSurface(const GK_Surface& surface, double scale);

/// The 2D curve of a trim over the domain of its edge, in the edge's direction.
Handle(Geom2d_BSplineCurve) OutsideTrimCurve(const GK_BrepTrim& trim, const GK_Interval& domain);

/// Faces with their wires, edges and vertices; what lies apart within the parts' own tolerances has
/// that tolerance.
TopoDS_Shape OutsideShape(const GK_Brep& brep, double scale);
