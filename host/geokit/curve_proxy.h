#pragma once

#include "host/geokit/curve.h"

/// A curve that is a part of another one, which it does not own. The domain may run downwards; the
/// proxy then goes along the other curve backwards.
class GK_CurveProxy : public GK_Curve
{
public:
    /// Returns the curve that this one is a part of, which must live as long as it is used; may be
    /// null.
    [[nodiscard]] const GK_Curve* ProxyCurve() const { return m_curve; }

    /// Points to another curve and takes on its domain.
    void SetProxyCurve(const GK_Curve* curve);

    /// Chooses the part, in parameters of the other curve and in either direction. An end that
    /// reaches beyond that curve's domain by less than a ten-thousandth of it, as rounded numbers
    /// do, is moved to the domain's end.
    void SetDomain(const GK_Interval& domain);

    [[nodiscard]] int Dimension() const override;
    [[nodiscard]] int Degree() const override;
    [[nodiscard]] GK_Interval Domain() const override { return m_domain; }

    [[nodiscard]] GK_CurvePoint Evaluate(double t) const override;

    /// Returns true when the other curve is valid and the domain is not empty and within that
    /// curve's own.
    [[nodiscard]] bool IsValid(std::string* reason) const override;
    using GK_Curve::IsValid;

    /// Returns a proxy of the same curve.
    [[nodiscard]] std::unique_ptr<GK_Curve> Duplicate() const override;

    [[nodiscard]] GK_NurbsCurve AsBspline() const override;

private:
    const GK_Curve* m_curve = nullptr;
    GK_Interval m_domain;
};
