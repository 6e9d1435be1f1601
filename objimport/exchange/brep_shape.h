#pragma once

#include "objimport/exchange/brep_geometry.h"

#include <vector>

class TopoDS_Face;
class TopoDS_Shape;

/// Returns a brep's faces, in their order, as the geometry library holds them: with the same
/// surfaces, loops, edges and vertices. Edges and vertices have the tolerance within which their
/// parts really meet. What the library does not take throws std::runtime_error, or its own
/// Standard_Failure.
std::vector<TopoDS_Face> LibraryFaces(const GK_Brep& brep, const Placing& placing);

/// Returns the faces of a brep as one shape: a shell for all that are connected, closed when no
/// edge is open; several of them in a compound.
TopoDS_Shape ShellsOf(const GK_Brep& brep, const std::vector<TopoDS_Face>& faces);
