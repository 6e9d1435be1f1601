#include "console_host/vxkit/image_fit.h"

#include "console_host/geokit/point_box.h"
#include "console_host/vxkit/hermite_pieces.h"

#include <algorithm>
#include <cmath>

namespace {

// A part of the interval, with the image and its derivatives at both ends.
struct Part
{
    double t0;
    double t1;
    GK_CurvePoint start;
    GK_CurvePoint end;
    double rounding;
    double error = 0.0;   // at a quarter, a half and three quarters of the way
    int depth = 0;        // how often it was divided
    bool regular = false; // the error has the form of that of a short piece

    [[nodiscard]] HermitePiece Piece(double tolerance) const
    {
        const double third = (t1 - t0) / 3.0;
        return {t0,
                t1,
                std::max(tolerance, rounding),
                {start.point, start.point + third * start.derivative,
                 end.point + -third * end.derivative, end.point}};
    }
};

// Parameters cannot tell apart much more than this.
bool IsTooShort(const Part& part)
{
    constexpr double Finest = 1e-13;
    return part.t1 - part.t0 <= Finest * std::max(std::abs(part.t0), std::abs(part.t1));
}

constexpr int PointsToMeasure = 3;
constexpr int PointsOfPart = 9; // from break to break, about

class Fit
{
public:
    Fit(SurfaceImage& image, double tolerance, double mostWork)
        : m_image(image), m_tolerance(tolerance > 0.0 ? tolerance : 0.0), m_cost(image.Cost()),
          m_mostWork(mostWork)
    {
    }

    ImageFit::Outcome Run(const GK_Interval& interval);
    [[nodiscard]] double Work() const { return m_work; }
    [[nodiscard]] std::unique_ptr<GK_NurbsCurve> Curve() const { return JoinPieces(m_pieces); }

private:
    ImageFit::Outcome Begin(const std::vector<double>& breaks);
    ImageFit::Outcome Refine(const Part& whole);
    void Measure(Part& part);
    [[nodiscard]] double Allowed(const Part& part) const;
    [[nodiscard]] double PiecesFor(const Part& part) const;
    [[nodiscard]] bool Fits(const Part& part);
    void Divide(const Part& part);
    double Deviation(const HermitePiece& piece, double fraction);
    void Count(int points) { m_work += m_cost * points; }

