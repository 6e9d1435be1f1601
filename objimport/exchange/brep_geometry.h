#pragma once

#include "host/geokit/brep.h"
#include "host/geokit/nurbs_curve.h"

class Geom2d_BSplineCurve;
class Geom_BSplineCurve;
class Geom_BSplineSurface;
namespace opencascade {
template <class T>
class handle;
} // namespace opencascade

/// Where the places of a document are in the geometry library, whose precision is a fixed length: a
/// point p is at scale * (p - origin).
struct Placing
{
    GK_3dPoint origin;
    double scale = 1.0; ///< above 0

    [[nodiscard]] GK_3dPoint Placed(const GK_3dPoint& p) const
    {
        return GK_origin + scale * (p - origin);
    }
    [[nodiscard]] GK_3dPoint InDocument(const GK_3dPoint& p) const
    {
        return origin + (1.0 / scale) * (p - GK_origin);
    }
};

// The same curves and surfaces in the geometry library, with the parameters that they have in the
// document. What the library does not take throws std::runtime_error, or its own Standard_Failure.

/// Returns the part of a curve over a domain, which must lie within the curve's own.
opencascade::handle<Geom_BSplineCurve>
LibraryCurve(const GK_NurbsCurve& curve, const GK_Interval& domain, const Placing& placing);

/// Returns the 2D curve of a trim over the domain of its edge, in the direction of the edge; the
/// curve of a trim without an edge over the domain that is given, in its own direction.
opencascade::handle<Geom2d_BSplineCurve> LibraryTrimCurve(const GK_BrepTrim& trim,
                                                          const GK_Interval& domain);

opencascade::handle<Geom_BSplineSurface> LibrarySurface(const GK_Surface& surface,
                                                        const Placing& placing);
