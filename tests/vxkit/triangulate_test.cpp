#include "host/vxkit/triangulate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

struct Corner
{
    double x;
    double y;
};

using Polygon = std::vector<Corner>;
using Triangle = std::array<int, 3>;
using Point = std::array<double, 3>;

double TwiceArea(const Corner& a, const Corner& b, const Corner& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double TwiceArea(const Polygon& polygon)
{
    double sum = 0.0;
    for (std::size_t i = 1; i + 1 < polygon.size(); ++i)
        sum += TwiceArea(polygon[0], polygon[i], polygon[i + 1]);
    return sum;
}

/// Where a polygon drawn in x and y is put in space.
enum class Plane
{
    Xy,
    YzFar,
    Tilted
};

Point Place(const Corner& corner, Plane plane)
{
    if (plane == Plane::Xy)
        return {corner.x, corner.y, 0.0};
    if (plane == Plane::YzFar)
        return {1000.0, corner.x + 512.0, corner.y - 256.0};
    const auto single = [](double value) { return static_cast<double>(static_cast<float>(value)); };
    return {single(0.36 * corner.x - 0.8 * corner.y), single(0.48 * corner.x + 0.6 * corner.y),
            single(0.8 * corner.x)};
}

bool Triangulate(const Polygon& polygon, Plane plane, std::vector<Triangle>& triangles)
{
    std::vector<double> points;
    for (const Corner& corner : polygon)
        for (const double value : Place(corner, plane))
            points.push_back(value);
    std::vector<int> indices((polygon.size() - 2) * 3, -1);
    const bool done = VX_Triangulate3dPolygon(static_cast<int>(polygon.size()), 3, points.data(), 3,
                                              indices.data());
    triangles.clear();
    for (std::size_t i = 0; i < indices.size(); i += 3)
        triangles.push_back({indices[i], indices[i + 1], indices[i + 2]});
    return done;
}

/// Expects triangles that use every corner, turn as the polygon does, and cover its area.
void ExpectCovered(const Polygon& polygon, Plane plane, bool withoutArea = false)
{
    SCOPED_TRACE(std::to_string(polygon.size()) + " corners, plane " +
                 std::to_string(static_cast<int>(plane)));
    std::vector<Triangle> triangles;
    ASSERT_TRUE(Triangulate(polygon, plane, triangles));
    const double whole = TwiceArea(polygon);
    std::vector<bool> used(polygon.size());
    double sum = 0.0;
    double smallest = std::abs(whole);
    for (const Triangle& triangle : triangles) {
        for (const int corner : triangle)
            used.at(static_cast<std::size_t>(corner)) = true;
        const auto at = [&](std::size_t i) {
            return polygon[static_cast<std::size_t>(triangle[i])];
        };
        const double area = std::copysign(1.0, whole) * TwiceArea(at(0), at(1), at(2));
        smallest = std::min(smallest, area);
        sum += area;
    }
    // Rounding to single precision moves corners a little.
    if (plane == Plane::Tilted)
        EXPECT_GT(smallest, -1e-6 * std::abs(whole));
    else if (withoutArea)
        EXPECT_GE(smallest, 0.0);
    else
        EXPECT_GT(smallest, 0.0);
    EXPECT_NEAR(sum, std::abs(whole), 1e-9 * std::abs(whole));
    EXPECT_EQ(std::count(used.begin(), used.end(), false), 0);
}

void ExpectCoveredEverywhere(Polygon polygon, bool withoutArea = false)
{
    for (int turn = 0; turn < 2; ++turn) {
        for (const Plane plane : {Plane::Xy, Plane::YzFar, Plane::Tilted})
            ExpectCovered(polygon, plane, withoutArea);
        std::reverse(polygon.begin(), polygon.end());
    }
}

Polygon Ring(int count, double radius, double direction)
{
    Polygon polygon;
    for (int i = 0; i < count; ++i) {
        const double angle = direction * 2.0 * std::numbers::pi * i / count;
        polygon.push_back(
            {std::round(radius * std::cos(angle)), std::round(radius * std::sin(angle))});
    }
    return polygon;
}

/// Returns two arms that wind about each other, one out and one back.
Polygon Spiral(int count)
{
    Polygon polygon(static_cast<std::size_t>(count));
    for (int i = 0; i < count / 2; ++i) {
        const double angle = 0.1 * i;
        const double radius = 1.0 + 0.01 * i;
        const double x = std::cos(angle);
        const double y = std::sin(angle);
        polygon[static_cast<std::size_t>(i)] = {radius * x, radius * y};
        polygon[static_cast<std::size_t>(count - 1 - i)] = {(radius + 0.02) * x,
                                                            (radius + 0.02) * y};
    }
    return polygon;
}

Polygon RandomStar(int count, std::mt19937& random)
{
    std::uniform_real_distribution<double> radius(0.1, 1.0);
    Polygon polygon;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / count;
        const double r = radius(random);
        polygon.push_back({r * std::cos(angle), r * std::sin(angle)});
    }
    return polygon;
}

/// Returns random corners, reordered until no sides cross.
Polygon RandomSimple(std::size_t count, std::mt19937& random)
{
    std::uniform_real_distribution<double> coordinate(0.0, 1.0);
    Polygon p;
    while (p.size() < count)
        p.push_back({coordinate(random), coordinate(random)});
    const auto cross = [&](std::size_t i, std::size_t j) {
        const auto side = [](const Corner& a, const Corner& b, const Corner& c) {
            return TwiceArea(a, b, c) > 0.0;
        };
        const Corner& a = p[i];
        const Corner& b = p[i + 1];
        const Corner& c = p[j];
        const Corner& d = p[(j + 1) % count];
        return side(a, b, c) != side(a, b, d) && side(c, d, a) != side(c, d, b);
    };
    for (bool changed = true; changed;) {
        changed = false;
        for (std::size_t i = 0; i < count; ++i)
            for (std::size_t j = i + 2; j < (i == 0 ? count - 1 : count); ++j)
                if (cross(i, j)) {
                    std::reverse(p.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                 p.begin() + static_cast<std::ptrdiff_t>(j) + 1);
                    changed = true;
                }
    }
    return p;
}

} // namespace

