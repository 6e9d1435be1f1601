#pragma once

#include "host/geokit/curve.h"

/// A straight line in a parameter plane, as most trims are: it takes a fraction of the room of a
/// B-spline, and files can ask for very many.
class LineCurve final : public GK_Curve
{
public:
    /// The line from one point to another (z is not used) over a domain.
    LineCurve(const GK_3dPoint& from, const GK_3dPoint& to, const GK_Interval& domain);

    [[nodiscard]] int Dimension() const override { return 2; }
    [[nodiscard]] int Degree() const override { return 1; }
    [[nodiscard]] GK_Interval Domain() const override { return m_domain; }
    bool SetDomain(double t0, double t1) override;
    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;
    void Reverse() override;
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;
    [[nodiscard]] GK_NurbsCurve AsBspline() const override;

private:
    struct End
    {
        double u;
        double v;
    };

    End m_from;
    End m_to;
    GK_Interval m_domain;
};
