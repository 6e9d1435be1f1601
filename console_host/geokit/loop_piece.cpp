#include "console_host/geokit/loop_piece.h"

#include <algorithm>

namespace {

GK_Interval Increasing(const GK_Interval& interval)
{
    return {interval.Min(), interval.Max()};
}

// Returns a part cut to the curve's domain, beyond which it may reach as files round their numbers.
GK_Interval CutTo(const GK_Interval& part, const GK_Interval& domain)
{
    const GK_Interval cut(std::max(part.Min(), domain.Min()), std::min(part.Max(), domain.Max()));
    return cut.IsIncreasing() ? cut : Increasing(part);
}

// Returns whether the edge curve runs against the piece's curve. The inner two places tell the
// direction of a closed edge.
bool RunsAgainst(const LoopPiece& piece, const ParameterPlane& plane)
{
    double along = 0.0;
    double against = 0.0;
    for (const double fraction : {0.0, 0.25, 0.75, 1.0}) {
        const GK_3dPoint point = plane.PointAt(piece.At(piece.part.ParameterAt(fraction)));
        along += point.DistanceTo(piece.edgeCurve->PointAt(piece.edgePart.ParameterAt(fraction)));
        against +=
            point.DistanceTo(piece.edgeCurve->PointAt(piece.edgePart.ParameterAt(1.0 - fraction)));
    }
    return against < along;
}

LoopPiece PieceOf(const GK_Brep& brep, const GK_BrepTrim& trim, const ParameterPlane& plane)
{
    LoopPiece piece;
    piece.curve = std::make_shared<GK_NurbsCurve>(trim.AsBspline());
    piece.part = CutTo(trim.Domain(), piece.curve->Domain());
    piece.backwards = trim.Domain().IsDecreasing();
    if (trim.edgeIndex < 0)
        return piece;
    const GK_BrepEdge& edge = brep.Edge(trim.edgeIndex);
    piece.edge = trim.edgeIndex;
    piece.edgeCurve = edge.ProxyCurve()->Duplicate();
    piece.edgePart = CutTo(edge.Domain(), piece.edgeCurve->Domain());
    piece.edgeTurned = RunsAgainst(piece, plane);
    return piece;
}

} // namespace

Uv LoopPiece::At(double t) const
{
    const GK_3dPoint place = curve->PointAt(t);
    return {place.x + shift[0], place.y + shift[1]};
}

LoopPiece LoopPiece::Between(double t0, double t1) const
{
    LoopPiece inner = *this;
    inner.part = {t0, t1};
    inner.edge = -1;
    double from = (t0 - part[0]) / part.Length();
    double to = (t1 - part[0]) / part.Length();
    if (edgeTurned) {
        from = 1.0 - from;
        to = 1.0 - to;
    }
    inner.edgePart = Increasing({edgePart.ParameterAt(from), edgePart.ParameterAt(to)});
    return inner;
}

std::vector<LoopPiece> PiecesOf(const GK_Brep& brep, const GK_BrepLoop& loop,
                                const ParameterPlane& plane)
{
    std::vector<LoopPiece> pieces;
    pieces.reserve(static_cast<std::size_t>(loop.trimIndices.Count()));
    for (const int trim : loop.trimIndices) {
        pieces.push_back(PieceOf(brep, brep.Trim(trim), plane));
        pieces.back().number = static_cast<int>(pieces.size());
    }
    return pieces;
}

void TurnLoop(std::vector<LoopPiece>& pieces)
{
    std::reverse(pieces.begin(), pieces.end());
    for (LoopPiece& piece : pieces)
        piece.backwards = !piece.backwards;
}