TEST(Triangulate, CornersInTheMiddleOfSides)
{
    ExpectCoveredEverywhere({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {0, 4}});
    for (const int length : {2, 3, 1000}) {
        Polygon square;
        for (int i = 0; i < length; ++i)
            square.push_back({i + 0.0, 0.0});
        for (int i = 0; i < length; ++i)
            square.push_back({length + 0.0, i + 0.0});
        for (int i = length; i > 0; --i)
            square.push_back({i + 0.0, length + 0.0});
        square.push_back({0.0, length + 0.0});
        ExpectCoveredEverywhere(square);
    }
}

TEST(Triangulate, ASlit)
{
    ExpectCoveredEverywhere({{0, 0}, {8, 0}, {8, 8}, {5, 8}, {4, 1}, {3, 8}, {0, 8}});
}

TEST(Triangulate, PolygonsThatTouchThemselves)
{
    // A hole joined by a slit, small and large, and repeated corners.
    ExpectCoveredEverywhere(
        {{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 0}, {2, 2}, {2, 4}, {4, 4}, {4, 2}, {2, 2}}, true);
    for (const int count : {40, 300, 2000}) {
        Polygon polygon = Ring(count, 1e6, 1.0);
        Polygon hole = Ring(count / 2, 4e5, -1.0);
        polygon.push_back(polygon.front());
        polygon.insert(polygon.end(), hole.begin(), hole.end());
        polygon.push_back(hole.front());
        ExpectCoveredEverywhere(polygon, true);
    }
    ExpectCoveredEverywhere({{0, 0}, {0, 0}, {4, 0}, {4, 4}, {4, 4}, {0, 4}}, true);
    // Two squares that meet in a corner.
    ExpectCoveredEverywhere({{0, 0}, {2, 0}, {2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}, {0, 2}}, true);
}

TEST(Triangulate, RandomPolygons)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        const int count = 5 + i / 4;
        ExpectCoveredEverywhere(RandomStar(count, random));
        ExpectCoveredEverywhere(RandomSimple(static_cast<std::size_t>(count), random));
    }
}

TEST(Triangulate, ManyCorners)
{
    constexpr int Count = 100000;
    std::mt19937 random(2);
    for (const Polygon& polygon : {Ring(Count, 1e9, 1.0), Spiral(Count), RandomStar(Count, random)})
        ExpectCovered(polygon, Plane::Xy);
}

TEST(Triangulate, AvoidsNarrowTriangles)
{
    // The heights of corners in a row are no longer exactly equal on the tilted plane.
    Polygon wall;
    for (int i = 0; i < 10; ++i) {
        const double x = 4.0 * i;
        wall.insert(wall.end(), {{x, 0}, {x + 1, 0}, {x + 1, 5}, {x + 3, 5}, {x + 3, 0}});
    }
    for (int x = 40; x >= 0; --x)
        wall.push_back({1.0 * x, 15.0});
    std::vector<Triangle> triangles;
    ASSERT_TRUE(Triangulate(wall, Plane::Tilted, triangles));
    for (const Triangle& triangle : triangles) {
        const auto at = [&](std::size_t i) { return wall[static_cast<std::size_t>(triangle[i])]; };
        EXPECT_GT(TwiceArea(at(0), at(1), at(2)), 0.1);
    }
}

TEST(Triangulate, RefusesWhatHasNoPlane)
{
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    std::vector<Triangle> triangles;
    const Polygon polygons[] = {
        {{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}},
        {{0, 0}, {1, 0}, {1, Infinity}, {0, 1}, {0, 0.5}},
        {{0, 0}, {1, 0}, {1, NotANumber}, {0, 1}, {0, 0.5}},
        Polygon(100000, {2, 3}),
    };
    for (const Polygon& polygon : polygons)
        EXPECT_FALSE(Triangulate(polygon, Plane::Xy, triangles));
}

TEST(Triangulate, SizesBeyondOrdinary)
{
    for (const double size : {1e-40, 1e-300, 3e38, 1e300}) {
        Polygon shape{{0, 0}, {4, 0}, {4, 4}, {2, 1}, {0, 4}};
        for (Corner& corner : shape)
            corner = {corner.x * size, corner.y * size};
        std::vector<Triangle> triangles;
        ASSERT_TRUE(Triangulate(shape, Plane::Xy, triangles));
        // The corner that points inward is a corner of every triangle.
        for (const Triangle& triangle : triangles)
            EXPECT_EQ(std::count(triangle.begin(), triangle.end(), 3), 1);
    }
}

TEST(Triangulate, CrossingSidesDoNotHang)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> coordinate(0, 20);
    for (const std::size_t count : {5U, 8U, 12U, 13U, 60U, 256U, 1000U, 50000U}) {
        Polygon polygon;
        while (polygon.size() < count)
            polygon.push_back({coordinate(random) + 0.0, coordinate(random) + 0.0});
        std::vector<Triangle> triangles;
        if (!Triangulate(polygon, Plane::Xy, triangles))
            continue;
        for (const Triangle& triangle : triangles)
            for (const int corner : triangle)
                EXPECT_TRUE(corner >= 0 && corner < static_cast<int>(count));
    }
}
