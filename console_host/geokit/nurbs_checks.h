#pragma once

#include <cstdint>
#include <span>
#include <string>

/// Sets `reason`, unless null, and returns false.
bool Unsound(std::string* reason, std::string text);

/// What a B-spline holds for one direction. `direction` is used in the reasons: empty for a curve,
/// " in u" or " in v" for a surface.
struct BsplineDirection
{
    int order;
    int count;
    std::span<const double> knots;
    const char* direction;
};

/// Returns whether the order is 2 to GK_MOST_ORDER and there are at least as many control points.
bool CheckOrder(const BsplineDirection& bspline, const char* subject, std::string* reason);

/// Returns whether the knots are as many as needed, finite, never decrease, have no multiplicity
/// above the degree, and leave a domain.
bool CheckKnots(const BsplineDirection& bspline, const char* subject, std::string* reason);

/// Returns whether `values` holds the coordinates, and the weights when rational, of `count`
/// control points, all set and finite, the weights positive. The first `sound` of them are known to
/// be valid and are skipped; afterwards it says how many are.
bool CheckControlPoints(std::span<const double> values, std::int64_t count, int dimension,
                        bool rational, const char* subject, std::string* reason,
                        std::int64_t& sound);
