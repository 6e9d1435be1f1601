#include "tests/trimming/trimmed_shapes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double Root = 0.70710678118654752440; // the weight of a quarter circle's middle point

using Function = std::function<double(double)>;

// Places along a curve of radius and height, or of a circle about the origin: with weights.
using Profile = std::vector<std::array<double, 3>>;

const Profile FullCircle{{1, 0, 1},      {1, 1, Root}, {0, 1, 1},     {-1, 1, Root}, {-1, 0, 1},
                         {-1, -1, Root}, {0, -1, 1},   {1, -1, Root}, {1, 0, 1}};

std::vector<double> QuadraticKnots(int spans)
{
    std::vector<double> knots{0, 0, 0};
    for (int i = 1; i < spans; ++i)
        knots.insert(knots.end(), 2, 1.0 * i / spans);
    knots.insert(knots.end(), 3, 1.0);
    return knots;
}

// Returns the angle of a circle made of rational quarters; continues beyond 0 and 1.
double Angle(double t, int quarters)
{
    const double place = t * quarters;
    const double quarter = std::floor(place);
    const double s = place - quarter;
    const double middle = 2 * Root * s * (1 - s);
    return 0.5 * Pi * quarter + std::atan2(middle + s * s, middle + (1 - s) * (1 - s));
}

// `along` is the integral of radius times arc length along the profile.
ShapeSurface Revolved(const Profile& profile, int degree, const Function& along)
{
    ShapeSurface surface;
    surface.rational = true;
    surface.degree = {2, degree};
    surface.knots[0] = QuadraticKnots(4);
    surface.knots[1] = degree == 1 ? std::vector<double>{0, 0, 1, 1}
                                   : QuadraticKnots(static_cast<int>(profile.size() / 2));
    surface.closed[0] = true;
    for (const auto& [radius, height, weight] : profile)
        for (const auto& [x, y, circleWeight] : FullCircle)
            surface.points.push_back({radius * x, radius * y, height, weight * circleWeight});
    surface.strip = [along](double u, double v0, double v1) {
        return Angle(u, 4) * (along(v1) - along(v0));
    };
    return surface;
}

double Bernstein(int i, double t)
{
    const double s = 1 - t;
    const std::array<double, 4> values{s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    return values[static_cast<std::size_t>(i)];
}

double BernsteinSlope(int i, double t)
{
    const std::array<double, 4> slopes{-3 * (1 - t) * (1 - t), 3 * (1 - t) * (1 - 3 * t),
                                       3 * t * (2 - 3 * t), 3 * t * t};
    return slopes[static_cast<std::size_t>(i)];
}

double PatchElement(double width, double height, const std::array<double, 16>& heights, double u,
                    double v)
{
    double slopeU = 0.0;
    double slopeV = 0.0;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            const double h = heights[4 * static_cast<std::size_t>(j) + static_cast<std::size_t>(i)];
            slopeU += h * BernsteinSlope(i, u) * Bernstein(j, v);
            slopeV += h * Bernstein(i, u) * BernsteinSlope(j, v);
        }
    return std::hypot(width * height, height * slopeU, width * slopeV);
}

} // namespace

ShapeSurface PlaneShape(double width, double height)
{
    ShapeSurface surface;
    surface.knots = {{{0, 0, 1, 1}, {0, 0, 1, 1}}};
    surface.points = {{0, 0, 0, 1}, {width, 0, 0, 1}, {0, height, 0, 1}, {width, height, 0, 1}};
    surface.strip = [=](double u, double v0, double v1) { return width * u * height * (v1 - v0); };
    return surface;
}

ShapeSurface CylinderShape(double radius, double height)
{
    return ConeShape(radius, radius, height);
}

ShapeSurface ConeShape(double bottom, double top, double height)
{
    const double slant = std::hypot(top - bottom, height);
    return Revolved({{bottom, 0, 1}, {top, height, 1}}, 1,
                    [=](double v) { return slant * (bottom * v + 0.5 * (top - bottom) * v * v); });
}

ShapeSurface SphereShape(double radius)
{
    return Revolved({{0, -radius, 1},
                     {radius, -radius, Root},
                     {radius, 0, 1},
                     {radius, radius, Root},
                     {0, radius, 1}},
                    2, [=](double v) { return -radius * radius * std::cos(Angle(v, 2)); });
}

ShapeSurface TorusShape(double radius, double tube)
{
    Profile profile;
    for (const auto& [x, y, weight] : FullCircle)
        profile.push_back({radius + tube * x, tube * y, weight});
    ShapeSurface surface = Revolved(profile, 2, [=](double v) {
        const double angle = Angle(v, 4);
        return tube * (radius * angle + tube * std::sin(angle));
    });
    surface.closed[1] = true;
    return surface;
}

ShapeSurface PatchShape(double width, double height, const std::array<double, 16>& heights)
{
    ShapeSurface surface;
    surface.degree = {3, 3};
    surface.knots = {{{0, 0, 0, 0, 1, 1, 1, 1}, {0, 0, 0, 0, 1, 1, 1, 1}}};
    for (const int row : {0, 1, 2, 3})
        for (const int column : {0, 1, 2, 3})
            surface.points.push_back(
                {width * column / 3, height * row / 3, heights[surface.points.size()], 1});
    surface.strip = [=](double u, double v0, double v1) {
        constexpr int Steps = 8;
        const double offset = std::sqrt(0.15); // three points of Gauss in each step
        const auto element = [&](double place) {
            return PatchElement(width, height, heights, u * place / Steps, 0.5 * (v0 + v1));
        };
        double sum = 0.0;
        for (int i = 0; i < Steps; ++i)
            sum += (5 * element(i + 0.5 - offset) + 8 * element(i + 0.5) +
                    5 * element(i + 0.5 + offset)) /
                   18;
        return sum * u / Steps * (v1 - v0);
    };
    return surface;
}

ShapeSurface Placed(ShapeSurface surface, double scale, double offset)
{
    for (auto& point : surface.points)
        for (std::size_t axis = 0; axis < 3; ++axis)
            point[axis] = scale * point[axis] + offset;
    surface.strip = [strip = surface.strip, scale](double u, double v0, double v1) {
        return scale * scale * strip(u, v0, v1);
    };
    return surface;
}

double AreaWithin(const ShapeSurface& surface, const Pieces& loop)
{
    constexpr int StepsPerSpan = 128;
    double area = 0.0;
    for (const TrimPiece& piece : loop) {
        const int steps =
            StepsPerSpan * static_cast<int>(std::lround(std::abs(piece.to - piece.from)));
        UV before = piece.At(0.0);
        for (int i = 1; i <= steps; ++i) {
            const UV here = piece.At(1.0 * i / steps);
            if (here.v != before.v)
                area += surface.strip(piece.At((i - 0.5) / steps).u, before.v, here.v);
            before = here;
        }
    }
    return area;
}

double AreaOfBand(const ShapeSurface& surface, double v0, double v1)
{
    return AreaWithin(surface, PolygonOf(Rectangle(0, v0, 1, v1)));
}
