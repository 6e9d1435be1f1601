#pragma once

#include "host/geokit/surface.h"

#include <memory>

// Curves of breps that take a fraction of the room of a B-spline, since files can ask for very
// many.

/// A straight line in a parameter plane, as most trims are.
class LineCurve final : public GK_Curve
{
public:
    /// The line from one point to another (z is not used) over a domain.
    LineCurve(const GK_3dPoint& from, const GK_3dPoint& to, const GK_Interval& domain)
        : m_from{from.x, from.y}, m_to{to.x, to.y}, m_domain(domain)
    {
    }

    [[nodiscard]] int Dimension() const override { return 2; }
    [[nodiscard]] int Degree() const override { return 1; }
    [[nodiscard]] GK_Interval Domain() const override { return m_domain; }
    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;
    [[nodiscard]] GK_NurbsCurve AsBspline() const override;

private:
    GK_2dPoint m_from;
    GK_2dPoint m_to;
    GK_Interval m_domain;
};

/// A curve on a surface along which one parameter is constant, as edges along its sides are. It
/// keeps the surface alive and follows its changes.
class IsoCurve final : public GK_Curve
{
public:
    /// The curve along `direction` on which the other parameter is `parameter`.
    IsoCurve(std::shared_ptr<const GK_Surface> surface, int direction, double parameter)
        : m_surface(std::move(surface)), m_parameter(parameter), m_direction(direction)
    {
    }

    [[nodiscard]] int Dimension() const override { return 3; }
    [[nodiscard]] int Degree() const override { return m_surface->Degree(m_direction); }
    [[nodiscard]] GK_Interval Domain() const override { return m_surface->Domain(m_direction); }
    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;
    [[nodiscard]] GK_NurbsCurve AsBspline() const override;

private:
    std::shared_ptr<const GK_Surface> m_surface;
    double m_parameter;
    int m_direction;
};
