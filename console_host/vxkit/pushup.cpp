#include "console_host/geokit/knots.h"
#include "console_host/geokit/nurbs_evaluation.h"
#include "console_host/runtime/text.h"
#include "console_host/vxkit/curve_restriction.h"
#include "console_host/vxkit/image_fit.h"
#include "console_host/vxkit/pushup_allowance.h"
#include "console_host/vxkit/pushup_memory.h"

#include "host/vxkit/nurbs_surface.h"

#include <algorithm>

namespace {

bool IsSound(const GK_NurbsCurve& curve)
{
    std::string reason;
    if (curve.IsValid(&reason)) {
        if (curve.dimension == 2)
            return true;
        reason = "it does not lie in a parameter plane";
    }
    PushupAllowance::Current().Say(PushupAllowance::UnsoundCurve,
                                   "A trim was left out, as its curve is not sound: " + reason +
                                       ".");
    return false;
}

void SayOutside(const GK_Interval& part, const GK_Interval& domain)
{
    PushupAllowance::Current().Say(
        PushupAllowance::OutsideDomain,
        FormatText("A trim was left out, as it asks for the part from %.9g to %.9g of a curve that "
                   "goes from %.9g to %.9g.",
                   part[0], part[1], domain[0], domain[1]));
}

void SayGivenUp(ImageFit::Outcome outcome)
{
    PushupAllowance& allowance = PushupAllowance::Current();
    if (outcome == ImageFit::NotFinite)
        allowance.Say(PushupAllowance::NotFinite,
                      "A trim was left out, as the surface is not finite along its curve.");
    else if (outcome == ImageFit::TooManyPoints)
        allowance.Say(PushupAllowance::TooManyPoints,
                      "A trim was left out, as its edge would take too many control points to stay "
                      "within the tolerance.");
    else
        allowance.Say(PushupAllowance::UsedUp,
                      "Trims were left out, as their edges would take more work in all than a file "
                      "of this size may ask for.");
}

// The control points that a part of a curve depends on.
struct Run
{
    int first;
    int count;
};

Run ControlPointsOf(const PushupMemory::Request& request)
{
    const GK_NurbsCurve& curve = request.curve;
    const int first = FindSpan(curve, request.interval[0]);
    return {first, FindSpan(curve, request.interval[1]) + curve.order - first};
}

// Returns in which directions of a closed surface a part of a curve leaves the domain.
std::array<bool, 2> GoesRound(const GK_NurbsSurface& surface, const PushupMemory::Request& request,
                              const Run& run)
{
    constexpr double Rounding = 1e-9;
    std::array<bool, 2> leaves{};
    for (int i = 0; i < run.count; ++i) {
        const GK_3dPoint point = request.curve.ControlPoint(run.first + i);
        for (const int direction : {0, 1}) {
            const GK_Interval domain = surface.Domain(direction);
            const double t = direction == 0 ? point.x : point.y;
            const double slack = Rounding * domain.Length();
            if (t < domain[0] - slack || t > domain[1] + slack)
                leaves[static_cast<std::size_t>(direction)] = true;
        }
    }
    if (!leaves[0] && !leaves[1])
        return leaves;
    const SurfaceClosure& closure = PushupMemory::Of(surface).Closure(surface, request.tolerance);
    return {leaves[0] && closure.closed[0], leaves[1] && closure.closed[1]};
}

// Returns the image of a line of constant u or v, which is exactly a part of a curve of the
// surface; null when the curve is no such line.
std::unique_ptr<GK_NurbsCurve> ExactImage(const GK_NurbsSurface& surface,
                                          const PushupMemory::Request& request)
{
    const GK_NurbsCurve& line = request.curve;
    const GK_Interval& interval = request.interval;
    if (line.order != 2 || line.controlPointCount != 2 || line.rational)
        return nullptr;
    const GK_3dPoint from = line.PointAt(interval[0]);
    const GK_3dPoint to = line.PointAt(interval[1]);
    const GK_3dPoint a = line.ControlPoint(0);
    const GK_3dPoint b = line.ControlPoint(1);
    if ((a.x == b.x) == (a.y == b.y))
        return nullptr;
    const int direction = a.y == b.y ? 0 : 1;
    const double start = direction == 0 ? from.x : from.y;
    const double end = direction == 0 ? to.x : to.y;
    if (start == end)
        return nullptr;
    const auto whole = IsoCurveOver(surface, direction, direction == 0 ? a.y : a.x, {start, end});
    auto part = RestrictCurve(*whole, std::min(start, end), std::max(start, end));
    PushupAllowance::Current().Spend(part->controlPointCount);
    if (start > end)
        part->Reverse();
    return part->SetDomain(interval[0], interval[1]) && part->IsValid() ? std::move(part) : nullptr;
}

// Returns the image; without a curve, after a report, when that takes too much or is not possible.
ImageFit PushUp(const GK_NurbsSurface& surface, const PushupMemory::Request& request)
{
    PushupAllowance& allowance = PushupAllowance::Current();
    allowance.AddCall(request.curve);
    const Run run = ControlPointsOf(request);
    if (run.count > allowance.Left()) {
        SayGivenUp(ImageFit::TooMuchWork);
        return {ImageFit::TooMuchWork, nullptr};
    }
    const std::array<bool, 2> round = GoesRound(surface, request, run);
    if (!round[0] && !round[1])
        if (auto exact = ExactImage(surface, request))
            return {ImageFit::Made, std::move(exact)};
    SurfaceImage image(request.curve, surface, round);
    ImageFit fit = FitImage(image, request.interval, request.tolerance, allowance.Left());
    allowance.Spend(fit.work);
    if (fit.curve == nullptr)
        SayGivenUp(fit.outcome);
    return fit;
}

} // namespace

std::unique_ptr<GK_Curve> VX_NurbsSurface::Pushup(const GK_Curve& curve2d, double tolerance,
                                                  const GK_Interval* subdomain) const
{
    const GK_NurbsCurve curve = curve2d.AsBspline();
    if (!IsValid() || !IsSound(curve))
        return nullptr;
    const GK_Interval domain = curve.Domain();
    const GK_Interval asked = subdomain != nullptr ? *subdomain : curve2d.Domain();
    const GK_Interval part = CutToDomain({asked.Min(), asked.Max()}, domain);
    if (!part.IsIncreasing() || !(part[0] >= domain[0] && part[1] <= domain[1])) {
        SayOutside(asked, domain);
        return nullptr;
    }
    const PushupMemory::Request request{curve, part, tolerance > 0.0 ? tolerance : 0.0};
    PushupMemory& memory = PushupMemory::Of(*this);
    if (auto known = memory.Find(request))
        return std::move(*known);
    ImageFit image = PushUp(*this, request);
    if (image.outcome != ImageFit::TooMuchWork) // another import may go farther
        memory.Add(request, image.curve.get());
    return std::move(image.curve);
}
