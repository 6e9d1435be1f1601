#pragma once

#include "host/geokit/nurbs_curve.h"
#include "host/geokit/nurbs_surface.h"

#include <array>

/// Returns the span of a valid curve that holds a parameter.
int FindSpan(const GK_NurbsCurve& curve, double t);

/// Evaluates the polynomial (or rational) piece of a curve that holds on a span, at any parameter.
/// The NURBS Book, A3.2 and A4.2.
GK_CurvePoint EvaluateInSpan(const GK_NurbsCurve& curve, int span, double t);

/// Returns the point alone.
GK_3dPoint PointInSpan(const GK_NurbsCurve& curve, int span, double t);

/// Returns the spans of a valid surface, in u and in v, that hold a place of its parameter plane.
std::array<int, 2> FindSpans(const GK_NurbsSurface& surface, double u, double v);

/// Evaluates the polynomial (or rational) piece of a surface that holds on the spans, at any place.
/// The NURBS Book, A3.6 and A4.4.
GK_SurfacePoint EvaluateInSpans(const GK_NurbsSurface& surface, const std::array<int, 2>& spans,
                                double u, double v);

/// Returns the point alone.
GK_3dPoint PointInSpans(const GK_NurbsSurface& surface, const std::array<int, 2>& spans, double u,
                        double v);

/// Returns the curve of a valid surface along `direction` on which the other parameter is
/// `parameter`. It has only the spans that reach into the interval `part`, so its domain covers
/// that.
std::unique_ptr<GK_NurbsCurve> IsoCurveOver(const GK_NurbsSurface& surface, int direction,
                                            double parameter, const GK_Interval& part);
