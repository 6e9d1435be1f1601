#include "console_host/vxkit/image_fit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

// A cubic in Bezier form over [t0, t1].
struct Piece
{
    double t0;
    double t1;
    double tolerance;
    std::array<GK_3dPoint, 4> points;

    [[nodiscard]] GK_3dPoint PointAt(double fraction) const
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
};

bool IsFinite(const GK_3dPoint& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

class Fit
{
public:
    Fit(const SurfaceImage& image, double tolerance)
        : m_image(image), m_tolerance(tolerance > 0.0 ? tolerance : 0.0),
          m_samples(std::clamp(image.Degree() + 1, 7, 33)),
          m_most(MostPieces(image.Cost() * m_samples))
    {
    }

    bool Run(const GK_Interval& interval);
    [[nodiscard]] std::unique_ptr<GK_Curve> Curve() const;

private:
    static std::size_t MostPieces(double costOfPiece);
    [[nodiscard]] Piece Hermite(double t0, double t1) const;
    [[nodiscard]] bool Fits(const Piece& piece) const;
    [[nodiscard]] bool IsStraight() const;
    [[nodiscard]] std::unique_ptr<GK_Curve> Polyline() const;
    [[nodiscard]] std::unique_ptr<GK_Curve> Cubic() const;

    const SurfaceImage& m_image;
    double m_tolerance;
    int m_samples;
    std::size_t m_most;
    std::vector<Piece> m_pieces;
};

std::size_t Fit::MostPieces(double costOfPiece)
{
    constexpr double MostWork = 4e8;
    constexpr double Most = 65536.0;
    return static_cast<std::size_t>(std::min(Most, MostWork / costOfPiece));
}

bool Fit::Run(const GK_Interval& interval)
{
    const std::vector<double> breaks = m_image.Breaks(interval, m_most);
    if (breaks.empty() || !IsFinite(m_image.PointAt(interval[0])) ||
        !IsFinite(m_image.PointAt(interval[1])))
        return false;
    std::vector<GK_Interval> todo;
    for (std::size_t i = breaks.size() - 1; i > 0; --i)
        todo.emplace_back(breaks[i - 1], breaks[i]);
    std::size_t tried = 0;
    while (!todo.empty()) {
        const GK_Interval part = todo.back();
        todo.pop_back();
        if (++tried > 2 * m_most)
            return false;
        const Piece piece = Hermite(part[0], part[1]);
        if (Fits(piece)) {
            m_pieces.push_back(piece);
            continue;
        }
        const double middle = part.ParameterAt(0.5);
        if (!(part[0] < middle && middle < part[1]) || m_pieces.size() + todo.size() >= m_most)
            return false;
        todo.emplace_back(middle, part[1]);
        todo.emplace_back(part[0], middle);
    }
    return true;
}

Piece Fit::Hermite(double t0, double t1) const
{
    constexpr double Inside = 1.0 / 64.0;
    constexpr double Rounding = 64.0 * std::numeric_limits<double>::epsilon();
    const double length = t1 - t0;
    const GK_CurvePoint start = m_image.Evaluate(t0, t0 + Inside * length);
    const GK_CurvePoint end = m_image.Evaluate(t1, t1 - Inside * length);
    const GK_3dPoint first = m_image.PointAt(t0);
    const GK_3dPoint last = m_image.PointAt(t1);
    const double size = std::max({std::abs(first.x), std::abs(first.y), std::abs(first.z),
                                  std::abs(last.x), std::abs(last.y), std::abs(last.z)});
    return {t0,
            t1,
            std::max(m_tolerance, Rounding * size),
            {first, first + length / 3.0 * start.derivative, last + -length / 3.0 * end.derivative,
             last}};
}

bool Fit::Fits(const Piece& piece) const
{
    // The image may stray a little farther between the samples than at them.
    constexpr double Margin = 0.5;
    for (int i = 0; i < m_samples; ++i) {
        const double fraction = (i + 1.0) / (m_samples + 1.0);
        const double t = GK_Interval(piece.t0, piece.t1).ParameterAt(fraction);
        if (!(piece.PointAt(fraction).DistanceTo(m_image.PointAt(t)) <= Margin * piece.tolerance))
            return false;
    }
    return true;
}

// Rounding and changes of shape far below the tolerance.
bool IsNegligible(double distance, const Piece& piece)
{
    return distance <= 1e-3 * piece.tolerance;
}

bool Fit::IsStraight() const
{
    return std::all_of(m_pieces.begin(), m_pieces.end(), [](const Piece& piece) {
        const GK_3dVector third = (1.0 / 3.0) * (piece.points[3] - piece.points[0]);
        return IsNegligible(piece.points[1].DistanceTo(piece.points[0] + third), piece) &&
               IsNegligible(piece.points[2].DistanceTo(piece.points[0] + 2.0 * third), piece);
    });
}

void Append(GK_SimpleArray<double>& values, const GK_3dPoint& point)
{
    for (const double value : {point.x, point.y, point.z})
        values.Append(value);
}

std::unique_ptr<GK_Curve> Fit::Polyline() const
{
    auto curve = std::make_unique<GK_NurbsCurve>();
    curve->Create(3, false, 2, 0);
    Append(curve->controlPoints, m_pieces.front().points[0]);
    curve->knots.Append(m_pieces.front().t0);
    for (const Piece& piece : m_pieces) {
        Append(curve->controlPoints, piece.points[3]);
        curve->knots.Append(piece.t1);
    }
    curve->controlPointCount = curve->knots.Count();
    return curve;
}

std::unique_ptr<GK_Curve> Fit::Cubic() const
{
    constexpr int Degree = 3;
    auto curve = std::make_unique<GK_NurbsCurve>();
    curve->Create(3, false, Degree + 1, 0);
    const auto addKnots = [&](double knot, int times) {
        for (int i = 0; i < times; ++i)
            curve->knots.Append(knot);
    };
    addKnots(m_pieces.front().t0, Degree);
    Append(curve->controlPoints, m_pieces.front().points[0]);
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        const Piece& piece = m_pieces[i];
        Append(curve->controlPoints, piece.points[1]);
        Append(curve->controlPoints, piece.points[2]);
        if (i + 1 == m_pieces.size())
            break;
        // Where the derivatives agree, a double knot says so, and the joint follows from its
        // neighbours.
        const Piece& next = m_pieces[i + 1];
        const double share = (piece.t1 - piece.t0) / (next.t1 - piece.t0);
        const GK_3dPoint joint = piece.points[2] + share * (next.points[1] - piece.points[2]);
        const bool smooth = IsNegligible(joint.DistanceTo(piece.points[3]), piece);
        addKnots(piece.t1, smooth ? Degree - 1 : Degree);
        if (!smooth)
            Append(curve->controlPoints, piece.points[3]);
    }
    addKnots(m_pieces.back().t1, Degree);
    Append(curve->controlPoints, m_pieces.back().points[3]);
    curve->controlPointCount = curve->controlPoints.Count() / 3;
    return curve;
}

std::unique_ptr<GK_Curve> Fit::Curve() const
{
    return IsStraight() ? Polyline() : Cubic();
}

} // namespace

std::unique_ptr<GK_Curve> FitImage(const SurfaceImage& image, const GK_Interval& interval,
                                   double tolerance)
{
    Fit fit(image, tolerance);
    if (!fit.Run(interval))
        return nullptr;
    std::unique_ptr<GK_Curve> curve = fit.Curve();
    return curve->IsValid() ? std::move(curve) : nullptr;
}
