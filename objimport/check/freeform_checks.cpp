#include "objimport/check/freeform_checks.h"

#include "objimport/check/bspline_rules.h"
#include "objimport/check/check_texts.h"
#include "objimport/check/surface_shape.h"

#include <algorithm>
#include <cmath>

namespace {

std::span<const double> SpanOf(const GK_SimpleArray<double>& array)
{
    return {array.Array(), static_cast<std::size_t>(array.Count())};
}

bool IsLoop(const SurfaceStep& step)
{
    return step.kind == SurfaceStep::OuterLoop || step.kind == SurfaceStep::InnerLoop;
}

GK_NurbsCurve MakeCurve(const CurveData& data)
{
    GK_NurbsCurve curve;
    if (WhyUnsoundCurve(data))
        return curve;
    curve.Create(data.dimension, data.rational, data.order, data.controlPointCount);
    const int stride = data.dimension + (data.rational ? 1 : 0);
    for (int k = 0; k < data.controlPointCount; ++k)
        curve.SetCV(k, data.rational ? GK::euclidean_rational : GK::not_rational,
                    data.controlPoints.Array() + std::ptrdiff_t{k} * stride);
    curve.knots = data.knots;
    return curve;
}

/// Returns the ends of a piece of a curve in the parameter plane; nothing when there is no such
/// piece.
std::optional<LoopEnds> EndsOf(const GK_NurbsCurve& curve, const TrimData& trim)
{
    constexpr double Slack = 1e-4; // of the domain: so far beyond it a piece may reach
    if (!curve.IsValid() || !std::isfinite(trim.from) || !std::isfinite(trim.to) ||
        trim.from == trim.to)
        return std::nullopt;
    const GK_Interval domain = curve.Domain();
    const double slack = Slack * (domain[1] - domain[0]);
    const auto place = [&](double t) -> std::array<double, 2> {
        const GK_3dPoint point = curve.Evaluate(std::clamp(t, domain[0], domain[1])).point;
        return {point.x, point.y};
    };
    for (const double t : {trim.from, trim.to})
        if (t < domain[0] - slack || t > domain[1] + slack)
            return std::nullopt;
    return LoopEnds{place(trim.from), place(trim.to)};
}

} // namespace

std::optional<Phrase> WhyUnsoundCurve(const CurveData& data)
{
    const BsplineRow row{data.order, data.controlPointCount, SpanOf(data.knots), ""};
    if (data.dimension == 0)
        return Phrase{CheckReasons::TooFewPoints, {"0", "", "2"}};
    if (auto why = WhyWrongOrder(row))
        return why;
    if (auto why = WhyWrongPoints(SpanOf(data.controlPoints), data.controlPointCount,
                                  data.dimension, data.rational))
        return why;
    return WhyWrongKnots(row);
}

void FreeformChecks::NoteStatement(std::size_t line, const Group_Object& record)
{
    if (!record.geometry)
        return;
    Noted& noted = m_noted[&record];
    for (; noted.curves < record.geometry->curves.size(); ++noted.curves)
        m_curves.push_back({&record, noted.curves, line});
    for (; noted.surfaces < record.geometry->surfaces.size(); ++noted.surfaces) {
        noted.lastSurface = m_surfaces.size();
        noted.loops = 0;
        m_surfaces.push_back({&record, noted.surfaces, line, {}});
    }
    if (noted.surfaces == 0)
        return;
    const auto& steps = record.geometry->surfaces.back().steps;
    if (!steps.IsEmpty() && IsLoop(*steps.Last()) && noted.loops < steps.Count()) {
        noted.loops = steps.Count();
        m_surfaces[noted.lastSurface].loopLines.push_back(line);
    }
}

std::size_t FreeformChecks::Finish(CheckPlace place)
{
    std::size_t sound = 0;
    for (const Curve& curve : m_curves) {
        place.line = curve.line;
        if (auto why = WhyUnsoundCurve(curve.record->geometry->curves[curve.index]))
            place.findings.AddBecause(place.file, place.line, CheckTexts::CurveUnsound,
                                      std::move(*why));
        else
            ++sound;
    }
    for (const Surface& surface : m_surfaces)
        sound += CheckSurface(place, surface) ? 1U : 0U;
    return sound;
}

bool FreeformChecks::CheckSurface(CheckPlace& place, const Surface& noted)
{
    place.line = noted.line;
    const SurfaceData& data = noted.record->geometry->surfaces[noted.index];
    const SurfaceShape shape(data, m_file.lists);
    if (data.faceCount == 0) {
        const std::string missing = shape.DirectionsWithoutKnots();
        place.Report(CheckTexts::KnotsMissing, missing.empty() ? "u, v" : missing);
        return false;
    }
    if (auto why = shape.WhyUnsound()) {
        place.findings.AddBecause(place.file, place.line, CheckTexts::SurfaceUnsound,
                                  std::move(*why));
        return false;
    }
    return noted.loopLines.empty() || CheckLoops(place, noted, data, shape.MakeSurface());
}

/// Returns the loops of a surface, and reports what of them cannot be used.
std::vector<FreeformChecks::Loop> FreeformChecks::LoopsOf(CheckPlace& place, const Surface& noted,
                                                          const SurfaceData& data)
{
    std::vector<Loop> loops;
    const TrimData* trim = data.trims.Array();
    auto line = noted.loopLines.begin();
    for (const SurfaceStep& step : data.steps) {
        if (!IsLoop(step))
            continue;
        if (line != noted.loopLines.end())
            place.line = *line++;
        Loop loop{place.line, step.kind == SurfaceStep::InnerLoop, {}};
        for (int i = 0; i < step.valueCount; ++i, ++trim) {
            if (const auto ends = EndsOf(TrimCurve(trim->curve), *trim))
                loop.pieces.push_back(*ends);
            else
                place.Report(CheckTexts::TrimUnsound, i + 1);
        }
        if (loop.pieces.empty())
            place.Report(CheckTexts::LoopEmpty);
        else
            loops.push_back(std::move(loop));
    }
    return loops;
}

/// Reports loops that do not close; returns whether the surface stays. When it does not, nothing
/// is said about its holes.
bool FreeformChecks::CheckLoops(CheckPlace& place, const Surface& noted, const SurfaceData& data,
                                const GK_NurbsSurface& surface)
{
    const TrimEnds meeting(surface, m_tolerance);
    const std::vector<Loop> loops = LoopsOf(place, noted, data);
    for (const bool isHole : {false, true})
        for (const Loop& loop : loops) {
            if (loop.isHole != isHole)
                continue;
            const auto gap = meeting.GapOf(loop.pieces);
            if (!gap)
                continue;
            place.line = loop.line;
            place.Report(isHole ? CheckTexts::HoleOpen : CheckTexts::OuterLoopOpen, gap->first + 1,
                         gap->second + 1);
            if (!isHole)
                return false;
        }
    return true;
}

const GK_NurbsCurve& FreeformChecks::TrimCurve(int index)
{
    const auto known = m_trimCurves.find(index);
    if (known != m_trimCurves.end())
        return known->second;
    const CurveData& data = m_file.trimCurves[static_cast<std::size_t>(index)];
    return m_trimCurves.emplace(index, MakeCurve(data)).first->second;
}
