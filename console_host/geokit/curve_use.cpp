#include "console_host/geokit/curve_use.h"

#include "console_host/geokit/nurbs_evaluation.h"

namespace {

// The spans within a piece; the ones that its ends share with what follows are no use of their own.
std::int64_t SpansOf(const LoopPiece& piece)
{
    return FindSpan(*piece.curve, piece.part[1]) - FindSpan(*piece.curve, piece.part[0]);
}

} // namespace

bool CurveUse::Add(const std::vector<LoopPiece>& pieces)
{
    bool good = true;
    std::size_t added = 0;
    for (; good && added < pieces.size(); ++added) {
        const GK_NurbsCurve& curve = *pieces[added].curve;
        std::int64_t& spans = m_spans[curve.controlPoints.Identity()];
        spans += SpansOf(pieces[added]);
        good = spans <= 2 * std::int64_t{curve.controlPointCount};
    }
    if (!good)
        for (std::size_t i = 0; i < added; ++i)
            m_spans[pieces[i].curve->controlPoints.Identity()] -= SpansOf(pieces[i]);
    return good;
}
