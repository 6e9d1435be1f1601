#pragma once

#include "host/geokit/interval.h"
#include "host/geokit/object.h"
#include "host/geokit/point.h"

#include <memory>
#include <string>

class GK_NurbsCurve;

namespace GK {

/// How the doubles of one control point are laid out.
enum point_style
{
    not_rational = 1,      ///< the coordinates
    euclidean_rational = 3 ///< the coordinates, not multiplied by the weight, then the weight
};

} // namespace GK

/// The highest order (degree + 1) of valid curves and surfaces.
constexpr int GK_MOST_ORDER = 32;

/// A point and the first derivative there. Curves of dimension 2 leave z at 0.
struct GK_CurvePoint
{
    GK_3dPoint point;
    GK_3dVector derivative;
};

/// A parameterised curve in space (dimension 3) or in the parameter plane of a surface (dimension
/// 2; u is x, v is y). Any thread may use a curve, one thread at a time while it changes.
class GK_Curve : public GK_Geometry
{
public:
    /// Returns the coordinates per point: 2 or 3.
    [[nodiscard]] virtual int Dimension() const = 0;

    /// Returns the order minus 1.
    [[nodiscard]] virtual int Degree() const = 0;

    /// Returns where the curve is defined, from its start to its end. Only the domain of a trim can
    /// run downwards. [0, 0] while the curve has no knots.
    [[nodiscard]] virtual GK_Interval Domain() const = 0;

    /// Returns the point and derivative at a parameter; outside the domain the first or last span
    /// continues. The curve must be valid.
    [[nodiscard]] virtual GK_CurvePoint Evaluate(double t) const = 0;

    /// Returns false when the curve is not sound; `reason`, unless null, then says why as a clause
    /// ("the curve has no knots").
    [[nodiscard]] virtual bool IsValid(std::string* reason) const = 0;

    /// Returns a copy that is independent of this curve. Throws std::bad_alloc when out of memory.
    [[nodiscard]] virtual std::unique_ptr<GK_Curve> Duplicate() const = 0;

    /// Returns the curve as a B-spline: a B-spline itself (sharing its storage), another curve in
    /// that form, and for a part of a curve all of that curve. Without control points when there
    /// is no such curve or it is not valid.
    [[nodiscard]] virtual GK_NurbsCurve AsBspline() const = 0;

    [[nodiscard]] bool IsValid() const { return IsValid(nullptr); }
    [[nodiscard]] GK_3dPoint PointAt(double t) const { return Evaluate(t).point; }

    /// Returns the point where the domain begins. The curve must be valid.
    [[nodiscard]] GK_3dPoint PointAtStart() const { return PointAt(Domain()[0]); }

    /// Returns the point where the domain ends. The curve must be valid.
    [[nodiscard]] GK_3dPoint PointAtEnd() const { return PointAt(Domain()[1]); }

    /// Returns whether the curve ends where it starts, but for rounding. The curve must be valid.
    [[nodiscard]] bool IsClosed() const;

    /// Return the object as a curve, or null when it is none.
    static GK_Curve* Cast(GK_Object* object) { return dynamic_cast<GK_Curve*>(object); }
    static const GK_Curve* Cast(const GK_Object* object)
    {
        return dynamic_cast<const GK_Curve*>(object);
    }
};
