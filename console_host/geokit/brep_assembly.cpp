#include "console_host/geokit/brep_assembly.h"

#include "console_host/geokit/compact_curves.h"
#include "console_host/geokit/knots.h"

#include <algorithm>
#include <map>

namespace {

// Where trims along a seam begin and end on either of its sides, so that both have the same edges.
class SeamBreaks
{
public:
    SeamBreaks(const BoundedFaces& bounded, const ParameterPlane& plane);

    // Returns the parts of a part of a side between breaks, in its direction.
    [[nodiscard]] std::vector<SidePart> Split(const SidePart& part) const;

private:
    [[nodiscard]] double Snapped(std::size_t direction, double value) const;

    SeamPlaces m_breaks;
};

SeamBreaks::SeamBreaks(const BoundedFaces& bounded, const ParameterPlane& plane)
    : m_breaks(bounded.seamBreaks)
{
    for (const FaceBounds& face : bounded.faces)
        for (const FaceBounds::Loop& loop : face.loops)
            for (const LoopStep& step : loop.steps)
                if (const auto* part = std::get_if<SidePart>(&step)) {
                    m_breaks[Across(part->side)].push_back(part->from);
                    m_breaks[Across(part->side)].push_back(part->to);
                }
    for (const std::size_t d : {0U, 1U}) {
        std::vector<double>& breaks = m_breaks[d];
        std::sort(breaks.begin(), breaks.end());
        const double slack = plane.Slack(1 - d);
        const auto isSame = [&](double a, double b) { return b - a <= slack; };
        breaks.erase(std::unique(breaks.begin(), breaks.end(), isSame), breaks.end());
    }
}

double SeamBreaks::Snapped(std::size_t direction, double value) const
{
    const std::vector<double>& breaks = m_breaks[direction];
    const auto after = std::upper_bound(breaks.begin(), breaks.end(), value);
    return after == breaks.begin() ? value : *std::prev(after);
}

std::vector<SidePart> SeamBreaks::Split(const SidePart& part) const
{
    const std::size_t d = Across(part.side);
    const double from = Snapped(d, part.from);
    const double to = Snapped(d, part.to);
    const auto first = std::lower_bound(m_breaks[d].begin(), m_breaks[d].end(), std::min(from, to));
    const auto last = std::upper_bound(first, m_breaks[d].end(), std::max(from, to));
    std::vector<double> values(first, last);
    if (from > to)
        std::reverse(values.begin(), values.end());
    std::vector<SidePart> parts;
    for (std::size_t i = 0; i + 1 < values.size(); ++i)
        parts.push_back({part.side, values[i], values[i + 1]});
    return parts;
}

// Makes the trims of a group of faces on one surface.
class TrimMaker
{
public:
    TrimMaker(GK_Brep& brep, int surface, const ParameterPlane& plane, const BoundedFaces& bounded,
              std::map<int, int>& edges)
        : m_brep(brep), m_surface(surface), m_plane(plane), m_breaks(bounded, plane), m_edges(edges)
    {
    }

    void Add(const LoopPiece& piece, int loop);
    void Add(const SidePart& part, int loop);

private:
    int EdgeOf(const LoopPiece& piece);
    int EdgeOf(const SidePart& part);
    int NewEdge(int curve, const GK_Interval& part);
    void AddAlongSide(const SidePart& part, int loop);
    int CurveAlong(Side side);

