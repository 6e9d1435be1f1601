#pragma once

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <vector>

/// The image on a surface of a curve in its parameter plane; both are valid and outlive it.
class SurfaceImage
{
public:
    SurfaceImage(const GK_NurbsCurve& curve, const GK_NurbsSurface& surface)
        : m_curve(curve), m_surface(surface)
    {
    }

    [[nodiscard]] GK_3dPoint PointAt(double t) const;

    /// The point at `t` and the derivative that holds on the side where `inside`, close by, is: at
    /// a kink there are two.
    [[nodiscard]] GK_CurvePoint Evaluate(double t, double inside) const;

    /// The parameters in the interval, both ends included, between which the image is smooth: where
    /// the curve has knots and where it crosses knots of the surface. In order. Empty when there
    /// are more than `most`.
    [[nodiscard]] std::vector<double> Breaks(const GK_Interval& interval, std::size_t most) const;

    /// Degree of the image as a polynomial in the parameter, or a measure like it when rational.
    [[nodiscard]] int Degree() const;

    /// Multiplications, about, for one point.
    [[nodiscard]] double Cost() const;

private:
    void AddCrossings(const GK_Interval& span, std::size_t most, std::vector<double>& breaks) const;
    void AddCrossings(int direction, double t0, double t1, std::size_t most,
                      std::vector<double>& breaks) const;
    [[nodiscard]] double Parameter(int direction, double t) const;
    [[nodiscard]] double FindCrossing(int direction, double t0, double t1, double knot) const;

    const GK_NurbsCurve& m_curve;
    const GK_NurbsSurface& m_surface;
};
