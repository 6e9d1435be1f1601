#pragma once

#include <array>
#include <cstdint>
#include <string>

/// A universally unique id, a plain value, its sixteen bytes in the order in which its text shows
/// them.
struct GK_UUID
{
    std::array<std::uint8_t, 16> bytes{};

    friend bool operator==(const GK_UUID&, const GK_UUID&) = default;
};

/// The id of nothing: all bytes zero.
inline constexpr GK_UUID GK_nil_uuid{};

/// Returns the usual text, 8-4-4-4-12 upper-case hexadecimal digits.
[[nodiscard]] std::string GK_UuidToString(const GK_UUID& id);
