#include "tests/trimming/trim_pieces.h"

#include <algorithm>
#include <cmath>

namespace {

void Append(std::vector<double>& knots, int count, double value)
{
    knots.insert(knots.end(), static_cast<std::size_t>(count), value);
}

// Returns knots of spans of length 1 that meet with full multiplicity.
std::vector<double> SpanKnots(int degree, int spans)
{
    std::vector<double> knots;
    Append(knots, degree + 1, 0.0);
    for (int i = 1; i < spans; ++i)
        Append(knots, degree, i);
    Append(knots, degree + 1, spans);
    return knots;
}

} // namespace

UV TrimPiece::At(double share) const
{
    const double t = from + share * (to - from);
    const auto spans = (points.size() - 1) / static_cast<std::size_t>(degree);
    const double scale = static_cast<double>(spans) / knots.back(); // knots may end below it
    const double place = std::clamp(t * scale, 0.0, static_cast<double>(spans));
    const auto span = std::min(static_cast<std::size_t>(place), spans - 1);
    const double s = place - static_cast<double>(span);
    const auto* p = points.data() + span * static_cast<std::size_t>(degree);
    if (degree == 1)
        return {(1 - s) * p[0][0] + s * p[1][0], (1 - s) * p[0][1] + s * p[1][1]};
    const double b[3] = {(1 - s) * (1 - s) * p[0][2], 2 * s * (1 - s) * p[1][2], s * s * p[2][2]};
    const double w = b[0] + b[1] + b[2];
    return {(b[0] * p[0][0] + b[1] * p[1][0] + b[2] * p[2][0]) / w,
            (b[0] * p[0][1] + b[1] * p[1][1] + b[2] * p[2][1]) / w};
}

TrimPiece LinePiece(UV a, UV b)
{
    return PolylinePiece({a, b});
}

TrimPiece PolylinePiece(const std::vector<UV>& points)
{
    TrimPiece piece;
    for (const UV& point : points)
        piece.points.push_back({point.u, point.v, 1.0});
    const int spans = static_cast<int>(points.size()) - 1;
    piece.knots = SpanKnots(1, spans);
    piece.to = spans;
    return piece;
}

TrimPiece ArcPiece(UV center, double radiusU, double radiusV, int firstQuarter, int quarters)
{
    constexpr std::array<std::array<int, 2>, 8> Corners{
        {{1, 0}, {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}}};
    TrimPiece piece;
    piece.degree = 2;
    for (int i = 0; i <= 2 * quarters; ++i) {
        const auto& corner = Corners[static_cast<std::size_t>(2 * firstQuarter + i) % 8];
        piece.points.push_back({center.u + radiusU * corner[0], center.v + radiusV * corner[1],
                                i % 2 == 0 ? 1.0 : std::sqrt(0.5)});
    }
    piece.knots = SpanKnots(2, quarters);
    piece.to = quarters;
    return piece;
}

Pieces PolygonOf(const std::vector<UV>& corners)
{
    Pieces pieces;
    for (std::size_t i = 0; i < corners.size(); ++i)
        pieces.push_back(LinePiece(corners[i], corners[(i + 1) % corners.size()]));
    return pieces;
}

std::vector<UV> Rectangle(double u0, double v0, double u1, double v1)
{
    return {{u0, v0}, {u1, v0}, {u1, v1}, {u0, v1}};
}

Pieces EllipseOf(UV center, double radiusU, double radiusV, int count)
{
    Pieces pieces;
    for (int i = 0; i < count; ++i)
        pieces.push_back(ArcPiece(center, radiusU, radiusV, i * 4 / count, 4 / count));
    return pieces;
}

Pieces SpansOf(const TrimPiece& curve)
{
    Pieces pieces;
    for (int i = 0; i < static_cast<int>(curve.to); ++i) {
        pieces.push_back(curve);
        pieces.back().from = i;
        pieces.back().to = i + 1;
    }
    return pieces;
}

TrimPiece Turned(TrimPiece piece)
{
    const double end = piece.knots.back();
    std::reverse(piece.points.begin(), piece.points.end());
    std::reverse(piece.knots.begin(), piece.knots.end());
    for (double& knot : piece.knots)
        knot = end - knot;
    const double from = piece.from;
    piece.from = end - piece.to;
    piece.to = end - from;
    return piece;
}

TrimPiece Decreasing(TrimPiece piece)
{
    TrimPiece turned = Turned(std::move(piece));
    std::swap(turned.from, turned.to);
    return turned;
}

Pieces Backwards(Pieces pieces)
{
    std::reverse(pieces.begin(), pieces.end());
    for (TrimPiece& piece : pieces)
        piece = Turned(std::move(piece));
    return pieces;
}

Pieces Rotated(Pieces pieces, int first)
{
    std::rotate(pieces.begin(), pieces.begin() + first % static_cast<int>(pieces.size()),
                pieces.end());
    return pieces;
}

Pieces Styled(Pieces pieces, unsigned int turned, unsigned int decreasing)
{
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if ((turned >> (i % 32) & 1U) != 0)
            pieces[i] = Turned(std::move(pieces[i]));
        else if ((decreasing >> (i % 32) & 1U) != 0)
            pieces[i] = Decreasing(std::move(pieces[i]));
    }
    return pieces;
}

Pieces Moved(Pieces pieces, double u, double v)
{
    for (TrimPiece& piece : pieces)
        for (auto& point : piece.points)
            point = {point[0] + u, point[1] + v, point[2]};
    return pieces;
}
