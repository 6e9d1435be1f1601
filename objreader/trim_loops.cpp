#include "objreader/indices.h"
#include "objreader/keyword.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/statements.h"

namespace {

constexpr int TokensPerTrim = 3;

bool ReadTrim(ObjReading& reading, int firstToken, TrimData& trim)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    return ReadReal(tokenizer.Token(firstToken), trim.from) &&
           ReadReal(tokenizer.Token(firstToken + 1), trim.to) &&
           ReadInteger(tokenizer.Token(firstToken + 2), trim.curve) &&
           ResolveIndex(trim.curve, static_cast<int>(reading.file.trimCurves.size()),
                        reading.file.BogusIndexCount);
}

} // namespace

bool ReadTrimLoop(ObjReading& reading)
{
    const CObjLineTokenizer& tokenizer = reading.tokenizer;
    SurfaceData* const surface = CurrentSurface(reading);
    if (surface == nullptr || surface->faceCount == 0 ||
        (tokenizer.TokenCount() - 1) % TokensPerTrim != 0)
        return false;
    const bool isTrim = IsKeyword(tokenizer.Token(0), "trim");
    surface->steps.Append({.kind = isTrim ? SurfaceStep::OuterLoop : SurfaceStep::InnerLoop});
    SurfaceStep& loop = *surface->steps.Last();
    for (int i = 1; i < tokenizer.TokenCount(); i += TokensPerTrim) {
        TrimData trim;
        if (!ReadTrim(reading, i, trim))
            return false;
        surface->trims.Append(trim);
        ++loop.valueCount;
    }
    return true;
}
