#include "console_host/geokit/face_bounds.h"

#include "console_host/geokit/face_holes.h"
#include "console_host/geokit/loop_shape.h"
#include "console_host/geokit/nurbs_evaluation.h"
#include "console_host/runtime/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <unordered_map>

namespace {

bool StaysOnPole(const std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
{
    return std::all_of(pieces.begin(), pieces.end(), [&](const LoopPiece& piece) {
        return plane.CommonPole(piece.Start(), piece.End()).has_value();
    });
}

/// Counts how often the loops of a face run along each curve. What lies in a plane has two sides,
/// so a curve bounds a face at most twice; a file can name one a thousand times in a few bytes.
class CurveUse
{
public:
    /// Adds the pieces of a loop. False, and nothing added, when with them a curve would be run
    /// along more than twice.
    bool Add(const std::vector<LoopPiece>& pieces)
    {
        bool good = true;
        std::size_t added = 0;
        for (; good && added < pieces.size(); ++added) {
            std::int64_t& spans = Spans(pieces[added]);
            spans += SpansOf(pieces[added]);
            good = spans <= 2 * std::int64_t{pieces[added].curve->controlPointCount};
        }
        for (std::size_t i = 0; !good && i < added; ++i)
            Spans(pieces[i]) -= SpansOf(pieces[i]);
        return good;
    }

private:
    std::int64_t& Spans(const LoopPiece& piece)
    {
        return m_spans[piece.curve->controlPoints.Identity()];
    }

    // Returns the spans within a piece; the ones that its ends share with what follows do not
    // count.
    static std::int64_t SpansOf(const LoopPiece& piece)
    {
        return FindSpan(*piece.curve, piece.part[1]) - FindSpan(*piece.curve, piece.part[0]);
    }

    // The polynomial spans run through, by the storage that the copies of a curve share.
    std::unordered_map<const void*, std::int64_t> m_spans;
};

class Bounder
{
public:
    Bounder(const GK_Brep& brep, const GK_BrepFace& face, const ParameterPlane& plane,
            BrepRepairReport& report)
        : m_brep(brep), m_face(face), m_plane(plane), m_report(report)
    {
    }

    BoundedFaces Run();

private:
    bool Shape();
    bool Reject(GK_BrepLoop::TYPE type, int number, const std::string& reason);
    void Add(LoopShape loop);
    bool AddSplit(const LoopShape& open);
    bool AddRings(const LoopShape& whole, const std::vector<std::vector<LoopPiece>>& parts);
    bool Orient();
    bool OrientRings();
    [[nodiscard]] bool FirstRingRises(const std::vector<LoopShape*>& rings) const;
    [[nodiscard]] bool OnlyInner() const;
    [[nodiscard]] std::vector<DomainLoop> Cut() const;
    void DropEmptyInner(std::vector<DomainLoop>& loops);
    void DropCrossingAtSeams(std::vector<DomainLoop>& loops);
    bool Walk(std::vector<DomainLoop> loops, std::vector<WalkedLoop>& walked);

    const GK_Brep& m_brep;
    const GK_BrepFace& m_face;
    const ParameterPlane& m_plane;
    BrepRepairReport& m_report;
    CurveUse m_use;
    std::vector<LoopShape> m_loops;
    bool m_natural = false; // the sides of the domain bound the face
};

BoundedFaces Bounder::Run()
{
    if (!Shape() || !Orient())
        return {};
    std::vector<DomainLoop> loops = Cut();
    BoundedFaces bounded;
    bounded.seamBreaks = StripSeams(loops, m_plane);
    DropEmptyInner(loops);
    DropCrossingAtSeams(loops);
    std::vector<WalkedLoop> walked;
    if (!Walk(std::move(loops), walked))
        return {};
    bounded.faces = PlaceHoles(std::move(walked), m_loops, m_plane, m_report);
    if (bounded.faces.empty())
        m_report.reason = "no loop bounds the face";
    return bounded;
}

// Notes an inner loop that is dropped and returns true; returns false, and the reason, for an outer
// one, without which there is no face.
bool Bounder::Reject(GK_BrepLoop::TYPE type, int number, const std::string& reason)
{
    if (type == GK_BrepLoop::inner) {
        m_report.Drop(type, number, reason);
        return true;
    }
    m_report.reason = FormatText("loop %d ", number) + reason;
    return false;
}

bool Bounder::Shape()
{
    for (const int index : m_face.loopIndices) {
        const GK_BrepLoop& given = m_brep.Loop(index);
        LoopShape loop;
        loop.number = index + 1;
        loop.type = given.type;
        loop.pieces = PiecesOf(m_brep, given, m_plane);
        if (loop.pieces.empty()) {
            m_report.Drop(loop.type, loop.number, "has no trims");
            continue;
        }
        const bool fits = m_use.Add(loop.pieces);
        const std::string reason = fits ? ShapeLoop(loop, m_plane)
                                        : "runs along a curve that others already run along twice";
        if (!reason.empty()) {
            if (!(fits && AddSplit(loop)) && !Reject(loop.type, loop.number, reason))
                return false;
            continue;
        }
        if (const std::string outside = WhyOutside(loop, m_plane); !outside.empty()) {
            m_report.reason = FormatText("loop %d ", loop.number) + outside;
            return false;
        }
        Add(std::move(loop));
    }
    m_natural = OnlyInner();
    return true;
}

// Adds a loop; of an outer one with a seam elsewhere than the surface's, what it has besides.
void Bounder::Add(LoopShape loop)
{
    if (loop.type == GK_BrepLoop::inner) {
        m_loops.push_back(std::move(loop));
        return;
    }
    const auto parts = WithoutStraySeams(loop.pieces, loop.samples, m_plane);
    const bool same = parts.size() == 1 && parts.front().size() == loop.pieces.size();
    if (same || !AddRings(loop, parts))
        m_loops.push_back(std::move(loop));
}

// Adds a loop that does not close as several, without the seams between them, where it is that.
bool Bounder::AddSplit(const LoopShape& open)
{
    const auto rings = RingsOf(open.pieces, m_plane);
    return !rings.empty() && AddRings(open, rings);
}

// Adds parts of a loop that run around the surface each, beside others along poles, in its place,
// with the face on their left; where none does, an outer loop without pieces, which means the sides
// of the domain. Returns false, with nothing added, when a part is neither.
bool Bounder::AddRings(const LoopShape& whole, const std::vector<std::vector<LoopPiece>>& parts)
{
    LoopShape part;
    part.number = whole.number;
    part.type = whole.type;
    std::vector<LoopShape> rings;
    for (const std::vector<LoopPiece>& pieces : parts) {
        if (StaysOnPole(pieces, m_plane))
            continue;
        LoopShape& ring = rings.emplace_back(part);
        ring.pieces = pieces;
        if (!ShapeLoop(ring, m_plane).empty() || !ring.RunsAround() ||
            !WhyOutside(ring, m_plane).empty())
            return false;
        if (whole.polygon.SignedArea() < 0.0)
            ring.Turn();
    }
    if (rings.empty())
        rings.push_back(part);
    std::move(rings.begin(), rings.end(), std::back_inserter(m_loops));
    return true;
}

// Turns loops so that the face lies on their left.
bool Bounder::Orient()
{
    for (LoopShape& loop : m_loops) {
        const double area = loop.polygon.SignedArea();
        const bool wrong = loop.type == GK_BrepLoop::inner ? area > 0.0 : area < 0.0;
        if (!loop.RunsAround() && wrong)
            loop.Turn();
    }
    return OrientRings();
}

// Loops that run around the surface bound the face in pairs: the lower one has it above, the upper
// one below. One that is left over goes with a pole.
bool Bounder::OrientRings()
{
    std::vector<LoopShape*> rings;
    for (LoopShape& loop : m_loops)
        if (loop.RunsAround())
            rings.push_back(&loop);
    if (rings.empty())
        return true;
    const std::size_t around = rings.front()->winding[0] != 0 ? 0 : 1;
    if (rings.size() % 2 != 0 && m_plane.IsClosed(1 - around) && !OnlyInner()) {
        m_report.reason = FormatText("loop %d runs around the surface, and nothing bounds the face "
                                     "on its other side",
                                     rings.back()->number);
        return false;
    }
    for (const LoopShape* ring : rings)
        if (ring->winding[around] == 0) {
            m_report.reason = FormatText("loops %d and %d run around the surface in different "
                                         "directions",
                                         rings.front()->number, ring->number);
            return false;
        }
    std::stable_sort(rings.begin(), rings.end(),
                     [](const LoopShape* a, const LoopShape* b) { return a->height < b->height; });
    bool rises = FirstRingRises(rings);
    m_natural = OnlyInner() && rings.size() % 2 != 0;
    for (LoopShape* ring : rings) {
        if ((ring->winding[around] > 0) != rises)
            ring->Turn();
        rises = !rises;
    }
    return true;
}

// Returns whether the lowest ring runs in the direction of rising parameters. With the face above
// it, one in u does and one in v does not; where either may be meant, it stays as it was given.
bool Bounder::FirstRingRises(const std::vector<LoopShape*>& rings) const
{
    const bool inU = rings.front()->winding[0] != 0;
    const bool lowPole = m_plane.IsPole(SideAt(inU ? 1 : 0, false));
    const bool highPole = m_plane.IsPole(SideAt(inU ? 1 : 0, true));
    if (rings.size() % 2 == 0)
        return inU;
    if (OnlyInner() || lowPole == highPole)
        return rings.front()->winding[inU ? 0 : 1] > 0;
    return lowPole != inU;
}

bool Bounder::OnlyInner() const
{
    return std::all_of(m_loops.begin(), m_loops.end(),
                       [](const LoopShape& loop) { return loop.type == GK_BrepLoop::inner; });
}

std::vector<DomainLoop> Bounder::Cut() const
{
    std::vector<DomainLoop> loops;
    loops.reserve(m_loops.size());
    for (const LoopShape& loop : m_loops)
        loops.push_back({CutAtSeams(loop.pieces, loop.samples, m_plane), loop.number, loop.type});
    return loops;
}

void Bounder::DropEmptyInner(std::vector<DomainLoop>& loops)
{
    std::erase_if(loops, [&](const DomainLoop& loop) {
        const bool drop = loop.type == GK_BrepLoop::inner && loop.pieces.empty();
        if (drop)
            m_report.Drop(loop.type, loop.number, "runs along seams and poles alone");
        return drop;
    });
}

// Drops inner loops that cross a seam and another loop; without the other, one would become part of
// an outer loop.
void Bounder::DropCrossingAtSeams(std::vector<DomainLoop>& loops)
{
    constexpr double Near = 3e-6;
    const auto isMerged = [&](const DomainLoop& loop) {
        return loop.type == GK_BrepLoop::inner &&
               FirstAfterBreak(loop.pieces, m_plane) < loop.pieces.size();
    };
    if (std::none_of(loops.begin(), loops.end(), isMerged))
        return;
    std::vector<LoopPolygon> polygons;
    polygons.reserve(loops.size());
    for (const DomainLoop& loop : loops)
        polygons.push_back(PolygonOf(loop, m_plane));
    for (std::size_t i = loops.size(); i-- > 0;) {
        const bool crosses = isMerged(loops[i]) &&
                             std::any_of(polygons.begin(), polygons.end(), [&](const auto& other) {
                                 return &other != &polygons[i] && other.Crosses(polygons[i], Near);
                             });
        if (!crosses)
            continue;
        m_report.Drop(loops[i].type, loops[i].number, "crosses another loop");
        polygons.erase(polygons.begin() + static_cast<std::ptrdiff_t>(i));
        loops.erase(loops.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

// Walks along the boundary, dropping one by one, as long as they are few, inner loops that are not
// possible.
bool Bounder::Walk(std::vector<DomainLoop> loops, std::vector<WalkedLoop>& walked)
{
    constexpr int MostDropped = 100;
    for (int dropped = 0; dropped <= MostDropped; ++dropped) {
        BoundaryWalk walk = WalkBoundary(loops, m_plane, m_natural);
        if (walk.badLoop == 0) {
            walked = std::move(walk.loops);
            return true;
        }
        const auto bad = std::find_if(loops.begin(), loops.end(), [&](const DomainLoop& loop) {
            return loop.number == walk.badLoop;
        });
        if (!Reject(bad->type, bad->number, walk.reason))
            return false;
        loops.erase(bad);
    }
    m_report.reason = "more than 100 inner loops bound nothing at its seams";
    return false;
}

} // namespace

BoundedFaces BoundFace(const GK_Brep& brep, const GK_BrepFace& face, const ParameterPlane& plane,
                       BrepRepairReport& report)
{
    return Bounder(brep, face, plane, report).Run();
}
