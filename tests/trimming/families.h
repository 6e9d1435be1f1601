#pragma once

#include "tests/trimming/check_shape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// Returns a surface without loops yet, for the families of tests.
inline TrimmedShape Bare(ShapeSurface surface)
{
    TrimmedShape shape;
    shape.surface = std::move(surface);
    return shape;
}

/// Returns a shape with one more loop, whose area counts against the shape's when it is a hole.
inline TrimmedShape With(TrimmedShape shape, bool isHole, const Pieces& pieces)
{
    shape.area += (isHole ? -1.0 : 1.0) * std::abs(AreaWithin(shape.surface, pieces));
    shape.loops.push_back({isHole, pieces});
    return shape;
}

inline TrimmedShape WithOuter(TrimmedShape shape, const Pieces& pieces)
{
    return With(std::move(shape), false, pieces);
}

inline TrimmedShape WithHole(TrimmedShape shape, const Pieces& pieces)
{
    return With(std::move(shape), true, pieces);
}

/// Returns a shape with one more loop that must be dropped.
inline TrimmedShape WithDropped(TrimmedShape shape, const Pieces& pieces)
{
    shape.loops.push_back({true, pieces});
    ++shape.dropped;
    return shape;
}

/// Returns a surface that keeps its natural boundary.
inline TrimmedShape Whole(ShapeSurface surface)
{
    TrimmedShape shape = Bare(std::move(surface));
    shape.area = AreaOfBand(shape.surface, 0, 1);
    return shape;
}

inline TrimmedShape Counted(TrimmedShape shape, int vertices, int borders, int seams)
{
    shape.vertices = vertices;
    shape.borders = borders;
    shape.seams = seams;
    return shape;
}

/// Fails, with the first faults of all and a text that reproduces the case, when shapes are not
/// imported as they say.
inline void ExpectImported(const std::vector<TrimmedShape>& shapes, const Writing& writing,
                           double tolerance)
{
    constexpr std::size_t LongestText = 6000;
    const std::vector<std::string> faults = ImportFaults(shapes, writing, tolerance);
    if (faults.empty())
        return;
    const std::string text = ObjText(shapes, writing);
    ADD_FAILURE() << testing::PrintToString(faults) << "\nat tolerance " << tolerance << " of\n"
                  << text.substr(0, LongestText);
}

/// As above, for a shape of size 1 or so in several sizes, domains and tolerances, with u and v
/// exchanged too; sizes below the tolerance only when asked for: there, gaps do not count. Ends
/// after the first that fails.
inline void ExpectImportedEverywhere(const TrimmedShape& shape, bool belowTolerance = true)
{
    struct Setting
    {
        double scale;
        double tolerance;
        Writing writing;
    };
    const Setting settings[] = {
        {1.0, 1e-3, {}},
        {1.0, 1e-6, {17, {{{0, 1}, {0, 1}}}, true}},
        {1e-4, 1e-3, {12, {{{-5, 3}, {0, 1500}}}, false}},
        {1e-4, 1.0, {17, {{{0, 6.283185307179586}, {-1, 1}}}, true}},
        {1e3, 1e-3, {10, {{{0, 1500}, {0, 1}}}, false}},
        {1e5, 1.0, {17, {{{10, 11}, {-5, 3}}}, true}},
        {1.0, 1e-3, {6, {{{0, 1}, {0, 1}}}, false}},
        {10.0, 1.0, {8, {{{0, 1}, {0, 1}}}, false}},
    };
    for (const Setting& setting : settings) {
        if (!belowTolerance && setting.scale < setting.tolerance)
            continue;
        const TrimmedShape placed = Placed(shape, setting.scale, 0.0);
        ExpectImported({placed}, setting.writing, setting.tolerance);
        if (testing::Test::HasFailure())
            return;
    }
}
