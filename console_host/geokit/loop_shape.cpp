#include "console_host/geokit/loop_shape.h"

#include "console_host/runtime/text.h"

#include <algorithm>
#include <cmath>

namespace {

// Returns whether a piece stays at one place and so adds nothing to its loop.
bool IsStill(const LoopPiece& piece, const ParameterPlane& plane)
{
    constexpr double Still = 1e-9;
    constexpr std::array<double, 4> Fractions{0.25, 0.5, 0.75, 1.0};
    const Uv start = piece.At(piece.part[0]);
    return std::all_of(Fractions.begin(), Fractions.end(), [&](double fraction) {
        return plane.Distance(start, piece.At(piece.part.ParameterAt(fraction))) <= Still;
    });
}

std::string WhyOpen(const LoopShape& loop, std::ptrdiff_t gapAfter, const ParameterPlane& plane)
{
    const LoopPiece& piece = loop.pieces[static_cast<std::size_t>(gapAfter)];
    const LoopPiece& next =
        loop.pieces[static_cast<std::size_t>(gapAfter + 1) % loop.pieces.size()];
    const double gap = plane.PointAt(piece.End()).DistanceTo(plane.PointAt(next.Start()));
    const std::string where = FormatText("does not close: trim %d ends ", piece.number);
    if (gap <= plane.Tolerance())
        return where + FormatText("where trim %d starts, but elsewhere in the parameter plane",
                                  next.number);
    return where + FormatText("%.6g away from the start of trim %d (tolerance %.6g)", gap,
                              next.number, plane.Tolerance());
}

// Visits the samples of a loop in its direction.
template <class Visit>
void ForEachPlace(const LoopShape& loop, const Visit& visit)
{
    for (std::size_t i = 0; i < loop.pieces.size(); ++i)
        ForEachPlace(loop.samples[i], loop.pieces[i].backwards, visit);
}

// Returns the mean of v along a loop that runs around in u, or of u along one that does so in v:
// loops that do not meet lie in the order of these means.
double MeanHeight(const LoopShape& loop, std::size_t around, const ParameterPlane& plane)
{
    bool first = true;
    Uv last{};
    double sum = 0.0;
    ForEachPlace(loop, [&](const Uv& place) {
        const Uv at = plane.Normalized(place);
        if (!first)
            sum += (at[around] - last[around]) * 0.5 * (at[1 - around] + last[1 - around]);
        first = false;
        last = at;
    });
    return sum / loop.winding[around];
}

void Measure(LoopShape& loop, const ParameterPlane& plane)
{
    if (loop.RunsAround()) {
        loop.height = MeanHeight(loop, loop.winding[0] != 0 ? 0 : 1, plane);
        return;
    }
    ForEachPlace(loop,
                 [&](const Uv& place) { loop.polygon.Append(plane.Normalized(place), true); });
    loop.polygon.Close();
}

} // namespace

void LoopShape::Turn()
{
    TurnLoop(pieces);
    std::reverse(samples.begin(), samples.end());
    for (int& turns : winding)
        turns = -turns;
}

std::string ShapeLoop(LoopShape& loop, const ParameterPlane& plane)
{
    std::erase_if(loop.pieces, [&](const LoopPiece& piece) { return IsStill(piece, plane); });
    if (loop.pieces.empty())
        return "stays at one place";
    const LoopChain chain = ChainPieces(loop.pieces, plane);
    if (chain.gapAfter >= 0)
        return WhyOpen(loop, chain.gapAfter, plane);
    loop.winding = chain.winding;
    const auto [aroundU, aroundV] = chain.winding;
    if (std::abs(aroundU) + std::abs(aroundV) > 1)
        return "runs around the surface more than once";
    loop.sagitta = SagittaOf(loop.type) * ExtentOf(loop.pieces, plane);
    loop.samples.reserve(loop.pieces.size());
    for (const LoopPiece& piece : loop.pieces)
        loop.samples.push_back(SamplesOf(piece, plane, loop.sagitta));
    Measure(loop, plane);
    return {};
}

namespace {

// Returns whether a place is beyond the domain by more than rounding, in the plane and in space.
bool IsBeyond(const Uv& place, std::size_t d, const ParameterPlane& plane)
{
    if (place[d] >= plane.Low(d) - plane.Slack(d) && place[d] <= plane.High(d) + plane.Slack(d))
        return false;
    Uv within = place;
    within[d] = std::clamp(place[d], plane.Low(d), plane.High(d));
    return !(plane.PointAt(place).DistanceTo(plane.PointAt(within)) <= plane.Closeness());
}

// Returns the place of a loop that is farthest from the middle of the domain in a direction.
Uv FarthestOut(const LoopShape& loop, std::size_t d, const ParameterPlane& plane)
{
    Uv farthest = loop.samples.front().samples.front().place;
    const auto out = [&](const Uv& place) { return std::abs(plane.Normalized(place)[d] - 0.5); };
    ForEachPlace(loop, [&](const Uv& place) {
        if (out(place) > out(farthest))
            farthest = place;
    });
    return farthest;
}

std::string WhyBeyond(const Uv& place, std::size_t d, const ParameterPlane& plane)
{
    const bool below = place[d] < plane.Low(d);
    return FormatText("leaves the surface's domain: %s reaches %.6g, and the domain %s at %.6g",
                      d == 0 ? "u" : "v", place[d], below ? "begins" : "ends",
                      below ? plane.Low(d) : plane.High(d));
}

// Returns whether control points of a span lie beyond the domain by more than `room`.
bool ReachesBeyond(const PieceSamples::Span& span, std::size_t d, double room,
                   const ParameterPlane& plane)
{
    return span.box.low[d] < plane.Low(d) - room || span.box.high[d] > plane.High(d) + room;
}

std::string WhyOutside(const LoopShape& loop, std::size_t d, const ParameterPlane& plane)
{
    constexpr double MostPeriods = 64.0;
    const bool closed = plane.IsClosed(d);
    const double room = closed ? MostPeriods * plane.Length(d) : 0.0;
    for (const auto& [samples, spans] : loop.samples) {
        for (const PieceSamples::Span& span : spans) {
            if (!ReachesBeyond(span, d, room, plane))
                continue;
            if (closed)
                return "runs around the surface too far";
            for (std::size_t i = span.first; i <= span.last; ++i)
                if (IsBeyond(samples[i].place, d, plane))
                    return WhyBeyond(FarthestOut(loop, d, plane), d, plane);
        }
    }
    return {};
}

} // namespace

std::string WhyOutside(const LoopShape& loop, const ParameterPlane& plane)
{
    const std::string inU = WhyOutside(loop, 0, plane);
    return inU.empty() ? WhyOutside(loop, 1, plane) : inU;
}
