#pragma once

#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"
#include "host/runtime/work_sharing.h"

#include <array>
#include <bit>
#include <cstdint>
#include <span>

/// Returns for each position the lowest index of one that equals it: its own when there is none
/// before it. Empty when no two are equal. A position with a coordinate that is not a number equals
/// none. Work stays near n log n whatever the positions are. `threads` may be null.
GK_SimpleArray<int> FirstEqualPositions(std::span<const GK_3fPoint> positions,
                                        KelvoWorkSharing* threads);

/// Returns the bits of a position, the same for -0 and 0.
inline std::array<std::uint32_t, 3> PositionKey(const GK_3fPoint& position)
{
    const auto bits = [](float value) { return std::bit_cast<std::uint32_t>(value + 0.0F); };
    return {bits(position.x), bits(position.y), bits(position.z)};
}

/// Returns a well-mixed hash, the same for positions that compare equal.
inline std::uint64_t PositionHash(const GK_3fPoint& position)
{
    const auto [x, y, z] = PositionKey(position);
    std::uint64_t hash = x * std::uint64_t{0x9E3779B97F4A7C15} +
                         y * std::uint64_t{0xC2B2AE3D27D4EB4F} +
                         z * std::uint64_t{0x165667B19E3779F9};
    hash = (hash ^ (hash >> 32)) * std::uint64_t{0xD6E8FEB86659FD93};
    return hash ^ (hash >> 32);
}