    GK_Brep& m_brep;
    int m_surface;
    const ParameterPlane& m_plane;
    SeamBreaks m_breaks;
    std::map<int, int>& m_edges;                               // old index to new index
    std::map<std::pair<std::size_t, double>, int> m_seams;     // direction across and lower end
    std::array<int, AllSides.size()> m_curves{-1, -1, -1, -1}; // along the sides
};

int TrimMaker::NewEdge(int curve, const GK_Interval& part)
{
    const GK_Curve& along = *m_brep.EdgeCurve(curve);
    const int start = m_brep.NewVertex(along.PointAt(part[0]), 0.0).vertexIndex;
    const int end = m_brep.NewVertex(along.PointAt(part[1]), 0.0).vertexIndex;
    return m_brep.NewEdge(m_brep.Vertex(start), m_brep.Vertex(end), curve, &part, 0.0).edgeIndex;
}

int TrimMaker::EdgeOf(const LoopPiece& piece)
{
    if (const auto known = m_edges.find(piece.edge); piece.edge >= 0 && known != m_edges.end())
        return known->second;
    const int curve = m_brep.AddEdgeCurve(piece.edgeCurve->Duplicate());
    const int edge = NewEdge(curve, piece.edgePart);
    if (piece.edge >= 0)
        m_edges.emplace(piece.edge, edge);
    return edge;
}

// Returns the curve as a line where it is one, which takes less room.
std::unique_ptr<GK_Curve> Compact(std::unique_ptr<GK_NurbsCurve> curve)
{
    if (curve->rational || curve->order != 2 || curve->controlPointCount != 2)
        return curve;
    return std::make_unique<LineCurve>(curve->ControlPoint(0), curve->ControlPoint(1),
                                       curve->Domain());
}

// Returns the curve in the place and direction in which the trim runs along it.
std::unique_ptr<GK_Curve> CurveOf(const LoopPiece& piece, GK_Interval& part)
{
    auto curve = std::make_unique<GK_NurbsCurve>(*piece.curve);
    if (piece.shift != Uv{})
        for (int i = 0; i < curve->controlPointCount; ++i) {
            const GK_3dPoint place = curve->ControlPoint(i);
            const double values[] = {place.x + piece.shift[0], place.y + piece.shift[1],
                                     curve->Weight(i)};
            curve->SetCV(i, GK::euclidean_rational, values);
        }
    part = piece.part;
    if (!piece.backwards)
        return Compact(std::move(curve));
    const GK_Interval whole = curve->Domain();
    curve->Reverse();
    part = {MirrorParameter(whole, part[1]), MirrorParameter(whole, part[0])};
    return Compact(std::move(curve));
}

void TrimMaker::Add(const LoopPiece& piece, int loop)
{
    GK_Interval part;
    const int curve = m_brep.AddTrimCurve(CurveOf(piece, part));
    if (piece.edgeCurve == nullptr) {
        const GK_BrepVertex& vertex = m_brep.NewVertex(m_plane.PointAt(piece.Start()), 0.0);
        m_brep.NewSingularTrim(vertex, m_brep.Loop(loop), curve).SetDomain(part);
        return;
    }
    const bool reversed = piece.backwards != piece.edgeTurned;
    GK_BrepEdge& edge = m_brep.Edge(EdgeOf(piece));
    m_brep.NewTrim(edge, reversed ? 1 : 0, m_brep.Loop(loop), curve).SetDomain(part);
}

void TrimMaker::Add(const SidePart& part, int loop)
{
    for (const SidePart& between : m_breaks.Split(part))
        AddAlongSide(between, loop);
}

int TrimMaker::CurveAlong(Side side)
{
    // Both sides of a seam have the curve of the lower one.
    const Side source = m_plane.IsSeam(side) && IsHigh(side) ? Opposite(side) : side;
    int& curve = m_curves[static_cast<std::size_t>(source)];
    if (curve < 0)
        curve = m_brep.AddIsoCurve(m_surface, static_cast<int>(1 - Across(source)),
                                   m_plane.Value(source));
    return curve;
}

int TrimMaker::EdgeOf(const SidePart& part)
{
    const GK_Interval along(std::min(part.from, part.to), std::max(part.from, part.to));
    if (!m_plane.IsSeam(part.side))
        return NewEdge(CurveAlong(part.side), along);
    const auto [known, isNew] = m_seams.try_emplace({Across(part.side), along[0]}, -1);
    if (isNew)
        known->second = NewEdge(CurveAlong(part.side), along);
    return known->second;
}

void TrimMaker::AddAlongSide(const SidePart& part, int loop)
{
    GK_3dPoint ends[2];
    for (const int end : {0, 1}) {
        Uv place{};
        place[Across(part.side)] = m_plane.Value(part.side);
        place[1 - Across(part.side)] = end == 0 ? part.from : part.to;
        ends[end] = {place[0], place[1], 0.0};
    }
    const GK_Interval domain(std::min(part.from, part.to), std::max(part.from, part.to));
    const int curve = m_brep.AddTrimCurve(std::make_unique<LineCurve>(ends[0], ends[1], domain));
    if (m_plane.IsPole(part.side)) {
        const GK_BrepVertex& vertex =
            m_brep.NewVertex(m_plane.PointAt({ends[0].x, ends[0].y}), 0.0);
        m_brep.NewSingularTrim(vertex, m_brep.Loop(loop), curve);
        return;
    }
    const bool reversed = part.from > part.to;
    m_brep.NewTrim(m_brep.Edge(EdgeOf(part)), reversed ? 1 : 0, m_brep.Loop(loop), curve);
}

} // namespace

BrepAssembly::BrepAssembly(GK_Brep& brep) : m_brep(brep)
{
    brep.RemoveFaces();
}

void BrepAssembly::Add(int surfaceIndex, const ParameterPlane& plane, const BoundedFaces& bounded)
{
    TrimMaker trims(m_brep, surfaceIndex, plane, bounded, m_edges);
    for (const FaceBounds& bounds : bounded.faces) {
        const int face = m_brep.NewFace(surfaceIndex).faceIndex;
        for (const FaceBounds::Loop& given : bounds.loops) {
            const int loop = m_brep.NewLoop(given.type, m_brep.Face(face)).loopIndex;
            for (const LoopStep& step : given.steps)
                std::visit([&](const auto& part) { trims.Add(part, loop); }, step);
        }
    }
}
