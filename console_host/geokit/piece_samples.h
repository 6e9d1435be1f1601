#pragma once

#include "console_host/geokit/loop_piece.h"

#include <algorithm>

/// A piece of a loop as places along it, close enough for straight lines between them to follow it.
/// All in the order of the parameter, which for a piece that runs backwards is not the loop's.
struct PieceSamples
{
    struct Sample
    {
        double t;
        Uv place;
    };

    /// A stretch of one polynomial: the samples `first` to `last`, and the box of its control
    /// points, which holds the whole stretch.
    struct Span
    {
        std::size_t first;
        std::size_t last;
        UvBox box;
    };

    std::vector<Sample> samples;
    std::vector<Span> spans;
};

/// Returns the samples of a piece; the way between two of them strays from the straight line by
/// `sagitta` at most, in shares of the domain.
PieceSamples SamplesOf(const LoopPiece& piece, const ParameterPlane& plane, double sagitta);

/// Visits the places of the samples of a piece in the loop's direction.
template <class Visit>
void ForEachPlace(const PieceSamples& samples, bool backwards, const Visit& visit)
{
    const auto visitPlace = [&](const PieceSamples::Sample& sample) { visit(sample.place); };
    if (backwards)
        std::for_each(samples.samples.rbegin(), samples.samples.rend(), visitPlace);
    else
        std::for_each(samples.samples.begin(), samples.samples.end(), visitPlace);
}

/// Returns about the longest extent of the pieces, in shares of the domain.
double ExtentOf(const std::vector<LoopPiece>& pieces, const ParameterPlane& plane);
