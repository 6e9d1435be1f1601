#pragma once

#include "host/geokit/curve.h"
#include "host/geokit/shared_array.h"

#include <cstdint>

/// A B-spline curve, rational or not.
///
/// The members are set directly by whoever makes the curve, in any order; nothing is checked until
/// IsValid is asked. Knots have no superfluous ends: a complete curve has order + count - 2 of
/// them, and its domain goes from knot order - 2 to knot count - 1.
class GK_NurbsCurve : public GK_Curve
{
public:
    int dimension = 0; ///< 2 or 3
    bool rational = false;
    int order = 0;              ///< degree + 1
    int controlPointCount = 0;  ///< as claimed; the array below may hold fewer
    int controlPointStride = 0; ///< doubles per control point: the dimension, 1 more when rational

    /// The control points one after the other: coordinates (not multiplied by the weight), then the
    /// weight when rational. Never set: GK_UNSET_VALUE. Copies of a curve share them, and the
    /// knots, until one of the curves is changed.
    GK_SharedArray<double> controlPoints;
    GK_SharedArray<double> knots;

    /// Sets dimension, rational flag, order, count and stride, and makes the control points, all
    /// unset. Knots are removed. A negative count counts as 0. Throws std::bad_alloc when out of
    /// memory.
    void Create(int curveDimension, bool isRational, int curveOrder, int count);

    /// Sets a control point from the layout that `style` names, which is only read during the call;
    /// one without a weight gets weight 1 on a rational curve. Returns false when the curve has no
    /// such control point.
    bool SetCV(int index, GK::point_style style, const double* point);

    /// Return a control point, which must exist, and its weight (1 when not rational).
    [[nodiscard]] GK_3dPoint ControlPoint(int index) const;
    [[nodiscard]] double Weight(int index) const;

    /// Sets a knot. Returns false when the knot array is too short.
    bool SetKnot(int index, double value);

    [[nodiscard]] int Dimension() const override { return dimension; }
    [[nodiscard]] int Degree() const override { return order - 1; }
    [[nodiscard]] GK_Interval Domain() const override;

    /// Maps the knots linearly so that the domain becomes [t0, t1], and returns true. Returns
    /// false, with nothing changed, when there is no domain or t0 is not below t1.
    virtual bool SetDomain(double t0, double t1);

    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;

    /// Turns the curve's direction round; the domain keeps its lowest and highest value.
    void Reverse();

    /// Returns false for: a dimension other than 2 and 3, an order below 2 or above GK_MOST_ORDER,
    /// fewer control points than the order, a wrong number of knots, a control point that was never
    /// set, a coordinate, weight or knot that is not finite, a weight that is not positive, knots
    /// that decrease, an empty domain, a knot of multiplicity above the degree.
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;

    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;
    [[nodiscard]] GK_NurbsCurve AsBspline() const override { return *this; }

    static GK_NurbsCurve* Cast(GK_Object* object) { return dynamic_cast<GK_NurbsCurve*>(object); }
    static const GK_NurbsCurve* Cast(const GK_Object* object)
    {
        return dynamic_cast<const GK_NurbsCurve*>(object);
    }
};
