#include "console_host/geokit/brep_assembly.h"
#include "console_host/geokit/point_box.h"

#include "host/geokit/nurbs_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <compare>
#include <limits>
#include <map>
#include <numeric>

namespace {

// Points by the cell of a grid, to find those within a cell's width of a place. The cells are kept
// in their order: a file could choose places whose cells collide in a hash.
class PointGrid
{
public:
    explicit PointGrid(double width) : m_width(width) {}

    void Add(const GK_3dPoint& point, int number)
    {
        m_cells.emplace(Cell(point), Entry{point, number});
    }

    // Returns the number of a point within the width, or -1.
    [[nodiscard]] int Find(const GK_3dPoint& point) const
    {
        const GK_3dPoint center = Cell(point);
        for (const double column : {-1.0, 0.0, 1.0})
            for (const double row : {-1.0, 0.0, 1.0}) {
                const auto first = m_cells.lower_bound(center + GK_3dVector{column, row, -1.0});
                const auto last = m_cells.upper_bound(center + GK_3dVector{column, row, 1.0});
                for (auto entry = first; entry != last; ++entry)
                    if (entry->second.point.DistanceTo(point) <= m_width)
                        return entry->second.number;
            }
        return -1;
    }

private:
    struct Entry
    {
        GK_3dPoint point;
        int number;
    };

    // An order of all cells, those that are not numbers included.
    struct ByCoordinates
    {
        bool operator()(const GK_3dPoint& a, const GK_3dPoint& b) const
        {
            if (const auto order = std::strong_order(a.x, b.x); order != 0)
                return order < 0;
            if (const auto order = std::strong_order(a.y, b.y); order != 0)
                return order < 0;
            return std::strong_order(a.z, b.z) < 0;
        }
    };

    [[nodiscard]] GK_3dPoint Cell(const GK_3dPoint& point) const
    {
        const auto cell = [&](double value) { return std::floor(value / m_width) + 0.0; }; // no -0
        return {cell(point.x), cell(point.y), cell(point.z)};
    }

    double m_width;
    std::multimap<GK_3dPoint, Entry, ByCoordinates> m_cells;
};

// Returns where a trim starts and ends in space.
std::array<GK_3dPoint, 2> EndsOf(const GK_Brep& brep, const GK_BrepTrim& trim)
{
    if (trim.edgeIndex < 0) {
        const GK_BrepFace& face = brep.Face(brep.Loop(trim.loopIndex).faceIndex);
        const GK_Surface& surface = *brep.Surface(face.surfaceIndex);
        const GK_3dPoint start = trim.PointAtStart();
        const GK_3dPoint end = trim.PointAtEnd();
        return {surface.PointAt(start.x, start.y), surface.PointAt(end.x, end.y)};
    }
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    if (trim.reversed)
        return {edge.PointAtEnd(), edge.PointAtStart()};
    return {edge.PointAtStart(), edge.PointAtEnd()};
}

// Returns the largest distance of an edge from its start.
double Reach(const GK_BrepEdge& edge)
{
    const GK_3dPoint start = edge.PointAtStart();
    double reach = 0.0;
    for (const double fraction : {0.25, 0.5, 0.75, 1.0})
        reach =
            std::max(reach, start.DistanceTo(edge.PointAt(edge.Domain().ParameterAt(fraction))));
    return reach;
}

// An edge that stays within this share of the longest one's reach is a point.
constexpr double RelativeSizeOfPoint = 1e-9;

class Joiner
{
public:
    explicit Joiner(GK_Brep& brep) : m_brep(brep), m_leader(Size(brep.VertexCount()))
    {
        std::iota(m_leader.begin(), m_leader.end(), 0);
        for (int i = 0; i < brep.EdgeCount(); ++i)
            m_longestReach = std::max(m_longestReach, Reach(brep.Edge(i)));
    }

    void JoinAlongLoops();
    void JoinNearby(double near);
    void MoveVertices();
    void DropCollapsedEdges();

private:
    static std::size_t Size(int count) { return static_cast<std::size_t>(count); }

    int Leader(int vertex);
    void Join(int a, int b);
    std::vector<PointBox> Gather();
    [[nodiscard]] bool IsCollapsed(const GK_BrepEdge& edge) const;

