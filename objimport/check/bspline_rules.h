#pragma once

#include "objimport/check/finding.h"

#include <cstdint>
#include <optional>
#include <span>

// What a host asks of curves and surfaces. Each operation returns what is wrong, nothing when
// all is well.

/// One direction of a curve or surface. `name` stands in the reasons: empty for a curve.
struct BsplineRow
{
    int order;
    std::int64_t pointCount;
    std::span<const double> knots;
    std::string_view name;
};

std::optional<Phrase> WhyWrongOrder(const BsplineRow& row);
std::optional<Phrase> WhyWrongKnots(const BsplineRow& row);

/// `values` holds the coordinates, and the weights when rational, of the control points that are
/// there, of `count` in all.
std::optional<Phrase> WhyWrongPoints(std::span<const double> values, std::int64_t count,
                                     int dimension, bool rational);
