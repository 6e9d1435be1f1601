#include "console_host/geokit/piece_samples.h"

#include "console_host/geokit/nurbs_evaluation.h"

#include <algorithm>

namespace {

class Sampler
{
public:
    Sampler(const LoopPiece& piece, const ParameterPlane& plane, double sagitta)
        : m_piece(piece), m_curve(*piece.curve), m_plane(plane), m_sagitta(sagitta)
    {
    }

    PieceSamples Run();

private:
    void AddSpan(int span, double end);
    void Refine(const PieceSamples::Sample& from, const PieceSamples::Sample& to, int depth);
    [[nodiscard]] PieceSamples::Sample At(double t) const;

    const LoopPiece& m_piece;
    const GK_NurbsCurve& m_curve;
    const ParameterPlane& m_plane;
    double m_sagitta;
    int m_span = 0;
    PieceSamples m_result;
};

PieceSamples Sampler::Run()
{
    const GK_Interval& part = m_piece.part;
    m_span = FindSpan(m_curve, part[0]);
    m_result.samples.push_back(At(part[0]));
    double t0 = part[0];
    for (int span = m_span; t0 < part[1]; ++span) {
        const bool isLast = span + m_curve.order >= m_curve.controlPointCount;
        const double t1 =
            isLast ? part[1] : std::min(m_curve.knots[span + m_curve.Degree()], part[1]);
        if (t0 < t1)
            AddSpan(span, t1);
        t0 = std::max(t0, t1);
    }
    return std::move(m_result);
}

void Sampler::AddSpan(int span, double end)
{
    m_span = span;
    const PieceSamples::Sample from = m_result.samples.back();
    const PieceSamples::Sample to = At(end);
    PieceSamples::Span result{m_result.samples.size() - 1, 0, {}};
    if (m_curve.Degree() == 1) {
        m_result.samples.push_back(to);
        result.box.Add(from.place);
        result.box.Add(to.place);
    } else {
        Refine(from, to, 0);
        for (int i = span; i < span + m_curve.order; ++i) {
            const GK_3dPoint point = m_curve.ControlPoint(i);
            result.box.Add({point.x + m_piece.shift[0], point.y + m_piece.shift[1]});
        }
    }
    result.last = m_result.samples.size() - 1;
    m_result.spans.push_back(result);
}

// Appends what follows `from` up to `to`.
void Sampler::Refine(const PieceSamples::Sample& from, const PieceSamples::Sample& to, int depth)
{
    constexpr int Least = 2; // so that a curve that swings to both sides is not taken for straight
    constexpr int Most = 8;
    const double t = 0.5 * (from.t + to.t);
    if (depth >= Most || !(from.t < t && t < to.t)) {
        m_result.samples.push_back(to);
        return;
    }
    const PieceSamples::Sample between = At(t);
    const Uv middle{0.5 * (from.place[0] + to.place[0]), 0.5 * (from.place[1] + to.place[1])};
    if (depth >= Least && m_plane.Distance(between.place, middle) <= m_sagitta) {
        m_result.samples.push_back(between);
        m_result.samples.push_back(to);
        return;
    }
    Refine(from, between, depth + 1);
    Refine(between, to, depth + 1);
}

PieceSamples::Sample Sampler::At(double t) const
{
    const GK_3dPoint place = PointInSpan(m_curve, m_span, t);
    return {t, {place.x + m_piece.shift[0], place.y + m_piece.shift[1]}};
}

} // namespace

PieceSamples SamplesOf(const LoopPiece& piece, const ParameterPlane& plane, double sagitta)
{
    return Sampler(piece, plane, sagitta).Run();
}

double ExtentOf(const std::vector<LoopPiece>& pieces, const ParameterPlane& plane)
{
    UvBox box;
    for (const LoopPiece& piece : pieces)
        for (const double fraction : {0.0, 0.25, 0.5, 0.75, 1.0})
            box.Add(plane.Normalized(piece.At(piece.part.ParameterAt(fraction))));
    return box.Extent();
}