    GK_Brep& m_brep;
    std::vector<int> m_leader; // union-find, lowest index leads
    double m_longestReach = 0.0;
};

int Joiner::Leader(int vertex)
{
    while (m_leader[Size(vertex)] != vertex) {
        int& leader = m_leader[Size(vertex)];
        leader = m_leader[Size(leader)];
        vertex = leader;
    }
    return vertex;
}

void Joiner::Join(int a, int b)
{
    const int leaderA = Leader(a);
    const int leaderB = Leader(b);
    m_leader[Size(std::max(leaderA, leaderB))] = std::min(leaderA, leaderB);
}

void Joiner::JoinAlongLoops()
{
    for (int i = 0; i < m_brep.LoopCount(); ++i) {
        const GK_SimpleArray<int>& trims = m_brep.Loop(i).trimIndices;
        for (int k = 0; k < trims.Count(); ++k) {
            const GK_BrepTrim& trim = m_brep.Trim(trims[k]);
            const GK_BrepTrim& next = m_brep.Trim(trims[(k + 1) % trims.Count()]);
            Join(trim.vertexIndex[1], next.vertexIndex[0]);
        }
    }
}

// Returns for each leader the box around the trim ends there.
std::vector<PointBox> Joiner::Gather()
{
    std::vector<PointBox> boxes(m_leader.size());
    for (int i = 0; i < m_brep.TrimCount(); ++i) {
        const GK_BrepTrim& trim = m_brep.Trim(i);
        const std::array<GK_3dPoint, 2> ends = EndsOf(m_brep, trim);
        for (const std::size_t end : {0U, 1U})
            boxes[Size(Leader(trim.vertexIndex[end]))].Add(ends[end]);
    }
    return boxes;
}

void Joiner::JoinNearby(double near)
{
    constexpr double ShareOfEdge = 0.25;
    const double collapsed = RelativeSizeOfPoint * m_longestReach;
    for (int i = 0; i < m_brep.EdgeCount(); ++i)
        if (const double reach = Reach(m_brep.Edge(i)); reach > collapsed)
            near = std::min(near, ShareOfEdge * reach);
    if (!(near > 0.0))
        return;
    PointGrid grid(near);
    const std::vector<PointBox> boxes = Gather();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].IsEmpty())
            continue;
        const GK_3dPoint place = boxes[i].Middle();
        const int vertex = static_cast<int>(i);
        if (const int known = grid.Find(place); known >= 0)
            Join(known, vertex);
        else
            grid.Add(place, vertex);
    }
}

void Joiner::MoveVertices()
{
    const std::vector<PointBox> boxes = Gather();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxes[i].IsEmpty())
            continue;
        GK_BrepVertex& vertex = m_brep.Vertex(static_cast<int>(i));
        vertex.point = boxes[i].Middle();
        vertex.tolerance = vertex.point.DistanceTo(boxes[i].low);
    }
    for (int i = 0; i < m_brep.TrimCount(); ++i)
        for (int& vertex : m_brep.Trim(i).vertexIndex)
            vertex = Leader(vertex);
    for (int i = 0; i < m_brep.EdgeCount(); ++i)
        for (int& vertex : m_brep.Edge(i).vertexIndex)
            vertex = Leader(vertex);
}

bool Joiner::IsCollapsed(const GK_BrepEdge& edge) const
{
    if (edge.vertexIndex[0] != edge.vertexIndex[1])
        return false;
    const GK_NurbsCurve curve = edge.AsBspline();
    const GK_3dPoint start = edge.PointAtStart();
    for (int i = 0; i < curve.controlPointCount; ++i)
        if (start.DistanceTo(curve.ControlPoint(i)) > RelativeSizeOfPoint * m_longestReach)
            return false;
    return true;
}

void Joiner::DropCollapsedEdges()
{
    for (int i = 0; i < m_brep.TrimCount(); ++i) {
        GK_BrepTrim& trim = m_brep.Trim(i);
        if (trim.edgeIndex < 0 || !IsCollapsed(m_brep.Edge(trim.edgeIndex)))
            continue;
        trim.edgeIndex = -1;
        trim.reversed = false;
    }
}

} // namespace

void JoinTrimEnds(GK_Brep& brep, double near)
{
    Joiner joiner(brep);
    joiner.JoinAlongLoops();
    joiner.JoinNearby(near);
    joiner.MoveVertices();
    joiner.DropCollapsedEdges();
}
