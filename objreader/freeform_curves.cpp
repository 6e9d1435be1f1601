#include "objreader/indices.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/statements.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

/// After the keyword and the direction.
constexpr int FirstParmToken = 2;

constexpr int MostValues = std::numeric_limits<int>::max();

void AppendPoint(CurveData& curve, const GK_2dPoint& point, double weight)
{
    const double values[] = {point.x, point.y, weight};
    curve.controlPoints.Append(curve.rational ? 3 : 2, values);
}

void AppendPoint(CurveData& curve, const GK_3dPoint& point, double weight)
{
    const double values[] = {point.x, point.y, point.z, weight};
    curve.controlPoints.Append(curve.rational ? 4 : 3, values);
}

/// Appends the control points that the tokens from `firstToken` on name.
bool ReadControlPoints(ObjReading& reading, CurveData& curve, int firstToken)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    const VertexLists& lists = reading.file.lists;
    const bool inSpace = curve.dimension == 3;
    const int listLength = inSpace ? lists.vertices.Count() : lists.paramPoints.Count();
    const std::int64_t size =
        std::int64_t{curve.controlPointCount} * (curve.dimension + (curve.rational ? 1 : 0));
    curve.controlPoints.Reserve(static_cast<int>(std::min<std::int64_t>(size, MostValues)));
    for (int k = 0; k < curve.controlPointCount; ++k) {
        int index = -1;
        if (!ReadInteger(tokenizer.Token(firstToken + k), index) ||
            !ResolveIndex(index, listLength, reading.file.BogusIndexCount))
            return false;
        if (inSpace)
            AppendPoint(curve, lists.Position(index), lists.VertexWeight(index));
        else
            AppendPoint(curve, lists.paramPoints[index], lists.paramWeights[index]);
    }
    return true;
}

/// Returns the curve that "parm" applies to, or null.
CurveData* CurrentCurve(ObjReading& reading)
{
    if (reading.freeform.freeformKind == FreeformParamCurve)
        return &reading.file.trimCurves.back();
    if (reading.freeform.freeformKind != FreeformCurve || !reading.currentGroup->geometry)
        return nullptr;
    auto& curves = reading.currentGroup->geometry->curves;
    return curves.empty() ? nullptr : &curves.back();
}

/// Reads knots, of which files have one more at either end than the kernel.
bool ReadBSplineKnots(ObjReading& reading, CurveData& curve)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    const std::int64_t knotCount = curve.KnotCount();
    const int valueCount = tokenizer.TokenCount() - FirstParmToken;
    curve.knots.Destroy();
    if (valueCount != knotCount + 2 && valueCount != knotCount) {
        reading.events.OnWrongKnotCount();
        return false;
    }
    if (knotCount < 0)
        return true;
    const int first = valueCount == knotCount ? FirstParmToken : FirstParmToken + 1;
    curve.knots.SetCount(static_cast<int>(knotCount));
    for (int i = 0; i < curve.knots.Count(); ++i)
        if (!ReadReal(tokenizer.Token(first + i), curve.knots[i]))
            return false;
    return true;
}

/// Reads knots, each of which counts as often as the degree says.
void ReadBezierKnots(const CObjLineTokenizer& tokenizer, CurveData& curve)
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

/// Begins a curve with its order and the number of control points that the statement names.
void BeginCurve(const ObjReading& reading, CurveData& curve, int dimension, int firstToken)
{
    curve.dimension = dimension;
    curve.rational = reading.freeform.rational;
    curve.order = OrderOf(reading.freeform.degreeU);
    curve.controlPointCount = reading.tokenizer.TokenCount() - firstToken;
}

} // namespace

int OrderOf(int degree)
{
    return degree == std::numeric_limits<int>::max() ? degree : degree + 1;
}

bool ReadCSType(ObjReading& reading)
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
    FreeformAttributes& freeform = reading.freeform;
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    freeform.rational = false;
    freeform.cstype = FormNone;
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 2 || tokenCount > 3)
        return false;
    for (int i = 1; i < tokenCount; ++i) {
        const char* token = tokenizer.Token(i);
        if (IsKeyword(token, "rat")) {
            freeform.rational = true;
            continue;
        }
        const Word* word = std::find_if(std::begin(Words), std::end(Words), [&](const Word& known) {
            return IsKeyword(token, known.text);
        });
        if (word == std::end(Words))
            return false;
        freeform.cstype = word->form;
    }
    return true;
}

bool ReadDegree(ObjReading& reading)
{
    FreeformAttributes& freeform = reading.freeform;
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    freeform.degreeU = freeform.degreeV = -1;
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 2 || tokenCount > 3 || !ReadInteger(tokenizer.Token(1), freeform.degreeU))
        return false;
    return tokenCount == 2 || ReadInteger(tokenizer.Token(2), freeform.degreeV);
}

/// The curve is kept, whatever is wrong with the rest of its statement.
bool ReadCurve(ObjReading& reading, bool bParameterSpace)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    if (tokenizer.TokenCount() < 3)
        return false;
    const auto form = static_cast<CurveForm>(reading.freeform.cstype);
    if (form != FormBezier && form != FormBSpline) {
        if (form != FormNone)
            reading.events.OnUnsupportedCurve(form);
        return false;
    }
    if (bParameterSpace) {
        constexpr int FirstPointToken = 1;
        CurveData& curve = reading.file.trimCurves.emplace_back();
        reading.freeform.freeformKind = FreeformParamCurve;
        BeginCurve(reading, curve, 2, FirstPointToken);
        return ReadControlPoints(reading, curve, FirstPointToken);
    }
    constexpr int FirstPointToken = 3; // after the domain, which the knots decide
    CurveData& curve = reading.currentGroup->GeometryToFill().curves.emplace_back();
    reading.freeform.freeformKind = FreeformCurve;
    double end = 0.0;
    if (!ReadReal(tokenizer.Token(1), end) || !ReadReal(tokenizer.Token(2), end))
        return false;
    BeginCurve(reading, curve, 3, FirstPointToken);
    return ReadControlPoints(reading, curve, FirstPointToken);
}

bool ReadParm(ObjReading& reading)
{
    switch (reading.freeform.freeformKind) {
    case FreeformCurve:
    case FreeformParamCurve:
        return ReadCurveParm(reading);
    case FreeformSurface:
        return ReadSurfaceParm(reading);
    default:
        return true;
    }
}

bool ReadCurveParm(ObjReading& reading)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    CurveData* const curve = CurrentCurve(reading);
    if (curve == nullptr || tokenizer.TokenCount() < 2 || !IsKeyword(tokenizer.Token(1), "u"))
        return false;
    switch (reading.freeform.cstype) {
    case FormBSpline:
        return ReadBSplineKnots(reading, *curve);
    case FormBezier:
        ReadBezierKnots(tokenizer, *curve);
        return true;
    case FormNone:
        return false;
    default:
        return true;
    }
}
