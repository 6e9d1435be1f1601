#include "console_host/geokit/face_holes.h"

#include <algorithm>

namespace {

using Relation = LoopPolygon::Relation;

void AppendPiece(const LoopPiece& piece, const ParameterPlane& plane, double sagitta, bool joined,
                 LoopPolygon& polygon)
{
    ForEachPlace(SamplesOf(piece, plane, sagitta), piece.backwards, [&](const Uv& place) {
        polygon.Append(plane.Normalized(place), std::exchange(joined, true));
    });
}

void AppendSide(const SidePart& part, const ParameterPlane& plane, LoopPolygon& polygon)
{
    Uv place{};
    place[Across(part.side)] = plane.Value(part.side);
    for (const double value : {part.from, part.to}) {
        place[1 - Across(part.side)] = value;
        polygon.Append(plane.Normalized(place), true);
    }
}

double ExtentOfPieces(const std::vector<LoopStep>& steps, const ParameterPlane& plane)
{
    double extent = 0.0;
    for (const LoopStep& step : steps)
        if (const auto* piece = std::get_if<LoopPiece>(&step))
            extent = std::max(extent, ExtentOf({*piece}, plane));
    return extent;
}

// A loop of the face with what its place depends on.
struct Candidate
{
    WalkedLoop loop;
    LoopPolygon polygon;
    double near = 0.0; // how far the polygon may stray
};

// Returns the polygon of a loop that the walk made.
LoopPolygon PolygonOf(const WalkedLoop& loop, const ParameterPlane& plane, double sagitta)
{
    LoopPolygon polygon;
    for (const LoopStep& step : loop.steps) {
        if (const auto* piece = std::get_if<LoopPiece>(&step))
            AppendPiece(*piece, plane, sagitta, true, polygon);
        else
            AppendSide(std::get<SidePart>(step), plane, polygon);
    }
    polygon.Close();
    return polygon;
}

LoopShape& ShapeOf(const WalkedLoop& loop, std::vector<LoopShape>& shapes)
{
    return *std::lower_bound(
        shapes.begin(), shapes.end(), loop.number,
        [](const LoopShape& shape, int number) { return shape.number < number; });
}

Candidate CandidateOf(WalkedLoop loop, std::vector<LoopShape>& shapes, const ParameterPlane& plane)
{
    constexpr double RoundingOfFiles = 1.5e-6;
    Candidate candidate;
    if (loop.type == GK_BrepLoop::unknown || loop.number == 0) {
        const double sagitta = SagittaOf(GK_BrepLoop::outer) * ExtentOfPieces(loop.steps, plane);
        candidate.polygon = PolygonOf(loop, plane, sagitta);
        candidate.near = sagitta;
        loop.type = candidate.polygon.SignedArea() < 0.0 ? GK_BrepLoop::inner : GK_BrepLoop::outer;
    } else {
        LoopShape& shape = ShapeOf(loop, shapes);
        candidate.polygon = std::move(shape.polygon);
        candidate.polygon.Move(plane.Normalized(loop.periods) - plane.Normalized({}));
        candidate.near = shape.sagitta;
    }
    candidate.near = std::max(candidate.near, RoundingOfFiles);
    candidate.loop = std::move(loop);
    return candidate;
}

class Placement
{
public:
    Placement(std::vector<WalkedLoop> loops, std::vector<LoopShape>& shapes,
              const ParameterPlane& plane, BrepRepairReport& report)
        : m_report(report)
    {
        for (WalkedLoop& loop : loops)
            Add(CandidateOf(std::move(loop), shapes, plane));
    }

    std::vector<FaceBounds> Run();

private:
    void Add(Candidate candidate);
    void DropOverlapping();
    std::size_t OuterOf(const Candidate& inner);
    void Drop(const Candidate& inner, const char* reason)
    {
        m_report.Drop(inner.loop.type, inner.loop.number, reason);
    }

