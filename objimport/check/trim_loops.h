#pragma once

#include "host/geokit/nurbs_surface.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

/// Where a piece of a trim loop begins and ends in the parameter plane.
struct LoopEnds
{
    std::array<double, 2> start{};
    std::array<double, 2> end{};
};

/// Decides which ends of trims meet on a surface: in the parameter plane, across a seam, at a pole
/// or within the tolerance in space.
class TrimEnds
{
public:
    /// The surface must be sound and outlive the object.
    TrimEnds(const GK_NurbsSurface& surface, double tolerance);

    /// Returns the two pieces, from 0, between which a loop is open; nothing when it closes. The
    /// pieces may run in any direction and stand in any order.
    [[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>>
    GapOf(const std::vector<LoopEnds>& pieces) const;

private:
    using Uv = std::array<double, 2>;

    /// Pieces in an order, each turned or not.
    struct Step
    {
        std::size_t piece;
        LoopEnds ends;
    };

    [[nodiscard]] bool Meet(const Uv& a, const Uv& b) const;
    [[nodiscard]] bool OnOnePole(const Uv& a, const Uv& b) const;
    [[nodiscard]] double Distance(const Uv& a, const Uv& b) const;
    [[nodiscard]] Uv Shifted(const Uv& from, const Uv& to) const;
    [[nodiscard]] std::vector<Step> ChainInOrder(const std::vector<LoopEnds>& pieces,
                                                 bool turnFirst) const;
    [[nodiscard]] std::vector<Step> ChainNearest(const std::vector<LoopEnds>& pieces) const;
    [[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>>
    GapOf(const std::vector<Step>& chain) const;

    const GK_NurbsSurface& m_surface;
    double m_tolerance;
    std::array<bool, 2> m_closed{};
    std::array<std::array<bool, 2>, 2> m_pole{};
    Uv m_low{};
    Uv m_high{};
};
