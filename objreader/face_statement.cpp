#include "objreader/corner.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/plain_lines.h"
#include "objreader/statements.h"

#include <cstdint>

namespace {

/// Returns the length of the list that a field of a corner refers to.
int ListLength(const VertexLists& lists, BadField field)
{
    if (field == BadFieldVertex)
        return lists.vertices.Count();
    return field == BadFieldTexture ? lists.texCoords.Count() : lists.normals.Count();
}

/// Reads a corner of a face. `fieldCount` is that of the face, 0 until a corner has set it; a
/// corner whose fields do not agree with it is no part of the face, and false.
bool ReadCorner(ObjReading& reading, const char* token, int& fieldCount, V_TN_IDX& corner)
{
    const VertexLists& lists = reading.file.lists;
    corner = {};
    V_TN_IDX parsed;
    BadField badField = BadFieldNone;
    const int count = ParseCorner(token, lists, parsed, badField, reading.file.BogusIndexCount);
    if (count > MostCornerFields)
        return false;
    const bool hasVertex = *token != '/';
    if (hasVertex) {
        if (fieldCount == 0)
            fieldCount = count;
        if (count != fieldCount)
            return false;
    }
    if (badField != BadFieldNone)
        reading.events.OnBadCorner(badField, ListLength(lists, badField), token);
    if (reading.choices.ImportAsMorphTarget)
        parsed.ti = parsed.ni = -1;
    corner = parsed;
    return true;
}

} // namespace

bool ReadFace(ObjReading& reading)
{
    Geometry& geometry = reading.currentGroup->GeometryToFill();
    const int tokenCount = reading.tokenizer.TokenCount();
    if (tokenCount < 4)
        return false;

    geometry.faces.Append({geometry.corners.Count(), 0});
    Face& face = *geometry.faces.Last();
    int fieldCount = 0;
    const char* const* token = reading.tokenizer.Tokens();
    V_TN_IDX* corner = geometry.corners.AppendUnset(tokenCount - 1);
    while (face.cornerCount < tokenCount - 1) {
        if (!ReadCorner(reading, *++token, fieldCount, *corner++)) {
            geometry.corners.SetCount(static_cast<int>(corner - geometry.corners.Array()));
            return false;
        }
        ++face.cornerCount;
    }
    return true;
}

namespace {

/// Takes an index of eight digits at most that names an element of a list. False for all others.
[[gnu::always_inline]] inline bool TakePlainIndex(const char*& text, int listLength, int& index)
{
    const bool negative = *text == '-';
    text += static_cast<int>(negative);
    const std::uint64_t digits = LoadDigits(text);
    const unsigned digitBits = DigitBits(digits);
    if (digitBits == 0)
        return false;
    text += digitBits / 8;
    const auto number = static_cast<int>(DigitsValue(digits, digitBits));
    index = negative ? listLength - number : number - 1;
    return index >= 0 && index < listLength;
}

/// Takes "v", "v/vt", "v/vt/vn" or "v//vn" of plain indices, and returns how many fields that is; 0
/// for all others.
[[gnu::always_inline]] inline int TakePlainCorner(const VertexLists& lists, const char*& text,
                                                  V_TN_IDX& corner)
{
    if (!TakePlainIndex(text, lists.vertices.Count(), corner.vi))
        return 0;
    if (*text != '/')
        return 1;
    ++text;
    if (*text != '/' && !TakePlainIndex(text, lists.texCoords.Count(), corner.ti))
        return 0;
    if (*text != '/')
        return 2;
    ++text;
    return TakePlainIndex(text, lists.normals.Count(), corner.ni) ? 3 : 0;
}

/// Takes plain corners, all of as many fields, up to the line end. False for all others.
bool TakePlainCorners(const VertexLists& lists, const char*& text,
                      GK_SimpleArray<V_TN_IDX>& corners)
{
    int fieldCount = 0;
    while (SkipSpaces(text)) {
        V_TN_IDX corner;
        const int count = TakePlainCorner(lists, text, corner);
        if (count == 0 || (count != fieldCount && fieldCount != 0) || !EndsNumber(*text))
            return false;
        fieldCount = count;
        corners.Append(corner);
    }
    return true;
}

} // namespace

bool ReadPlainFace(CObjLineTokenizer& tokenizer, const char* text, const VertexLists& lists,
                   Geometry& geometry)
{
    const int firstCorner = geometry.corners.Count();
    const bool plain = TakePlainCorners(lists, text, geometry.corners);
    const int cornerCount = geometry.corners.Count() - firstCorner;
    if (!plain || cornerCount < 3 || !tokenizer.SkipLine(text)) {
        geometry.corners.SetCount(firstCorner);
        return false;
    }
    geometry.faces.Append({firstCorner, cornerCount});
    return true;
}
