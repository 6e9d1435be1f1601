#include "console_host/geokit/loop_polygon.h"

namespace {

// Twice the area of a triangle, positive when counter-clockwise.
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

// The two places lie on both sides of the line through `from` and `to`, farther off than `near`.
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
    if (joined && m_low[0] <= m_high[0]) {
        m_lines.push_back({m_last, corner});
        // About the first corner, so that small loops far from the origin keep their digits.
        m_area += 0.5 * Turn(m_first, m_last, corner);
    }
    if (m_low[0] > m_high[0])
        m_first = corner;
    for (const std::size_t d : {0U, 1U}) {
        m_low[d] = std::min(m_low[d], corner[d]);
        m_high[d] = std::max(m_high[d], corner[d]);
    }
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
    for (Uv* place : {&m_first, &m_last, &m_low, &m_high})
        *place = *place + way;
}

bool LoopPolygon::BoxesOverlap(const LoopPolygon& other) const
{
    return m_low[0] <= other.m_high[0] && other.m_low[0] <= m_high[0] &&
           m_low[1] <= other.m_high[1] && other.m_low[1] <= m_high[1];
}

std::size_t LoopPolygon::RowOf(double v) const
{
    const auto rows = static_cast<double>(m_rowStarts.size() - 1);
    const double height = m_high[1] - m_low[1];
    const double row = height > 0.0 ? (v - m_low[1]) / height * rows : 0.0;
    return static_cast<std::size_t>(std::clamp(row, 0.0, rows - 1.0));
}

void LoopPolygon::FillRows() const
{
    if (!m_rowStarts.empty())
        return;
    // As many as make a line stand in two on average: what has tall lines has few rows.
    constexpr double MostRows = 4096.0;
    double heights = 0.0;
    for (const auto& [from, to] : m_lines)
        heights += std::abs(to[1] - from[1]);
    const double share = heights > 0.0 ? (m_high[1] - m_low[1]) / heights : 1.0;
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

LoopPolygon::Place LoopPolygon::PlaceOf(const Uv& place, double near) const
{
    for (const std::size_t d : {0U, 1U})
        if (place[d] < m_low[d] - near || place[d] > m_high[d] + near)
            return {false, false};
    Place result{false, false};
    const std::size_t own = RowOf(place[1]);
    const std::size_t last = RowOf(place[1] + near);
    for (std::size_t row = RowOf(place[1] - near); row <= last && !result.onLine; ++row) {
        for (std::size_t k = m_rowStarts[row]; k < m_rowStarts[row + 1]; ++k) {
            const auto& [from, to] = m_lines[m_rowLines[k]];
            result.onLine = result.onLine || SquareOfDistance(place, from, to) <= near * near;
            if (row == own && (from[1] > place[1]) != (to[1] > place[1]) &&
                (Turn(from, to, place) > 0.0) == (to[1] > from[1]))
                result.inside = !result.inside;
        }
    }
    return result;
}

bool LoopPolygon::Crosses(const Line& line, double near) const
{
    const auto& [from, to] = line;
    for (const std::size_t d : {0U, 1U})
        if (std::max(from[d], to[d]) < m_low[d] || std::min(from[d], to[d]) > m_high[d])
            return false;
    const std::size_t last = RowOf(std::max(from[1], to[1]));
    for (std::size_t row = RowOf(std::min(from[1], to[1])); row <= last; ++row) {
        for (std::size_t k = m_rowStarts[row]; k < m_rowStarts[row + 1]; ++k) {
            const auto& [a, b] = m_lines[m_rowLines[k]];
            if (AreSplit(from, to, a, b, near) && AreSplit(a, b, from, to, near))
                return true;
        }
    }
    return false;
}

bool LoopPolygon::Crosses(const LoopPolygon& other, double near) const
{
    if (!BoxesOverlap(other))
        return false;
    FillRows();
    return std::any_of(other.m_lines.begin(), other.m_lines.end(),
                       [&](const Line& line) { return Crosses(line, near); });
}

// A line may reach into a box.
bool LoopPolygon::HasLineNear(const Uv& low, const Uv& high) const
{
    const std::size_t last = RowOf(high[1]);
    for (std::size_t row = RowOf(low[1]); row <= last; ++row) {
        for (std::size_t k = m_rowStarts[row]; k < m_rowStarts[row + 1]; ++k) {
            const auto& [from, to] = m_lines[m_rowLines[k]];
            if (std::max(from[0], to[0]) >= low[0] && std::min(from[0], to[0]) <= high[0] &&
                std::max(from[1], to[1]) >= low[1] && std::min(from[1], to[1]) <= high[1])
                return true;
        }
    }
    return false;
}

LoopPolygon::Relation LoopPolygon::RelationOf(const LoopPolygon& other, double near) const
{
    if (!BoxesOverlap(other))
        return Relation::Outside;
    FillRows();
    const Uv margin{near, near};
    if (!HasLineNear(other.m_low - margin, other.m_high + margin))
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
