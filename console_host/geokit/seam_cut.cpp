#include "console_host/geokit/seam_cut.h"

#include <algorithm>
#include <cmath>

namespace {

// Returns the parameter between t0 and t1 where the piece passes a value: by bisection, which needs
// only values on both sides.
double FindPassage(const LoopPiece& piece, std::size_t direction, double value, double t0,
                   double t1)
{
    const bool rising = piece.At(t0)[direction] < value;
    for (;;) {
        const double t = 0.5 * (t0 + t1);
        if (!(t0 < t && t < t1))
            return t;
        const double at = piece.At(t)[direction];
        if (at == value)
            return t;
        ((at < value) == rising ? t0 : t1) = t;
    }
}

// Cuts one piece along one direction: cells of a period each, between lines that are the seam, or
// a single cell whose sides may be poles.
class Cutter
{
public:
    Cutter(const LoopPiece& piece, const PieceSamples& samples, std::size_t direction,
           const ParameterPlane& plane)
        : m_piece(piece), m_samples(samples), m_direction(direction), m_plane(plane)
    {
    }

    // A stretch within a cell, or along the line below a cell.
    struct Stretch
    {
        double t0;
        double t1;
        long cell;
        bool onLine;
    };

    std::vector<Stretch> Run();

private:
    [[nodiscard]] std::optional<long> LineAt(double value) const;
    [[nodiscard]] std::optional<long> LineAlong(const PieceSamples::Span& span) const;
    [[nodiscard]] double ValueOf(long line) const
    {
        return m_plane.Low(m_direction) + static_cast<double>(line) * m_plane.Length(m_direction);
    }
    [[nodiscard]] long CellOf(double value) const;
    void AddOffLine(const PieceSamples::Span& span);
    void EnterCell(long cell, double t);
    void EndAt(double t, long cell, bool onLine);

    const LoopPiece& m_piece;
    const PieceSamples& m_samples;
    std::size_t m_direction;
    const ParameterPlane& m_plane;
    std::vector<Stretch> m_stretches;
    double m_start = 0.0;       // of the current stretch
    std::optional<long> m_cell; // of that stretch; not known while it is on a line
    double m_inCell = 0.0;      // the last parameter that is known to be within the cell
};

// Returns the line that a value lies on, if any.
std::optional<long> Cutter::LineAt(double value) const
{
    const bool closed = m_plane.IsClosed(m_direction);
    const double line =
        std::round((value - m_plane.Low(m_direction)) / m_plane.Length(m_direction));
    if (!closed && (!m_plane.IsPole(SideAt(m_direction, line > 0.5)) || line < -0.5 || line > 1.5))
        return std::nullopt;
    const auto number = static_cast<long>(line);
    if (std::abs(value - ValueOf(number)) > m_plane.Slack(m_direction))
        return std::nullopt;
    return number;
}

std::optional<long> Cutter::LineAlong(const PieceSamples::Span& span) const
{
    const auto line = LineAt(span.box.low[m_direction]);
    return line && line == LineAt(span.box.high[m_direction]) ? line : std::nullopt;
}

long Cutter::CellOf(double value) const
{
    if (!m_plane.IsClosed(m_direction))
        return 0;
    return static_cast<long>(
        std::floor((value - m_plane.Low(m_direction)) / m_plane.Length(m_direction)));
}

void Cutter::EndAt(double t, long cell, bool onLine)
{
    const bool goesOn = onLine && !m_stretches.empty() && m_stretches.back().onLine &&
                        m_stretches.back().cell == cell;
    if (goesOn)
        m_stretches.back().t1 = t;
    else if (t > m_start)
        m_stretches.push_back({m_start, t, cell, onLine});
    m_start = t;
}

std::vector<Cutter::Stretch> Cutter::Run()
{
    m_start = m_piece.part[0];
    for (const PieceSamples::Span& span : m_samples.spans) {
        const auto line = LineAlong(span);
        if (!line) {
            AddOffLine(span);
            continue;
        }
        if (m_cell)
            EndAt(m_samples.samples[span.first].t, *m_cell, false);
        m_cell.reset();
        EndAt(m_samples.samples[span.last].t, *line, true);
    }
    EndAt(m_piece.part[1], m_cell.value_or(0), false);
    return std::move(m_stretches);
}

void Cutter::AddOffLine(const PieceSamples::Span& span)
{
    for (std::size_t i = span.first; i <= span.last; ++i) {
        const auto& [t, place] = m_samples.samples[i];
        if (LineAt(place[m_direction]))
            continue;
        const long cell = CellOf(place[m_direction]);
        if (m_cell && cell != *m_cell)
            EnterCell(cell, t);
        m_cell = cell;
        m_inCell = t;
    }
    // A stretch that never leaves the line's surroundings, yet does not run along it.
    if (!m_cell)
        m_cell = CellOf(m_piece.At(0.5 * (m_start + m_samples.samples[span.last].t))[m_direction]);
}

// Cuts at each line between the current cell and another one, which is reached at `t`.
void Cutter::EnterCell(long cell, double t)
{
    const long step = cell > *m_cell ? 1 : -1;
    for (long at = *m_cell; at != cell; at += step) {
        const double line = ValueOf(step > 0 ? at + 1 : at);
        m_inCell = FindPassage(m_piece, m_direction, line, m_inCell, t);
        EndAt(m_inCell, at, false);
    }
}

// Returns the side to which a stretch along a line belongs.
Side SideOf(const LoopPiece& piece, std::size_t direction, long line, const ParameterPlane& plane)
{
    if (!plane.IsClosed(direction))
        return SideAt(direction, line != 0);
    const bool rising = piece.Start()[1 - direction] < piece.End()[1 - direction];
    return SideAt(direction, rising == (direction == 0));
}

// Returns the stretches of a piece in one direction, shifted into the domain.
std::vector<DomainPiece> CutIn(std::size_t direction, const DomainPiece& whole,
                               const PieceSamples& samples, const ParameterPlane& plane)
{
    std::vector<DomainPiece> cut;
    const auto stretches = Cutter(whole.piece, samples, direction, plane).Run();
    for (const Cutter::Stretch& stretch : stretches) {
        DomainPiece part = whole;
        if (stretches.size() > 1)
            part.piece = whole.piece.Between(stretch.t0, stretch.t1);
        long cells = stretch.cell;
        if (stretch.onLine && !part.side) {
            part.side = SideOf(part.piece, direction, stretch.cell, plane);
            if (plane.IsClosed(direction) && IsHigh(*part.side))
                --cells;
        }
        if (plane.IsClosed(direction)) {
            const double period = static_cast<double>(cells) * plane.Length(direction);
            part.piece.shift[direction] -= period;
            part.periods[direction] -= period;
        }
        cut.push_back(std::move(part));
    }
    if (whole.piece.backwards)
        std::reverse(cut.begin(), cut.end());
    return cut;
}

} // namespace

