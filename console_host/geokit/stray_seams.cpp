#include "console_host/geokit/seam_cut.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t None = static_cast<std::size_t>(-1);

// A piece along a line of constant parameter that is not the surface's own seam there.
struct StrayPiece
{
    std::size_t index;
    std::size_t across; // the direction whose parameter is constant
    Uv start;
    Uv end;
};

bool IsOnSeam(double value, std::size_t across, const ParameterPlane& plane)
{
    const double periods = (value - plane.Low(across)) / plane.Length(across);
    return std::abs(periods - std::round(periods)) * plane.Length(across) <= plane.Slack(across);
}

// Returns the direction across a line off the surface's seams that a span runs along, or None.
std::size_t LineAlong(const PieceSamples::Span& span, const ParameterPlane& plane)
{
    for (const std::size_t d : {0U, 1U})
        if (plane.IsClosed(d) && span.box.high[d] - span.box.low[d] <= plane.Slack(d) &&
            !IsOnSeam(span.box.low[d], d, plane))
            return d;
    return None;
}

// The pieces of a loop, cut where they begin or end to run along such lines, and what of them does.
struct CutLoop
{
    std::vector<LoopPiece> pieces;
    std::vector<StrayPiece> stray;
};

void Cut(const LoopPiece& piece, const PieceSamples& samples, const ParameterPlane& plane,
         CutLoop& cut)
{
    const std::vector<PieceSamples::Span>& spans = samples.spans;
    const auto append = [&](std::size_t first, std::size_t last, std::size_t across) {
        cut.pieces.push_back(first == 0 && last + 1 == spans.size()
                                 ? piece
                                 : piece.Between(samples.samples[spans[first].first].t,
                                                 samples.samples[spans[last].last].t));
        if (across != None)
            cut.stray.push_back({cut.pieces.size() - 1, across, cut.pieces.back().Start(),
                                 cut.pieces.back().End()});
    };
    const auto at = [&](std::size_t k) { return piece.backwards ? spans.size() - 1 - k : k; };
    for (std::size_t k = 0; k < spans.size();) {
        const std::size_t begin = k;
        const std::size_t across = LineAlong(spans[at(begin)], plane);
        while (k < spans.size() && LineAlong(spans[at(k)], plane) == across)
            ++k;
        append(std::min(at(begin), at(k - 1)), std::max(at(begin), at(k - 1)), across);
    }
}

// Returns whether the two are sides of one seam.
bool AreTwins(const StrayPiece& a, const StrayPiece& b, const ParameterPlane& plane)
{
    if (a.across != b.across)
        return false;
    const Uv periods = plane.PeriodsBetween(a.start, b.end);
    return periods[a.across] != 0.0 && plane.Coincide(a.start, b.end + periods) &&
           plane.Coincide(a.end, b.start + periods);
}

// Returns for each piece the one that is the other side of its seam, or None.
std::vector<std::size_t> Twins(const CutLoop& cut, const ParameterPlane& plane)
{
    const std::vector<StrayPiece>& stray = cut.stray;
    std::vector<std::size_t> twins(cut.pieces.size(), None);
    for (auto a = stray.begin(); a != stray.end(); ++a) {
        if (twins[a->index] != None)
            continue;
        const auto b = std::find_if(a + 1, stray.end(), [&](const StrayPiece& other) {
            return twins[other.index] == None && AreTwins(*a, other, plane);
        });
        if (b == stray.end())
            continue;
        twins[a->index] = b->index;
        twins[b->index] = a->index;
    }
    return twins;
}

} // namespace

std::vector<std::vector<LoopPiece>> WithoutStraySeams(const std::vector<LoopPiece>& pieces,
                                                      const std::vector<PieceSamples>& samples,
                                                      const ParameterPlane& plane)
{
    constexpr std::size_t MostPieces = 1000;
    CutLoop cut;
    if (plane.IsClosed(0) || plane.IsClosed(1))
        for (std::size_t i = 0; i < pieces.size(); ++i)
            Cut(pieces[i], samples[i], plane, cut);
    const std::size_t count = cut.pieces.size();
    if (cut.stray.size() < 2 || cut.stray.size() > MostPieces)
        return {pieces};
    const std::vector<std::size_t> twins = Twins(cut, plane);
    if (std::all_of(twins.begin(), twins.end(), [](std::size_t twin) { return twin == None; }))
        return {pieces};
    // What arrives at one side of a seam continues where the other side ends.
    const auto next = [&](std::size_t i) {
        i = (i + 1) % count;
        while (twins[i] != None)
            i = (twins[i] + 1) % count;
        return i;
    };
    std::vector<std::vector<LoopPiece>> loops;
    std::vector<char> used(count, 0);
    for (std::size_t first = 0; first < count; ++first) {
        if (used[first] != 0 || twins[first] != None)
            continue;
        loops.emplace_back();
        for (std::size_t i = first; used[i] == 0; i = next(i)) {
            used[i] = 1;
            loops.back().push_back(cut.pieces[i]);
        }
    }
    return loops;
}
