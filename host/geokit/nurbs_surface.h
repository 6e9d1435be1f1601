#pragma once

#include "host/geokit/derived_data.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/surface.h"

#include <array>
#include <cstdint>

/// A B-spline surface in space, rational or not.
///
/// Whoever makes the surface sets its parts in any order; nothing is checked until IsValid is
/// asked. In each direction a complete surface has order + count - 2 knots (no superfluous ends),
/// and its domain goes from knot order - 2 to knot count - 1. Control points follow each other with
/// u running fastest: coordinates (not multiplied by the weight), then the weight when rational.
class GK_NurbsSurface : public GK_Surface
{
public:
    /// Sets orders (degree + 1) and the rational flag; knots and control points are removed.
    void Create(bool rational, int orderU, int orderV);

    [[nodiscard]] bool IsRational() const { return m_rational; }
    [[nodiscard]] int Order(int direction) const { return m_order[Index(direction)]; }

    /// Doubles per control point: 3, or 4 when rational.
    [[nodiscard]] int ControlPointStride() const { return m_rational ? 4 : 3; }

    /// Returns the number of control points in a direction, as claimed; there may be fewer.
    [[nodiscard]] int ControlPointCount(int direction) const { return m_count[Index(direction)]; }

    /// Claims a number of control points in a direction. The contents of the array are not moved.
    void SetControlPointCount(int direction, int count);

    /// Returns the number of control points that there is room for.
    [[nodiscard]] int ControlPointCapacity() const
    {
        return m_controlPoints.Count() / ControlPointStride();
    }

    /// Makes the control-point array at least `count` doubles long; new ones are GK_UNSET_VALUE.
    /// Throws std::bad_alloc when out of memory.
    void ReserveCVCapacity(int count);

    /// Sets control point (i, j) from the layout that `style` names, which is only read during the
    /// call; one without a weight gets weight 1 on a rational surface. Returns false when there is
    /// no room for such a control point.
    bool SetCV(int i, int j, GK::point_style style, const double* point);

    /// Return a control point, which there must be room for, and its weight (1 when not rational).
    [[nodiscard]] GK_3dPoint ControlPoint(int i, int j) const;
    [[nodiscard]] double Weight(int i, int j) const;

    /// Returns the doubles of a control point, which there must be room for; the surface owns them.
    [[nodiscard]] const double* ControlPointValues(int i, int j) const;

    [[nodiscard]] const GK_SimpleArray<double>& Knots(int direction) const
    {
        return m_knots[Index(direction)];
    }

    /// Replaces the knots of a direction.
    void SetKnots(int direction, GK_SimpleArray<double> knots);

    [[nodiscard]] int Degree(int direction) const override { return Order(direction) - 1; }
    [[nodiscard]] GK_Interval Domain(int direction) const override;

    /// Maps the direction's knots linearly so that the domain becomes [t0, t1], and returns true.
    /// Returns false, with nothing changed, when there is no domain or t0 is not below t1.
    virtual bool SetDomain(int direction, double t0, double t1);

    [[nodiscard]] GK_SurfacePoint Evaluate(double u, double v) const override;

    /// Returns a curve with the knots and order of the direction.
    [[nodiscard]] std::unique_ptr<GK_NurbsCurve> IsoCurve(int direction,
                                                          double parameter) const override;

    /// For the host: what it has worked out from the surface; empty at first, after every change,
    /// and in a copy.
    [[nodiscard]] GK_DerivedDataSlot& DerivedData() const { return m_derivedData; }

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

private:
    static std::size_t Index(int direction) { return direction == 0 ? 0 : 1; }
    void Changes();
    void KnotsChange(int direction);
    [[nodiscard]] bool Check(std::string* reason) const;
    [[nodiscard]] bool CheckKnotsOf(int direction, std::string* reason) const;

    enum class Validity
    {
        Unknown,
        Valid,
        Invalid
    };

    bool m_rational = false;
    std::array<int, 2> m_order{};
    std::array<int, 2> m_count{};
    GK_SimpleArray<double> m_controlPoints;
    std::array<GK_SimpleArray<double>, 2> m_knots;

    // Trimming asks for every trim whether the surface is valid, and knots may be set again
    // between two trims: a large net, and the knots of the other direction, are checked once.
    mutable Validity m_validity = Validity::Unknown;
    mutable std::array<Validity, 2> m_knotValidity{};
    mutable std::int64_t m_soundPoints = 0; ///< so many control points, from the first on
    mutable GK_DerivedDataSlot m_derivedData;
};
