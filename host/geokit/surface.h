#pragma once

#include "host/geokit/nurbs_curve.h"

/// A point of a surface and the first derivatives there.
struct GK_SurfacePoint
{
    GK_3dPoint point;
    GK_3dVector du;
    GK_3dVector dv;
};

/// A parameterised surface in space. Direction 0 is u, direction 1 is v. Any thread may use a
/// surface, one thread at a time: also IsValid, and what is called on a valid surface, may keep
/// what they find out.
class GK_Surface : public GK_Geometry
{
public:
    /// Returns the order minus 1.
    [[nodiscard]] virtual int Degree(int direction) const = 0;

    /// Returns where the surface is defined; [0, 0] while it has no knots in the direction.
    [[nodiscard]] virtual GK_Interval Domain(int direction) const = 0;

    /// Returns the point and derivatives at a place of the parameter plane; outside the domain the
    /// first or last span continues. The surface must be valid.
    [[nodiscard]] virtual GK_SurfacePoint Evaluate(double u, double v) const = 0;

    /// Returns the curve along `direction` on which the other parameter is `parameter`, over the
    /// domain of `direction`, or null when the surface is not valid. Throws std::bad_alloc when out
    /// of memory.
    [[nodiscard]] virtual std::unique_ptr<GK_NurbsCurve> IsoCurve(int direction,
                                                                  double parameter) const = 0;

    /// Returns false when the surface is not sound; `reason`, unless null, then says why as a
    /// clause.
    [[nodiscard]] virtual bool IsValid(std::string* reason) const = 0;

    [[nodiscard]] bool IsValid() const { return IsValid(nullptr); }
    [[nodiscard]] GK_3dPoint PointAt(double u, double v) const { return Evaluate(u, v).point; }

    /// Return the object as a surface, or null when it is none.
    static GK_Surface* Cast(GK_Object* object) { return dynamic_cast<GK_Surface*>(object); }
    static const GK_Surface* Cast(const GK_Object* object)
    {
        return dynamic_cast<const GK_Surface*>(object);
    }
};
