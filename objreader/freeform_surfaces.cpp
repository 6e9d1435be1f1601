#include "objreader/indices.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/statements.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int FirstIndexToken = 5; ///< of "surf", after the keyword and the domain
constexpr int FirstParmToken = 2;  ///< of "parm", after the keyword and the direction

/// Returns the number of control points that belongs to a number of knots.
int ControlPointCount(std::int64_t knotCount, int order)
{
    return static_cast<int>(
        std::clamp<std::int64_t>(knotCount - order + 2, 0, std::numeric_limits<int>::max()));
}

/// Begins a surface, which gets knots and a face from the "parm" statements that follow.
bool NewSurface(ObjReading& reading)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    const int vertexCount = reading.file.lists.vertices.Count();
    FreeformAttributes& freeform = reading.freeform;
    freeform.parmUSet = freeform.parmVSet = false;
    freeform.freeformKind = FreeformSurface;

    SurfaceData& surface = reading.currentGroup->GeometryToFill().surfaces.emplace_back();
    surface.rational = freeform.rational;
    surface.order = {OrderOf(freeform.degreeU), OrderOf(freeform.degreeV)};
    for (int i = 1; i < FirstIndexToken; ++i) // the domain, which the knots decide
        if (double end = 0.0; !ReadReal(tokenizer.Token(i), end))
            return false;
    surface.surfaceCVs.Reserve(tokenizer.TokenCount() - FirstIndexToken);
    for (int i = FirstIndexToken; i < tokenizer.TokenCount(); ++i) {
        int index = -1;
        if (!ReadInteger(tokenizer.Token(i), index) ||
            !ResolveIndex(index, vertexCount, reading.file.BogusIndexCount))
            return false;
        surface.surfaceCVs.Append(index);
    }
    return true;
}

/// Reads knots, of which files have one more at either end than the kernel. Knots that cannot be
/// read stay as they are, and so does the number of control points.
bool ReadBSplineKnots(const CObjLineTokenizer& tokenizer, SurfaceData& surface, SurfaceStep& step)
{
    step.valueCount = std::max(tokenizer.TokenCount() - FirstParmToken - 2, 0);
    double* const knots = surface.values.AppendUnset(step.valueCount);
    std::fill_n(knots, step.valueCount, 0.0);
    for (int i = 0; i < step.valueCount; ++i)
        if (!ReadReal(tokenizer.Token(FirstParmToken + 1 + i), knots[i]))
            return false;
    const int order = surface.order[static_cast<std::size_t>(step.direction)];
    step.controlPointCount = ControlPointCount(step.valueCount, order);
    return true;
}

/// Reads the two values of a patch.
bool ReadBezierKnots(const CObjLineTokenizer& tokenizer, SurfaceData& surface, SurfaceStep& step)
{
    std::array<double, 2> ends{};
    for (const int end : {0, 1}) {
        const char* token = tokenizer.Token(FirstParmToken + end);
        if (token == nullptr || !ReadReal(token, ends[static_cast<std::size_t>(end)]))
            return false;
    }
    const int order = surface.order[static_cast<std::size_t>(step.direction)];
    step.controlPointCount = ControlPointCount(2 * (std::int64_t{order} - 1), order);
    step.valueCount = 2;
    surface.values.Append(2, ends.data());
    return true;
}

} // namespace

bool ReadSurface(ObjReading& reading)
{
    if (reading.tokenizer.TokenCount() < FirstIndexToken)
        return false;
    const auto form = static_cast<CurveForm>(reading.freeform.cstype);
    if (form == FormBezier || form == FormBSpline)
        return NewSurface(reading);
    if (form != FormNone)
        reading.events.OnUnsupportedSurface(form);
    return false;
}

SurfaceData* CurrentSurface(ObjReading& reading)
{
    if (reading.freeform.freeformKind != FreeformSurface || !reading.currentGroup->geometry)
        return nullptr;
    auto& surfaces = reading.currentGroup->geometry->surfaces;
    return surfaces.empty() ? nullptr : &surfaces.back();
}

bool ReadSurfaceParm(ObjReading& reading)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    FreeformAttributes& freeform = reading.freeform;
    SurfaceData* const surface = CurrentSurface(reading);
    if (surface == nullptr || tokenizer.TokenCount() < FirstParmToken)
        return false;
    const bool isU = IsKeyword(tokenizer.Token(1), "u");
    if ((!isU && !IsKeyword(tokenizer.Token(1), "v")) || freeform.cstype == FormNone)
        return false;
    if (freeform.cstype != FormBSpline && freeform.cstype != FormBezier)
        return true;
    const bool isBSpline = freeform.cstype == FormBSpline;
    SurfaceStep step{.kind = isBSpline ? SurfaceStep::Knots : SurfaceStep::PatchKnots,
                     .direction = isU ? 0 : 1,
                     .controlPointCount = SurfaceStep::CountStays};
    const bool good = isBSpline ? ReadBSplineKnots(tokenizer, *surface, step)
                                : ReadBezierKnots(tokenizer, *surface, step);
    if (good) {
        (isU ? freeform.parmUSet : freeform.parmVSet) = true;
        step.completes = freeform.parmUSet && freeform.parmVSet;
        surface->faceCount += static_cast<int>(step.completes);
    }
    if (good || isBSpline) // a patch keeps its knots until both values are there
        surface->steps.Append(step);
    return good;
}
