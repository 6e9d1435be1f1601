#include "objimport/check/end_reasons.h"

#include "objimport/check/check_texts.h"
#include "objreader/indices.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"

#include <array>
#include <string>

namespace {

using Tokens = const CObjLineTokenizer&;

std::string Keyword(Tokens tokens)
{
    return ShownName(tokens.Token(0));
}

Phrase About(const LocalText& text, std::vector<PhraseArgument> arguments)
{
    return {text, std::move(arguments)};
}

Phrase Senseless(Tokens tokens)
{
    return About(CheckReasons::Senseless, {Keyword(tokens)});
}

/// Returns why a statement of numbers fails: too few, or one that is not a number.
Phrase WhyNoNumbers(Tokens tokens, int needed)
{
    if (tokens.TokenCount() <= needed)
        return About(CheckReasons::TooFewNumbers, {Keyword(tokens), std::to_string(needed)});
    for (int i = 1; i < tokens.TokenCount(); ++i)
        if (double number = 0.0; !ReadReal(tokens.Token(i), number))
            return About(CheckReasons::NotANumber, {ShownName(tokens.Token(i))});
    return Senseless(tokens);
}

/// Returns why indices fail: the first token from `first` on that is not an integer, or that refers
/// to none of `count` elements.
Phrase WhyBadIndex(Tokens tokens, int first, int step, int count, const LocalText& text)
{
    for (int i = first; i < tokens.TokenCount(); i += step) {
        const char* token = tokens.Token(i);
        int index = 0;
        int bogus = 0;
        if (!ReadInteger(token, index) || !ResolveIndex(index, count, bogus))
            return About(text, {ShownName(token), static_cast<std::size_t>(count)});
    }
    return Senseless(tokens);
}

Phrase WhyNoCurve(const ObjReading& reading, const ToldAtEnd& told, int needed)
{
    Tokens tokens = reading.tokenizer;
    if (tokens.TokenCount() < needed)
        return About(CheckReasons::TooFewWords, {Keyword(tokens)});
    if (told.form != nullptr)
        return About(CheckReasons::FormNotSupported, {told.form});
    if (reading.freeform.cstype == FormNone)
        return About(CheckReasons::NoForm, {Keyword(tokens)});
    const VertexLists& lists = reading.file.lists;
    if (IsKeyword(tokens.Token(0), "curv2"))
        return WhyBadIndex(tokens, 1, 1, lists.paramPoints.Count(),
                           CheckReasons::NamesNoParamPoint);
    const int firstIndex = IsKeyword(tokens.Token(0), "surf") ? 5 : 3;
    for (int i = 1; i < firstIndex; ++i)
        if (double end = 0.0; !ReadReal(tokens.Token(i), end))
            return About(CheckReasons::NotANumber, {ShownName(tokens.Token(i))});
    return WhyBadIndex(tokens, firstIndex, 1, lists.vertices.Count(), CheckReasons::NamesNoVertex);
}

Phrase WhyNoKnots(const ObjReading& reading, const ToldAtEnd& told)
{
    Tokens tokens = reading.tokenizer;
    const bool inSurface = reading.freeform.freeformKind == FreeformSurface;
    const Group_Object& record = *reading.currentGroup;
    const Geometry* geometry = record.geometry.get();
    const bool inPlane = reading.freeform.freeformKind == FreeformParamCurve;
    if (!inPlane && (geometry == nullptr ||
                     (inSurface ? geometry->surfaces.empty() : geometry->curves.empty())))
        return About(CheckReasons::NoOwner, {Keyword(tokens)});
    if (told.wrongKnotCount) {
        const CurveData& curve = inPlane ? reading.file.trimCurves.back() : geometry->curves.back();
        return About(CheckReasons::WrongKnotCount,
                     {std::to_string(curve.KnotCount()), std::to_string(tokens.TokenCount() - 2)});
    }
    const char* direction = tokens.Token(1);
    if (direction == nullptr)
        return About(CheckReasons::TooFewWords, {Keyword(tokens)});
    if (!IsKeyword(direction, "u") && !(inSurface && IsKeyword(direction, "v")))
        return About(CheckReasons::NeitherUNorV, {ShownName(direction)});
    if (reading.freeform.cstype == FormNone)
        return About(CheckReasons::NoForm, {Keyword(tokens)});
    for (int i = 2; i < tokens.TokenCount(); ++i)
        if (double knot = 0.0; !ReadReal(tokens.Token(i), knot))
            return About(CheckReasons::NotANumber, {ShownName(tokens.Token(i))});
    return About(CheckReasons::TooFewWords, {Keyword(tokens)});
}

Phrase WhyNoLoop(const ObjReading& reading)
{
    Tokens tokens = reading.tokenizer;
    const Geometry* geometry = reading.currentGroup->geometry.get();
    if (reading.freeform.freeformKind != FreeformSurface || geometry == nullptr ||
        geometry->surfaces.empty())
        return About(CheckReasons::NoOwner, {Keyword(tokens)});
    if (geometry->surfaces.back().faceCount == 0)
        return About(CheckReasons::NoFaceYet, {Keyword(tokens)});
    if ((tokens.TokenCount() - 1) % 3 != 0)
        return About(CheckReasons::NoTriples, {Keyword(tokens)});
    for (int i = 1; i < tokens.TokenCount(); ++i)
        if (double number = 0.0; !ReadReal(tokens.Token(i), number))
            return About(CheckReasons::NotANumber, {ShownName(tokens.Token(i))});
    return WhyBadIndex(tokens, 3, 3, static_cast<int>(reading.file.trimCurves.size()),
                       CheckReasons::NamesNoCurve);
}

Phrase WhyNoForm(Tokens tokens)
{
    const int count = tokens.TokenCount();
    if (count < 2 || count > 3)
        return About(CheckReasons::WrongWordCount, {Keyword(tokens)});
    constexpr std::array<std::string_view, 6> Words{"rat",     "bmatrix",  "bezier",
                                                    "bspline", "cardinal", "taylor"};
    for (int i = 1; i < count; ++i) {
        const char* token = tokens.Token(i);
        bool known = false;
        for (const std::string_view word : Words)
            known = known || IsKeyword(token, word);
        if (!known)
            return About(CheckReasons::NoSuchForm, {ShownName(token)});
    }
    return Senseless(tokens);
}

Phrase WhyNoDegree(Tokens tokens)
{
    const int count = tokens.TokenCount();
    if (count < 2 || count > 3)
        return About(CheckReasons::WrongWordCount, {Keyword(tokens)});
    return WhyNoNumbers(tokens, count - 1);
}

Phrase WhyNoPoint(const ObjReading& reading)
{
    Tokens tokens = reading.tokenizer;
    if (tokens.TokenCount() < 2)
        return About(CheckReasons::PointNamesNothing, {});
    return WhyBadIndex(tokens, 1, 1, reading.file.lists.vertices.Count(),
                       CheckReasons::NamesNoVertex);
}

} // namespace

Phrase WhyReadingEnds(const ObjReading& reading, const ToldAtEnd& told)
{
    Tokens tokens = reading.tokenizer;
    const char* keyword = tokens.Token(0);
    if (Lower(keyword[0]) == 'v') {
        const char second = Lower(keyword[1]);
        return WhyNoNumbers(tokens, second == 't' || second == 'p' ? 2 : 3);
    }
    if (IsKeyword(keyword, "p"))
        return WhyNoPoint(reading);
    if (IsKeyword(keyword, "cstype"))
        return WhyNoForm(tokens);
    if (IsKeyword(keyword, "deg"))
        return WhyNoDegree(tokens);
    if (IsKeyword(keyword, "parm"))
        return WhyNoKnots(reading, told);
    if (IsKeyword(keyword, "trim") || IsKeyword(keyword, "hole"))
        return WhyNoLoop(reading);
    if (IsKeyword(keyword, "surf"))
        return WhyNoCurve(reading, told, 5);
    return WhyNoCurve(reading, told, 3);
}

const char* NameOfForm(CurveForm form)
{
    switch (form) {
    case FormBasisMatrix:
        return "bmatrix";
    case FormCardinal:
        return "cardinal";
    default:
        return "taylor";
    }
}
