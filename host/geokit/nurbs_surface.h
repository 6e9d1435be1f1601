#pragma once

#include "host/geokit/simple_array.h"
#include "host/geokit/surface.h"

#include <array>
#include <cstdint>

/// A B-spline surface, rational or not.
///
/// The members are set directly by whoever makes the surface, in any order; nothing is checked
/// until IsValid is asked. In each direction a complete surface has order + count - 2 knots (no
/// superfluous ends), and its domain goes from knot order - 2 to knot count - 1.
class GK_NurbsSurface : public GK_Surface
{
public:
    int dimension = 0; ///< 3
    bool rational = false;
    std::array<int, 2> order{};             ///< degree + 1, in u and in v
    std::array<int, 2> controlPointCount{}; ///< as claimed; the array below may hold fewer

    /// Doubles from one control point to the next in u and in v.
    std::array<std::int64_t, 2> controlPointStride{};

    /// The control points: coordinates (not multiplied by the weight), then the weight when
    /// rational. Never set: GK_UNSET_VALUE.
    GK_SimpleArray<double> controlPoints;
    std::array<GK_SimpleArray<double>, 2> knots;

    /// Makes the control-point array at least `count` doubles long; new ones are unset. Throws
    /// std::bad_alloc when there is no memory.
    void ReserveCVCapacity(int count);

    /// Sets control point (i, j) from the layout that `style` names; one without a weight gets
    /// weight 1 on a rational surface. False when the control-point array has no such point.
    bool SetCV(int i, int j, GK::point_style style, const double* point);

    /// A control point, which must exist, and its weight (1 when not rational).
    [[nodiscard]] GK_3dPoint ControlPoint(int i, int j) const;
    [[nodiscard]] double Weight(int i, int j) const;

    /// The number of knots that a complete surface has in the direction; may be negative.
    [[nodiscard]] std::int64_t KnotCount(int direction) const;

    /// Sets a knot. False when the direction's knot array is too short.
    bool SetKnot(int direction, int index, double value);

    [[nodiscard]] int Degree(int direction) const override;
    [[nodiscard]] GK_Interval Domain(int direction) const override;

    /// Maps the direction's knots linearly. False when there is no domain or t0 is not below t1.
    bool SetDomain(int direction, double t0, double t1) override;

    [[nodiscard]] GK_SurfacePoint Evaluate(double u, double v) const override;

    /// A GK_NurbsCurve with the knots and order of the direction.
    [[nodiscard]] std::unique_ptr<GK_Curve> IsoCurve(int direction,
                                                     double parameter) const override;

    /// As GK_NurbsCurve::IsValid, in both directions.
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Surface::IsValid;

    static GK_NurbsSurface* Cast(GK_Object* object)
    {
        return dynamic_cast<GK_NurbsSurface*>(object);
    }
    static const GK_NurbsSurface* Cast(const GK_Object* object)
    {
        return dynamic_cast<const GK_NurbsSurface*>(object);
    }
};