    BrepRepairReport& m_report;
    std::vector<Candidate> m_outer;
    std::vector<Candidate> m_inner;
};

void Placement::Add(Candidate candidate)
{
    constexpr double Flat = 1e-9;
    const double extent = candidate.polygon.Box().Extent();
    if (candidate.polygon.Area() <= Flat * extent * extent)
        Drop(candidate, "encloses no area");
    else if (candidate.loop.type == GK_BrepLoop::inner)
        m_inner.push_back(std::move(candidate));
    else
        m_outer.push_back(std::move(candidate));
}

// Returns how an inner loop lies to an outer one. A loop far smaller than the error of the polygons
// is compared with them as they are.
Relation RelationTo(const Candidate& outer, const Candidate& inner)
{
    const Relation relation = outer.polygon.RelationOf(inner.polygon, outer.near + inner.near);
    return relation == Relation::OnBoundary ? outer.polygon.RelationOf(inner.polygon, 0.0)
                                            : relation;
}

// Returns the smallest outer loop that holds an inner one; none: their number.
std::size_t Placement::OuterOf(const Candidate& inner)
{
    std::size_t best = m_outer.size();
    for (std::size_t i = 0; i < m_outer.size(); ++i) {
        const Relation relation = RelationTo(m_outer[i], inner);
        if (relation == Relation::Crossing) {
            Drop(inner, "crosses an outer loop");
            return m_outer.size();
        }
        if (relation == Relation::Inside &&
            (best == m_outer.size() || m_outer[i].polygon.Area() < m_outer[best].polygon.Area()))
            best = i;
    }
    if (best == m_outer.size())
        Drop(inner, "lies in no outer loop");
    return best;
}

// Returns how two inner loops lie to each other: small ones may lie closer than the error of
// others.
Relation RelationBetween(const Candidate& a, const Candidate& b)
{
    constexpr double ShareOfExtent = 0.01;
    const double near =
        std::min(a.near + b.near,
                 ShareOfExtent * std::min(a.polygon.Box().Extent(), b.polygon.Box().Extent()));
    return a.polygon.RelationOf(b.polygon, near);
}

// Drops the later of two inner loops that cross, and the smaller of two that lie in each other.
void Placement::DropOverlapping()
{
    std::vector<std::size_t> order(m_inner.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return m_inner[a].polygon.Box().low[0] < m_inner[b].polygon.Box().low[0];
    });
    std::vector<char> dropped(m_inner.size(), 0);
    const auto drop = [&](std::size_t i, const char* reason) {
        dropped[i] = 1;
        Drop(m_inner[i], reason);
    };
    std::vector<std::size_t> open; // those that still reach to where the sweep is
    for (const std::size_t i : order) {
        std::erase_if(open, [&](std::size_t k) {
            return dropped[k] != 0 ||
                   m_inner[k].polygon.Box().high[0] < m_inner[i].polygon.Box().low[0];
        });
        for (const std::size_t k : open) {
            const Relation relation = RelationBetween(m_inner[k], m_inner[i]);
            if (relation == Relation::Crossing)
                drop(std::max(i, k), "crosses another inner loop");
            else if (relation == Relation::Inside || relation == Relation::OnBoundary)
                drop(i, "lies within another inner loop");
            else if (relation == Relation::Around)
                drop(k, "lies within another inner loop");
            if (dropped[i] != 0)
                break;
        }
        if (dropped[i] == 0)
            open.push_back(i);
    }
    std::size_t at = 0;
    std::erase_if(m_inner, [&](const Candidate&) { return dropped[at++] != 0; });
}

std::vector<FaceBounds> Placement::Run()
{
    std::vector<FaceBounds> faces(m_outer.size());
    std::vector<std::vector<Candidate>> holes(m_outer.size());
    for (Candidate& inner : m_inner)
        if (const std::size_t outer = OuterOf(inner); outer < m_outer.size())
            holes[outer].push_back(std::move(inner));
    for (std::size_t i = 0; i < m_outer.size(); ++i) {
        m_inner = std::move(holes[i]);
        DropOverlapping();
        faces[i].loops.push_back({GK_BrepLoop::outer, std::move(m_outer[i].loop.steps)});
        for (Candidate& inner : m_inner)
            faces[i].loops.push_back({GK_BrepLoop::inner, std::move(inner.loop.steps)});
    }
    return faces;
}

} // namespace

LoopPolygon PolygonOf(const DomainLoop& loop, const ParameterPlane& plane)
{
    constexpr double Sagitta = 1e-5;
    LoopPolygon polygon;
    for (std::size_t i = 0; i < loop.pieces.size(); ++i) {
        const bool joined = i > 0 && !IsBreak(loop.pieces[i - 1], loop.pieces[i], plane);
        AppendPiece(loop.pieces[i].piece, plane, Sagitta, joined, polygon);
    }
    return polygon;
}

std::vector<FaceBounds> PlaceHoles(std::vector<WalkedLoop> loops, std::vector<LoopShape>& shapes,
                                   const ParameterPlane& plane, BrepRepairReport& report)
{
    return Placement(std::move(loops), shapes, plane, report).Run();
}
