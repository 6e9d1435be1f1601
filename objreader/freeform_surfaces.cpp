#include "objreader/group_object.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"
#include "objreader/unsupported_form.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr int FirstIndexToken = 5; ///< of "surf", behind the keyword and the domain
constexpr int FirstParmToken = 2;  ///< of "parm", behind the keyword and the direction

int Saturate(std::int64_t count)
{
    return static_cast<int>(std::clamp<std::int64_t>(count, 0, std::numeric_limits<int>::max()));
}

/// The number of control points that belongs to a number of knots.
int ControlPointCount(std::int64_t knotCount, int order)
{
    return Saturate(knotCount - order + 2);
}

} // namespace

bool CReadOBJ::ReadSurface()
{
    if (tokenizer.TokenCount() < FirstIndexToken || ShowUnsupportedSurface(cstype))
        return false;
    return (cstype == FormBezier || cstype == FormBSpline) && NewSurface();
}

/// The surface gets knots, control points and a face from the "parm" statements that follow.
bool CReadOBJ::NewSurface()
{
    Geometry& geometry = currentGroup->GeometryToFill();
    const int vertexCount = vertices.Count();
    geometry.surfaceCVs.Empty();
    parmUSet = parmVSet = false;
    freeformKind = FreeformSurface;

    VX_Brep& brep = *geometry.breps.emplace_back(std::make_unique<VX_Brep>());
    auto owned = std::make_unique<VX_NurbsSurface>();
    VX_NurbsSurface& surface = *owned;
    brep.AddSurface(std::move(owned));
    surface.Create(rational, OrderOf(degreeU), OrderOf(degreeV));
    for (const int direction : {0, 1}) {
        double t0 = 0.0;
        double t1 = 0.0;
        if (!ReadReal(tokenizer.Token(1 + 2 * direction), t0) ||
            !ReadReal(tokenizer.Token(2 + 2 * direction), t1))
            return false;
        surface.SetDomain(direction, t0, t1);
    }
    for (int i = FirstIndexToken; i < tokenizer.TokenCount(); ++i) {
        int index = -1;
        if (!ReadInteger(tokenizer.Token(i), index) || !ResolveIndex(index, vertexCount))
            return false;
        geometry.surfaceCVs.Append(index);
    }
    return true;
}

/// The brep of the current group's last surface, or null.
VX_Brep* CReadOBJ::CurrentBrep()
{
    if (freeformKind != FreeformSurface || !currentGroup->geometry)
        return nullptr;
    const auto& breps = currentGroup->geometry->breps;
    return breps.empty() ? nullptr : breps.back().get();
}

bool CReadOBJ::ReadSurfaceParm()
{
    VX_Brep* brep = CurrentBrep();
    GK_NurbsSurface* surface = brep != nullptr ? GK_NurbsSurface::Cast(brep->Surface(0)) : nullptr;
    if (surface == nullptr || tokenizer.TokenCount() < FirstParmToken)
        return false;
    const bool isU = IsKeyword(tokenizer.Token(1), "u");
    if (!isU && !IsKeyword(tokenizer.Token(1), "v"))
        return false;
    const int direction = isU ? 0 : 1;
    if (cstype == FormNone)
        return false;
    if (cstype != FormBSpline && cstype != FormBezier)
        return true;
    if (cstype == FormBSpline ? !ReadBSplineKnots(*surface, direction)
                              : !ReadBezierKnots(*surface, direction))
        return false;
    (isU ? parmUSet : parmVSet) = true;
    if (parmUSet && parmVSet)
        CompleteSurface(*brep, *surface);
    return true;
}

/// Files have one knot more at either end than the kernel.
bool CReadOBJ::ReadBSplineKnots(GK_NurbsSurface& surface, int direction)
{
    GK_SimpleArray<double> knots;
    knots.SetCount(std::max(tokenizer.TokenCount() - FirstParmToken - 2, 0));
    bool good = true;
    for (int i = 0; good && i < knots.Count(); ++i)
        good = ReadReal(tokenizer.Token(FirstParmToken + 1 + i), knots[i]);
    if (good)
        surface.SetControlPointCount(direction,
                                     ControlPointCount(knots.Count(), surface.Order(direction)));
    surface.SetKnots(direction, std::move(knots));
    return good;
}

/// One patch: the first value and the second, each as often as the degree says.
bool CReadOBJ::ReadBezierKnots(GK_NurbsSurface& surface, int direction)
{
    std::array<double, 2> ends{};
    for (const int end : {0, 1}) {
        const char* token = tokenizer.Token(FirstParmToken + end);
        if (token == nullptr || !ReadReal(token, ends[static_cast<std::size_t>(end)]))
            return false;
    }
    const std::int64_t degree = surface.Degree(direction);
    GK_SimpleArray<double> knots;
    // A degree that asks for more control points than the statement named is only noted.
    if (degree < currentGroup->geometry->surfaceCVs.Count()) {
        knots.Reserve(static_cast<int>(2 * degree));
        for (const double value : ends)
            for (std::int64_t i = 0; i < degree; ++i)
                knots.Append(value);
    }
    surface.SetControlPointCount(direction,
                                 ControlPointCount(2 * degree, surface.Order(direction)));
    surface.SetKnots(direction, std::move(knots));
    return true;
}

/// Hands the control points over and makes the face.
void CReadOBJ::CompleteSurface(VX_Brep& brep, GK_NurbsSurface& surface)
{
    const GK_SimpleArray<int>& indices = currentGroup->geometry->surfaceCVs;
    const int countU = surface.ControlPointCount(0);
    const std::int64_t netSize = std::int64_t{countU} * surface.ControlPointCount(1);
    const int stride = surface.ControlPointStride();
    const std::int64_t most = std::numeric_limits<int>::max() / stride;
    // A net that is larger than the indices given is left incomplete, however large it claims to
    // be. As u runs fastest, the place of an index does not depend on the counts: when knots were
    // given before, only what is new is set.
    const int first = surface.ControlPointCapacity();
    const int last = static_cast<int>(std::min({netSize, std::int64_t{indices.Count()}, most}));
    surface.ReserveCVCapacity(last * stride);
    for (int k = first; k < last; ++k) {
        const GK_3dPoint& point = vertices[indices[k]];
        const double values[] = {point.x, point.y, point.z, vertexWeights[indices[k]]};
        surface.SetCV(k % countU, k / countU,
                      surface.IsRational() ? GK::euclidean_rational : GK::not_rational, values);
    }
    brep.NewFace(0);
}
