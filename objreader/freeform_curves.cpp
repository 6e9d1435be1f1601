#include "objreader/group_object.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"
#include "objreader/unsupported_form.h"

#include "host/app/app.h"
#include "host/app/localize.h"

#include <algorithm>
#include <limits>

namespace {

/// Behind the keyword and the direction.
constexpr int FirstParmToken = 2;

} // namespace

int CReadOBJ::OrderOf(int degree)
{
    return degree == std::numeric_limits<int>::max() ? degree : degree + 1;
}

bool CReadOBJ::ReadCSType()
{
    struct Word
    {
        std::string_view text;
        CurveForm form;
    };
    constexpr Word Words[] = {{"bmatrix", FormBasisMatrix},
                              {"bezier", FormBezier},
                              {"bspline", FormBSpline},
                              {"cardinal", FormCardinal},
                              {"taylor", FormTaylor}};
    rational = false;
    cstype = FormNone;
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 2 || tokenCount > 3)
        return false;
    for (int i = 1; i < tokenCount; ++i) {
        const char* token = tokenizer.Token(i);
        if (IsKeyword(token, "rat")) {
            rational = true;
            continue;
        }
        const Word* word = std::find_if(std::begin(Words), std::end(Words), [&](const Word& known) {
            return IsKeyword(token, known.text);
        });
        if (word == std::end(Words))
            return false;
        cstype = word->form;
    }
    return true;
}

bool CReadOBJ::ReadDegree()
{
    degreeU = degreeV = -1;
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 2 || tokenCount > 3 || !ReadInteger(tokenizer.Token(1), degreeU))
        return false;
    return tokenCount == 2 || ReadInteger(tokenizer.Token(2), degreeV);
}

/// The curve is kept from its statement's first look on, whatever is wrong with the rest.
bool CReadOBJ::ReadCurve(bool bParameterSpace)
{
    if (tokenizer.TokenCount() < 3 || ShowUnsupportedCurve(cstype))
        return false;
    if (cstype != FormBezier && cstype != FormBSpline)
        return false;
    if (bParameterSpace) {
        freeformKind = FreeformParamCurve;
        return ReadControlPoints(trimCurves.AppendNew(), 1, bParameterSpace);
    }
    auto& curves = currentGroup->GeometryToFill().curves;
    VX_NurbsCurve& curve = *curves.emplace_back(std::make_unique<VX_NurbsCurve>());
    freeformKind = FreeformCurve;
    double u0 = 0.0;
    double u1 = 0.0;
    if (!ReadReal(tokenizer.Token(1), u0) || !ReadReal(tokenizer.Token(2), u1))
        return false;
    curve.SetDomain(u0, u1);
    return ReadControlPoints(curve, 3, bParameterSpace);
}

bool CReadOBJ::ReadControlPoints(VX_NurbsCurve& curve, int firstToken, bool bParameterSpace)
{
    const int count = tokenizer.TokenCount() - firstToken;
    const GK::point_style style = rational ? GK::euclidean_rational : GK::not_rational;
    curve.Create(bParameterSpace ? 2 : 3, rational, OrderOf(degreeU), count);
    for (int k = 0; k < count; ++k) {
        int index = -1;
        if (!ReadInteger(tokenizer.Token(firstToken + k), index) ||
            !ResolveIndex(index, bParameterSpace ? paramPoints.Count() : vertices.Count()))
            return false;
        if (bParameterSpace) {
            const GK_2dPoint& point = paramPoints[index];
            const double values[] = {point.x, point.y, paramWeights[index]};
            curve.SetCV(k, style, values);
        } else {
            const GK_3dPoint& point = vertices[index];
            const double values[] = {point.x, point.y, point.z, vertexWeights[index]};
            curve.SetCV(k, style, values);
        }
    }
    return true;
}

bool CReadOBJ::ReadParm()
{
    switch (freeformKind) {
    case FreeformCurve:
    case FreeformParamCurve:
        return ReadCurveParm();
    case FreeformSurface:
        return ReadSurfaceParm();
    default:
        return true;
    }
}

/// The curve that "parm" applies to, or null.
VX_NurbsCurve* CReadOBJ::CurrentCurve()
{
    if (freeformKind == FreeformParamCurve)
        return trimCurves.Last();
    if (freeformKind != FreeformCurve || !currentGroup->geometry)
        return nullptr;
    const auto& curves = currentGroup->geometry->curves;
    return curves.empty() ? nullptr : curves.back().get();
}

bool CReadOBJ::ReadCurveParm()
{
    VX_NurbsCurve* curve = CurrentCurve();
    if (curve == nullptr || tokenizer.TokenCount() < 2 || !IsKeyword(tokenizer.Token(1), "u"))
        return false;
    switch (cstype) {
    case FormBSpline:
        return ReadBSplineKnots(*curve);
    case FormBezier:
        ReadBezierKnots(*curve);
        return true;
    case FormNone:
        return false;
    default:
        return true;
    }
}

/// Files have one knot more at either end than the kernel.
bool CReadOBJ::ReadBSplineKnots(GK_NurbsCurve& curve)
{
    const std::int64_t knotCount = curve.KnotCount();
    const int valueCount = tokenizer.TokenCount() - FirstParmToken;
    curve.knots.Destroy();
    if (valueCount != knotCount + 2 && valueCount != knotCount) {
        KelvoApp().Print(KvLocalizeString(
            L"Knot count does not correspond with control point count in the curve.\n", 25987));
        return false;
    }
    if (knotCount < 0)
        return true;
    const int first = valueCount == knotCount ? FirstParmToken : FirstParmToken + 1;
    curve.knots.SetCount(static_cast<int>(knotCount));
    for (int i = 0; i < curve.knots.Count(); ++i) {
        double value = 0.0;
        if (!ReadReal(tokenizer.Token(first + i), value))
            return false;
        curve.SetKnot(i, value);
    }
    return true;
}

/// Every value counts as often as the degree says.
void CReadOBJ::ReadBezierKnots(GK_NurbsCurve& curve)
{
    GK_SimpleArray<double> values;
    for (int i = FirstParmToken; i < tokenizer.TokenCount(); ++i)
        if (double value = 0.0; ReadReal(tokenizer.Token(i), value))
            values.Append(value);
    const std::int64_t degree = std::int64_t{curve.order} - 1;
    const std::int64_t knotCount = degree * values.Count();
    // A curve with more knots than its control points can use is no curve. Where they are many they
    // are not kept, so that a great degree takes no room.
    constexpr std::int64_t MostUseless = 1000;
    constexpr std::int64_t UsualDegree = 16;
    const bool useful = knotCount <= curve.KnotCount() && degree <= curve.controlPointCount;
    curve.knots.Destroy();
    if (knotCount <= 0 || (!useful && knotCount > MostUseless && degree > UsualDegree))
        return;
    curve.knots.Reserve(static_cast<int>(knotCount));
    for (const double value : values)
        for (std::int64_t i = 0; i < degree; ++i)
            curve.knots.Append(value);
}
