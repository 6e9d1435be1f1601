#pragma once

#include "host/geokit/nurbs_curve.h"
#include "host/vxkit/nurbs_surface.h"

#include <cmath>
#include <initializer_list>
#include <memory>
#include <vector>

// Curves and surfaces for tests. A control point is given as its coordinates and, when rational,
// its weight.

constexpr double Pi = 3.14159265358979323846;
const double HalfRoot2 = std::sqrt(0.5);

inline double Distance(const GK_3dVector& a, const GK_3dVector& b)
{
    return (a + -1.0 * b).Length();
}

inline GK_SimpleArray<double> Doubles(const std::vector<double>& values)
{
    GK_SimpleArray<double> array;
    array.Append(static_cast<int>(values.size()), values.data());
    return array;
}

inline GK_NurbsCurve MakeCurve(int dimension, bool rational, int order,
                               const std::vector<double>& points, const std::vector<double>& knots)
{
    GK_NurbsCurve curve;
    const std::ptrdiff_t stride = dimension + (rational ? 1 : 0);
    const auto count = static_cast<std::ptrdiff_t>(points.size()) / stride;
    curve.Create(dimension, rational, order, static_cast<int>(count));
    for (int i = 0; i < curve.controlPointCount; ++i)
        curve.SetCV(i, rational ? GK::euclidean_rational : GK::not_rational,
                    points.data() + i * stride);
    curve.knots = Doubles(knots);
    return curve;
}

inline GK_NurbsCurve MakeLine(double u0, double v0, double u1, double v1)
{
    return MakeCurve(2, false, 2, {u0, v0, u1, v1}, {0, 1});
}

// Returns a full circle of degree 2 in four quarters, counter-clockwise from the +x side, over [0,
// 4].
inline GK_NurbsCurve MakeCircle2d(double x, double y, double radius)
{
    const double w = HalfRoot2;
    std::vector<double> points;
    const double corners[9][3] = {{1, 0, 1},   {1, 1, w},  {0, 1, 1},  {-1, 1, w}, {-1, 0, 1},
                                  {-1, -1, w}, {0, -1, 1}, {1, -1, w}, {1, 0, 1}};
    for (const auto& corner : corners)
        points.insert(points.end(), {x + radius * corner[0], y + radius * corner[1], corner[2]});
    return MakeCurve(2, true, 3, points, {0, 0, 1, 1, 2, 2, 3, 3, 4, 4});
}

inline std::unique_ptr<VX_NurbsSurface> MakeSurface(bool rational, int orderU, int orderV,
                                                    const std::vector<double>& points,
                                                    const std::vector<double>& knotsU,
                                                    const std::vector<double>& knotsV)
{
    auto surface = std::make_unique<VX_NurbsSurface>();
    surface->Create(rational, orderU, orderV);
    surface->SetKnots(0, Doubles(knotsU));
    surface->SetKnots(1, Doubles(knotsV));
    const int countU = static_cast<int>(knotsU.size()) - orderU + 2;
    const int countV = static_cast<int>(knotsV.size()) - orderV + 2;
    surface->SetControlPointCount(0, countU);
    surface->SetControlPointCount(1, countV);
    surface->ReserveCVCapacity(static_cast<int>(points.size()));
    const double* point = points.data();
    for (int j = 0; j < countV; ++j)
        for (int i = 0; i < countU; ++i, point += surface->ControlPointStride())
            surface->SetCV(i, j, rational ? GK::euclidean_rational : GK::not_rational, point);
    return surface;
}

// Returns the square [0, size] x [0, size] at height 0, with parameters equal to x and y.
inline std::unique_ptr<VX_NurbsSurface> MakePlane(double size)
{
    return MakeSurface(false, 2, 2, {0, 0, 0, size, 0, 0, 0, size, 0, size, size, 0}, {0, size},
                       {0, size});
}

// Turns a profile, drawn as radius and height, about the z axis; u goes once around over [0, 4].
inline std::unique_ptr<VX_NurbsSurface> Revolve(const GK_NurbsCurve& profile)
{
    const GK_NurbsCurve circle = MakeCircle2d(0.0, 0.0, 1.0);
    std::vector<double> points;
    for (int j = 0; j < profile.controlPointCount; ++j) {
        const auto [radius, height, z] = profile.ControlPoint(j);
        for (int i = 0; i < circle.controlPointCount; ++i)
            points.insert(points.end(),
                          {radius * circle.ControlPoint(i).x, radius * circle.ControlPoint(i).y,
                           height, profile.Weight(j) * circle.Weight(i)});
    }
    return MakeSurface(true, 3, profile.order, points, {circle.knots.begin(), circle.knots.end()},
                       {profile.knots.begin(), profile.knots.end()});
}

// Radius 1, height 0 to 2 over v [0, 2].
inline std::unique_ptr<VX_NurbsSurface> MakeCylinder()
{
    return Revolve(MakeCurve(2, false, 2, {1, 0, 1, 2}, {0, 2}));
}

// Radius 1 about the origin; v goes from the south pole to the north pole over [0, 2].
inline std::unique_ptr<VX_NurbsSurface> MakeSphere()
{
    const double w = HalfRoot2;
    return Revolve(
        MakeCurve(2, true, 3, {0, -1, 1, 1, -1, w, 1, 0, 1, 1, 1, w, 0, 1, 1}, {0, 0, 1, 1, 2, 2}));
}

// Returns a bicubic hill over [0, 4] x [0, 4] with inner knots, one of them a kink in u.
inline std::unique_ptr<VX_NurbsSurface> MakeHill(bool rational)
{
    std::vector<double> points;
    for (int j = 0; j < 7; ++j) {
        for (int i = 0; i < 9; ++i) {
            points.insert(points.end(), {0.5 * i, 0.7 * j, std::sin(1.3 * i) * std::cos(0.9 * j)});
            if (rational)
                points.push_back(1.0 + 0.3 * ((i + 2 * j) % 4));
        }
    }
    return MakeSurface(rational, 4, 4, points, {0, 0, 0, 1, 2, 2, 2, 3, 4, 4, 4},
                       {0, 0, 0, 1, 1.5, 3, 4, 4, 4});
}