    SurfaceImage& m_image;
    double m_tolerance;
    double m_cost;
    double m_mostWork;
    double m_work = 0.0;
    std::size_t m_mostPieces = 0;
    PointBox m_box;
    std::vector<Part> m_parts; // still to do, the first at the end
    std::vector<HermitePiece> m_pieces;
};

ImageFit::Outcome Fit::Run(const GK_Interval& interval)
{
    constexpr std::size_t Most = 65536;
    constexpr std::size_t ForAny = 16384;
    constexpr std::size_t ForEachPart = 16;
    constexpr double RelativeTolerance = 1e-4;
    const double affordable = std::max(0.0, m_mostWork / (m_cost * PointsOfPart));
    const auto mostParts = static_cast<std::size_t>(std::min<double>(Most, affordable));
    const std::vector<double> breaks = m_image.Breaks(interval, mostParts);
    if (breaks.empty()) {
        m_work = m_cost * static_cast<double>(mostParts);
        return mostParts < Most ? ImageFit::TooMuchWork : ImageFit::TooManyPoints;
    }
    m_mostPieces = std::min(Most, ForAny + ForEachPart * breaks.size());
    if (const ImageFit::Outcome outcome = Begin(breaks); outcome != ImageFit::Made)
        return outcome;
    m_tolerance = std::min(m_tolerance, RelativeTolerance * m_box.low.DistanceTo(m_box.high));
    std::vector<Part> wholes;
    wholes.swap(m_parts);
    double pieces = 0.0;
    for (const Part& whole : wholes)
        pieces += PiecesFor(whole);
    if (!(pieces <= static_cast<double>(m_mostPieces)))
        return ImageFit::TooManyPoints;
    for (const Part& whole : wholes)
        if (const ImageFit::Outcome outcome = Refine(whole); outcome != ImageFit::Made)
            return outcome;
    return ImageFit::Made;
}

// Makes one part from each break to the next.
ImageFit::Outcome Fit::Begin(const std::vector<double>& breaks)
{
    constexpr double Inside = 1.0 / 64.0;
    m_parts.reserve(breaks.size());
    for (std::size_t i = 0; i + 1 < breaks.size(); ++i) {
        const double t0 = breaks[i];
        const double t1 = breaks[i + 1];
        const double near = Inside * (t1 - t0);
        Part part{t0, t1, m_image.Evaluate(t0, t0 + near), m_image.Evaluate(t1, t1 - near),
                  m_image.Rounding(0.5 * (t0 + t1))};
        Count(PointsOfPart - PointsToMeasure);
        m_box.Add(part.start.point);
        Measure(part);
        m_box.Add(part.end.point);
        if (!IsFinite(part.start.point) || !IsFinite(part.end.point) || !std::isfinite(part.error))
            return ImageFit::NotFinite;
        if (m_work > m_mostWork)
            return ImageFit::TooMuchWork;
        m_parts.push_back(part);
    }
    return ImageFit::Made;
}

double Fit::Deviation(const HermitePiece& piece, double fraction)
{
    const double t = GK_Interval(piece.t0, piece.t1).ParameterAt(fraction);
    const GK_3dPoint point = m_image.PointAt(t);
    m_box.Add(point);
    return piece.PointAt(fraction).DistanceTo(point);
}

void Fit::Measure(Part& part)
{
    const HermitePiece piece = part.Piece(m_tolerance);
    const double first = Deviation(piece, 0.25);
    const double middle = Deviation(piece, 0.5);
    const double last = Deviation(piece, 0.75);
    part.error = std::max({first, middle, last});
    // As parts get shorter, all of the error vanishes except what is proportional to s * s * (1 -
    // s) * (1 - s).
    constexpr double ShareAtQuarter = 0.5625;
    constexpr double Slack = 0.2;
    part.regular = std::abs(first - ShareAtQuarter * middle) <= Slack * middle &&
                   std::abs(last - ShareAtQuarter * middle) <= Slack * middle;
    Count(PointsToMeasure);
}

// Returns how far the image may be from the piece where it is measured: it may stray a little
// farther in between.
double Fit::Allowed(const Part& part) const
{
    constexpr double Margin = 0.5;
    return Margin * std::max(m_tolerance, part.rounding);
}

// Returns how many pieces of equal length a part takes: the error of a piece falls with the fourth
// power of its length.
double Fit::PiecesFor(const Part& part) const
{
    constexpr double Power = 0.25;
    constexpr double Reserve = 1.05;
    const double allowed = Allowed(part);
    return part.error <= allowed ? 1.0 : std::ceil(Reserve * std::pow(part.error / allowed, Power));
}

ImageFit::Outcome Fit::Refine(const Part& whole)
{
    m_parts.push_back(whole);
    while (!m_parts.empty()) {
        const Part part = m_parts.back();
        m_parts.pop_back();
        if (Fits(part)) {
            m_pieces.push_back(part.Piece(m_tolerance));
            continue;
        }
        if (IsTooShort(part) || m_pieces.size() + m_parts.size() >= m_mostPieces)
            return ImageFit::TooManyPoints;
        if (m_work > m_mostWork)
            return ImageFit::TooMuchWork;
        Divide(part);
    }
    return ImageFit::Made;
}

bool Fit::Fits(const Part& part)
{
    const double allowed = Allowed(part);
    if (!(part.error <= allowed))
        return false;
    // The error is a polynomial with double zeros at both ends. Three values are known: enough when
    // they determine the rest of it. Short parts need fewer than long ones.
    constexpr int DegreeKnown = 6;
    constexpr int DegreeOfFew = 9;
    const int degree = m_image.Degree();
    if (degree <= DegreeKnown || (part.depth > 0 && part.regular))
        return true;
    const int steps = degree > DegreeOfFew && part.depth == 0 ? 16 : 8;
    const HermitePiece piece = part.Piece(m_tolerance);
    for (int i = 1; i < steps; ++i) {
        if (i % (steps / 4) == 0)
            continue;
        Count(1);
        if (!(Deviation(piece, static_cast<double>(i) / steps) <= allowed))
            return false;
    }
    return true;
}

// Replaces a part by parts of it.
void Fit::Divide(const Part& part)
{
    constexpr double Most = 16.0;
    const int count = static_cast<int>(std::clamp(PiecesFor(part), 2.0, Most));
    const GK_Interval interval(part.t0, part.t1);
    const double near = (part.t1 - part.t0) / (64.0 * count);
    Part next = part;
    next.depth = part.depth + (count > 2 ? 2 : 1);
    for (int i = count - 1; i >= 0; --i) {
        next.t0 = i == 0 ? part.t0 : interval.ParameterAt(static_cast<double>(i) / count);
        next.start = i == 0 ? part.start : m_image.Evaluate(next.t0, next.t0 + near);
        Count(i == 0 ? 0 : 2);
        Measure(next);
        m_parts.push_back(next);
        next.t1 = next.t0;
        next.end = next.start;
    }
}

} // namespace

ImageFit FitImage(SurfaceImage& image, const GK_Interval& interval, double tolerance,
                  double mostWork)
{
    Fit fit(image, tolerance, mostWork);
    ImageFit result;
    result.outcome = fit.Run(interval);
    result.work = fit.Work();
    if (result.outcome != ImageFit::Made)
        return result;
    result.curve = fit.Curve();
    if (result.curve->IsValid())
        return result;
    result.curve = nullptr;
    result.outcome = ImageFit::NotFinite;
    return result;
}