std::vector<DomainPiece> CutAtSeams(const std::vector<LoopPiece>& pieces,
                                    const std::vector<PieceSamples>& samples,
                                    const ParameterPlane& plane)
{
    constexpr double Sagitta = 1e-4;
    std::vector<DomainPiece> cut;
    cut.reserve(pieces.size());
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const auto inU = CutIn(0, {pieces[i], {}, std::nullopt}, samples[i], plane);
        for (const DomainPiece& part : inU) {
            const bool isWhole = inU.size() == 1 && part.periods == Uv{};
            const auto inV =
                CutIn(1, part, isWhole ? samples[i] : SamplesOf(part.piece, plane, Sagitta), plane);
            cut.insert(cut.end(), inV.begin(), inV.end());
        }
    }
    return cut;
}

std::vector<DomainPiece> CutAlongSide(const DomainPiece& piece, const std::vector<double>& values,
                                      const ParameterPlane& plane)
{
    const std::size_t along = 1 - Across(*piece.side);
    const GK_Interval& part = piece.piece.part;
    const double from = piece.piece.At(part[0])[along];
    const double to = piece.piece.At(part[1])[along];
    std::vector<double> passages{part[0]};
    for (const double value : values)
        if (value > std::min(from, to) + plane.Slack(along) &&
            value < std::max(from, to) - plane.Slack(along))
            passages.push_back(FindPassage(piece.piece, along, value, part[0], part[1]));
    passages.push_back(part[1]);
    std::sort(passages.begin(), passages.end());
    std::vector<DomainPiece> cut;
    for (std::size_t i = 0; i + 1 < passages.size(); ++i) {
        cut.push_back(piece);
        if (passages.size() > 2)
            cut.back().piece = piece.piece.Between(passages[i], passages[i + 1]);
    }
    if (piece.piece.backwards)
        std::reverse(cut.begin(), cut.end());
    return cut;
}
