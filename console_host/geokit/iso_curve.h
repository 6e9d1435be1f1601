#pragma once

#include "host/geokit/surface.h"

#include <memory>

/// A curve on a surface along which one parameter is constant, as edges along its sides are. It
/// keeps the surface alive and follows its changes, and takes a fraction of the room of a B-spline.
class IsoCurve final : public GK_Curve
{
public:
    /// The curve along `direction` on which the other parameter is `parameter`.
    IsoCurve(std::shared_ptr<const GK_Surface> surface, int direction, double parameter);

    [[nodiscard]] int Dimension() const override { return 3; }
    [[nodiscard]] int Degree() const override { return m_surface->Degree(m_direction); }
    [[nodiscard]] GK_Interval Domain() const override { return m_surface->Domain(m_direction); }

    /// False: the domain is the surface's.
    bool SetDomain(double t0, double t1) override;

    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;
    void Reverse() override { m_reversed = !m_reversed; }
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;
    [[nodiscard]] GK_NurbsCurve AsBspline() const override;

private:
    std::shared_ptr<const GK_Surface> m_surface;
    double m_parameter;
    int m_direction;
    bool m_reversed = false;
};
