#include "console_host/vxkit/hermite_pieces.h"

#include <algorithm>
#include <utility>

GK_3dPoint HermitePiece::PointAt(double fraction) const
{
    const double rest = 1.0 - fraction;
    const std::array<double, 4> factors{rest * rest * rest, 3.0 * fraction * rest * rest,
                                        3.0 * fraction * fraction * rest,
                                        fraction * fraction * fraction};
    GK_3dVector sum;
    for (std::size_t i = 0; i < points.size(); ++i)
        sum = sum + factors[i] * (points[i] - GK_origin);
    return GK_origin + sum;
}

namespace {

// Returns whether a distance is rounding, or a change of shape far below the tolerance.
bool IsNegligible(double distance, const HermitePiece& piece)
{
    return distance <= 1e-3 * piece.tolerance;
}

bool IsStraight(const HermitePiece& piece)
{
    const GK_3dVector third = (1.0 / 3.0) * (piece.points[3] - piece.points[0]);
    return IsNegligible(piece.points[1].DistanceTo(piece.points[0] + third), piece) &&
           IsNegligible(piece.points[2].DistanceTo(piece.points[0] + 2.0 * third), piece);
}

// Returns where a piece ends and the next one begins.
GK_3dPoint Joint(const HermitePiece& piece, const HermitePiece& next)
{
    return piece.points[3] + 0.5 * (next.points[0] - piece.points[3]);
}

// Gathers control points and knots.
struct CurveWriter
{
    GK_SimpleArray<double> points;
    GK_SimpleArray<double> knots;

    void Add(const GK_3dPoint& point)
    {
        const double values[] = {point.x, point.y, point.z};
        points.Append(3, values);
    }

    void AddKnot(double knot, int times)
    {
        for (int i = 0; i < times; ++i)
            knots.Append(knot);
    }

    std::unique_ptr<GK_NurbsCurve> Finish(int degree)
    {
        auto curve = std::make_unique<GK_NurbsCurve>();
        curve->Create(3, false, degree + 1, 0);
        points.Shrink();
        knots.Shrink();
        curve->controlPointCount = points.Count() / 3;
        curve->controlPoints = std::move(points);
        curve->knots = std::move(knots);
        return curve;
    }
};

std::unique_ptr<GK_NurbsCurve> Polyline(const std::vector<HermitePiece>& pieces)
{
    CurveWriter writer;
    writer.Add(pieces.front().points[0]);
    writer.AddKnot(pieces.front().t0, 1);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const bool last = i + 1 == pieces.size();
        writer.Add(last ? pieces[i].points[3] : Joint(pieces[i], pieces[i + 1]));
        writer.AddKnot(pieces[i].t1, 1);
    }
    return writer.Finish(1);
}

std::unique_ptr<GK_NurbsCurve> Cubic(const std::vector<HermitePiece>& pieces)
{
    constexpr int Degree = 3;
    CurveWriter writer;
    writer.AddKnot(pieces.front().t0, Degree);
    writer.Add(pieces.front().points[0]);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const HermitePiece& piece = pieces[i];
        writer.Add(piece.points[1]);
        writer.Add(piece.points[2]);
        if (i + 1 == pieces.size())
            break;
        // Where the derivatives agree, a double knot says so, and the joint follows from its
        // neighbours.
        const HermitePiece& next = pieces[i + 1];
        const double share = (piece.t1 - piece.t0) / (next.t1 - piece.t0);
        const GK_3dPoint implied = piece.points[2] + share * (next.points[1] - piece.points[2]);
        const GK_3dPoint joint = Joint(piece, next);
        const bool smooth = IsNegligible(implied.DistanceTo(joint), piece);
        writer.AddKnot(piece.t1, smooth ? Degree - 1 : Degree);
        if (!smooth)
            writer.Add(joint);
    }
    writer.AddKnot(pieces.back().t1, Degree);
    writer.Add(pieces.back().points[3]);
    return writer.Finish(Degree);
}

} // namespace

std::unique_ptr<GK_NurbsCurve> JoinPieces(const std::vector<HermitePiece>& pieces)
{
    return std::all_of(pieces.begin(), pieces.end(), IsStraight) ? Polyline(pieces) : Cubic(pieces);
}
