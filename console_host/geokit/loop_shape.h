#pragma once

#include "console_host/geokit/loop_chain.h"
#include "console_host/geokit/loop_polygon.h"
#include "console_host/geokit/piece_samples.h"

#include <string>

/// A loop of a face on its way through a repair.
struct LoopShape
{
    int number = 0; ///< of the loop in the brep, from 1
    GK_BrepLoop::TYPE type = GK_BrepLoop::unknown;
    std::vector<LoopPiece> pieces;
    std::vector<PieceSamples> samples; ///< of the pieces
    std::array<int, 2> winding{};      ///< how often it runs around the surface in u and v
    LoopPolygon polygon;  ///< the loop as it was given, unless it runs around the surface
    double sagitta = 0.0; ///< how far the loop strays from its samples, in shares of the domain
    double height = 0.0;  ///< of a loop that runs around: where it does so, as its mean in shares

    [[nodiscard]] bool RunsAround() const { return winding != std::array<int, 2>{}; }

    /// Reverses its direction.
    void Turn();
};

/// Returns how closely samples follow a loop, in shares of the loop's extent. Outer loops are few
/// and hold all others.
constexpr double SagittaOf(GK_BrepLoop::TYPE type)
{
    return type == GK_BrepLoop::inner ? 4e-4 : 1e-5;
}

/// Chains the pieces of a loop and measures it. Returns why it bounds nothing, as a clause; empty
/// when it is sound.
std::string ShapeLoop(LoopShape& loop, const ParameterPlane& plane);

/// Returns where a loop leaves the domain in a direction in which the surface is not closed, as a
/// clause; empty when it does not.
std::string WhyOutside(const LoopShape& loop, const ParameterPlane& plane);
