#include "console_host/geokit/loop_polygon.h"

#include <algorithm>

namespace {

// Returns twice the area of a triangle, positive when counter-clockwise.
double Turn(const Uv& a, const Uv& b, const Uv& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

double SquareOfDistance(const Uv& place, const Uv& from, const Uv& to)
{
    const Uv along = to - from;
    const double length = along[0] * along[0] + along[1] * along[1];
    const Uv way = place - from;
    const double share =
        length > 0.0 ? std::clamp((way[0] * along[0] + way[1] * along[1]) / length, 0.0, 1.0) : 0.0;
    const Uv apart{way[0] - share * along[0], way[1] - share * along[1]};
    return apart[0] * apart[0] + apart[1] * apart[1];
}

// Returns whether the two places lie on both sides of the line through `from` and `to`, farther off
// than `near`.
bool AreSplit(const Uv& from, const Uv& to, const Uv& first, const Uv& second, double near)
{
    const double least = near * std::hypot(to[0] - from[0], to[1] - from[1]);
    const double a = Turn(from, to, first);
    const double b = Turn(from, to, second);
    return (a > least && b < -least) || (a < -least && b > least);
}

} // namespace

void LoopPolygon::Append(const Uv& corner, bool joined)
{
    const bool isFirst = m_box.low[0] > m_box.high[0];
    if (joined && !isFirst) {
        m_lines.push_back({m_last, corner});
        // About the first corner, so that small loops far from the origin keep their digits.
        m_area += 0.5 * Turn(m_first, m_last, corner);
    }
    if (isFirst)
        m_first = corner;
    m_box.Add(corner);
    m_last = corner;
}

void LoopPolygon::Close()
{
    if (m_last != m_first)
        Append(Uv(m_first), true);
}

void LoopPolygon::Move(const Uv& way)
{
    for (Line& line : m_lines) {
        line.from = line.from + way;
        line.to = line.to + way;
    }
    for (Uv* place : {&m_first, &m_last, &m_box.low, &m_box.high})
        *place = *place + way;
}

std::size_t LoopPolygon::RowOf(double v) const
{
    const auto rows = static_cast<double>(m_rowStarts.size() - 1);
    const double height = m_box.high[1] - m_box.low[1];
    const double row = height > 0.0 ? (v - m_box.low[1]) / height * rows : 0.0;
    return static_cast<std::size_t>(std::clamp(row, 0.0, rows - 1.0));
}

void LoopPolygon::FillRows() const
{
    if (!m_rowStarts.empty())
        return;
    // So many that a line is in two on average: polygons with tall lines have few rows.
    constexpr double MostRows = 4096.0;
    double heights = 0.0;
    for (const auto& [from, to] : m_lines)
        heights += std::abs(to[1] - from[1]);
    const double share = heights > 0.0 ? (m_box.high[1] - m_box.low[1]) / heights : 1.0;
    const double rows = std::clamp(static_cast<double>(m_lines.size()) * share, 1.0, MostRows);
    m_rowStarts.assign(static_cast<std::size_t>(rows) + 1, 0);
    const auto forEachRow = [&](const auto& visit) {
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            const auto& [from, to] = m_lines[i];
            const std::size_t last = RowOf(std::max(from[1], to[1]));
            for (std::size_t row = RowOf(std::min(from[1], to[1])); row <= last; ++row)
                visit(row, i);
        }
    };
    forEachRow([&](std::size_t row, std::size_t) { ++m_rowStarts[row + 1]; });
    for (std::size_t row = 1; row < m_rowStarts.size(); ++row)
        m_rowStarts[row] += m_rowStarts[row - 1];
    m_rowLines.resize(m_rowStarts.back());
    std::vector<std::size_t> next(m_rowStarts.begin(), m_rowStarts.end() - 1);
    forEachRow([&](std::size_t row, std::size_t i) { m_rowLines[next[row]++] = i; });
}

template <class IsMeant>
bool LoopPolygon::AnyLine(double fromV, double toV, const IsMeant& isMeant) const
{
    const std::size_t last = RowOf(toV);
    for (std::size_t row = RowOf(fromV); row <= last; ++row)
        for (std::size_t k = m_rowStarts[row]; k < m_rowStarts[row + 1]; ++k)
            if (isMeant(m_lines[m_rowLines[k]], row))
                return true;
    return false;
}

LoopPolygon::Place LoopPolygon::PlaceOf(const Uv& place, double near) const
{
    for (const std::size_t d : {0U, 1U})
        if (place[d] < m_box.low[d] - near || place[d] > m_box.high[d] + near)
            return {false, false};
    Place result{false, false};
    const std::size_t own = RowOf(place[1]);
    result.onLine =
        AnyLine(place[1] - near, place[1] + near, [&](const Line& line, std::size_t row) {
            const auto& [from, to] = line;
            if (row == own && (from[1] > place[1]) != (to[1] > place[1]) &&
                (Turn(from, to, place) > 0.0) == (to[1] > from[1]))
                result.inside = !result.inside;
            return SquareOfDistance(place, from, to) <= near * near;
        });
    return result;
}

bool LoopPolygon::Crosses(const Line& line, double near) const
{
    const auto& [from, to] = line;
    for (const std::size_t d : {0U, 1U})
        if (std::max(from[d], to[d]) < m_box.low[d] || std::min(from[d], to[d]) > m_box.high[d])
            return false;
    const auto crosses = [&](const Line& other, std::size_t) {
        return AreSplit(line.from, line.to, other.from, other.to, near) &&
               AreSplit(other.from, other.to, line.from, line.to, near);
    };
    return AnyLine(std::min(from[1], to[1]), std::max(from[1], to[1]), crosses);
}

bool LoopPolygon::Crosses(const LoopPolygon& other, double near) const
{
    if (!m_box.Overlaps(other.m_box))
        return false;
    FillRows();
    return std::any_of(other.m_lines.begin(), other.m_lines.end(),
                       [&](const Line& line) { return Crosses(line, near); });
}

// Returns whether a line may reach into a box.
bool LoopPolygon::HasLineNear(const UvBox& box) const
{
    return AnyLine(box.low[1], box.high[1], [&](const Line& line, std::size_t) {
        UvBox around;
        around.Add(line.from);
        around.Add(line.to);
        return around.Overlaps(box);
    });
}

LoopPolygon::Relation LoopPolygon::RelationOf(const LoopPolygon& other, double near) const
{
    if (!m_box.Overlaps(other.m_box))
        return Relation::Outside;
    FillRows();
    const Uv margin{near, near};
    if (!HasLineNear({other.m_box.low - margin, other.m_box.high + margin}))
        return PlaceOf(other.m_first, 0.0).inside ? Relation::Inside : Relation::Outside;
    if (Crosses(other, near))
        return Relation::Crossing;
    other.FillRows();
    bool inside = false;
    bool outside = false;
    for (const Line& line : other.m_lines) {
        const Place place = PlaceOf(line.from, near);
        inside = inside || (place.inside && !place.onLine);
        outside = outside || (!place.inside && !place.onLine);
    }
    const bool around = std::any_of(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        const Place place = other.PlaceOf(line.from, near);
        return place.inside && !place.onLine;
    });
    if (inside && (outside || around))
        return Relation::Crossing;
    if (inside)
        return Relation::Inside;
    if (around)
        return Relation::Around;
    return outside ? Relation::Outside : Relation::OnBoundary;
}
