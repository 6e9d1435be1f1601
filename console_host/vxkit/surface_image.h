#pragma once

#include "console_host/vxkit/knot_lines.h"

#include <array>
#include <vector>

/// The image on a surface of a curve in its parameter plane; both are valid, stay as they are, and
/// outlive it. Where the surface is closed, a curve that leaves the domain enters it again on the
/// other side; elsewhere the first or last span continues.
class SurfaceImage
{
public:
    SurfaceImage(const GK_NurbsCurve& curve, const GK_NurbsSurface& surface,
                 const std::array<bool, 2>& closed);

    /// Returns the point at `t`; fast when `t` is near the one before.
    [[nodiscard]] GK_3dPoint PointAt(double t);

    /// Returns the point at `t` and the derivative that hold on the side where `inside`, close by,
    /// is: at a kink there are two derivatives, at a seam with a gap two points.
    [[nodiscard]] GK_CurvePoint Evaluate(double t, double inside) const;

    /// Returns how far rounding moves the image at most about `t`: it grows with the largest
    /// coordinates and parameters that take part there, however near the origin the image is.
    [[nodiscard]] double Rounding(double t) const;

    /// Returns the parameters in the interval, both ends included, between which the image is
    /// smooth: where the curve has knots and where it crosses knot lines of the surface. In order.
    /// Empty when there are more than `most`.
    [[nodiscard]] std::vector<double> Breaks(const GK_Interval& interval, std::size_t most) const;

    /// Returns the degree of the image as a polynomial in the parameter, or a similar measure when
    /// rational.
    [[nodiscard]] int Degree() const;

    /// Returns how much work a point is, as a multiple of what it is at usual degrees.
    [[nodiscard]] double Cost() const;

private:
    [[nodiscard]] GK_3dPoint OnSurface(const GK_3dPoint& uv) const;

    const GK_NurbsCurve& m_curve;
    const GK_NurbsSurface& m_surface;
    std::array<KnotLines, 2> m_lines;
    int m_curveSpan = 0; // of the last point
    std::array<int, 2> m_spans{};
};
