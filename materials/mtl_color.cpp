#include "materials/mtl_color.h"

#include "materials/mtl_statements.h"
#include "objreader/numbers.h"
#include "objreader/obj_line_tokenizer.h"

#include "host/geokit/color.h"

namespace {

double ReadFraction(const char* token)
{
    double value = 1.0;
    ReadReal(token, value);
    return value;
}

} // namespace

bool ReadMtlColor(GK_Color& color, const CObjLineTokenizer& tokenizer)
{
    color.SetFractionalRGB(1.0, 1.0, 1.0);
    if (tokenizer.TokenCount() < 3)
        return false;
    const char* const first = tokenizer.Token(1);
    if (IsShortFor(first, "xyz") || IsShortFor(first, "spectral"))
        return true;
    if (tokenizer.TokenCount() != 4)
        return false;
    color.SetFractionalRGB(ReadFraction(first), ReadFraction(tokenizer.Token(2)),
                           ReadFraction(tokenizer.Token(3)));
    return true;
}
