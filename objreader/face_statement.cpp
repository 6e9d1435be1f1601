#include "objreader/corner.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/plain_statements.h"
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

    FaceBlock& block = reading.file.faceBlocks.BlockToFill();
    const FaceRun run{&block, block.values.Count(), block.faceEnds.Count(), 1, AllIndices};
    bool whole = true;
    int fieldCount = 0;
    const char* const* token = reading.tokenizer.Tokens();
    for (int i = 1; i < tokenCount && whole; ++i) {
        V_TN_IDX corner;
        whole = ReadCorner(reading, token[i], fieldCount, corner);
        if (whole)
            for (const int index : {corner.vi, corner.ti, corner.ni})
                block.values.Append(index);
    }
    geometry.hasEmptyCorner |= !whole;
    block.faceEnds.Append(block.values.Count());
    geometry.AddFaces(run);
    return whole;
}

namespace {

/// Takes an index of eight digits at most. False for all else.
[[gnu::always_inline]] inline bool TakePlainIndex(const char*& text, int listLength, int& index,
                                                  int& need, IndexNeeds& needs)
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
    need = std::max(need, number - listLength);
    needs.relative |= negative;
    needs.absolute |= !negative;
    return number != 0;
}

/// Takes "v", "v/vt", "v/vt/vn" or "v//vn" of plain indices, and the form that this is. False for
/// all else.
[[gnu::always_inline]] inline bool TakePlainCorner(const VertexLists& lists, const char*& text,
                                                   int* row, PlainFace& face)
{
    IndexNeeds& needs = face.needs;
    face.form = {};
    if (!TakePlainIndex(text, lists.vertices.Count(), row[0], needs.vertices, needs))
        return false;
    if (*text != '/')
        return true;
    ++text;
    if (*text != '/') {
        face.form = {2, 1, 0};
        if (!TakePlainIndex(text, lists.texCoords.Count(), row[1], needs.texCoords, needs))
            return false;
        if (*text != '/')
            return true;
    }
    ++text;
    const unsigned char at = face.form.stride;
    face.form.normalAt = at;
    face.form.stride = at + 1;
    return TakePlainIndex(text, lists.normals.Count(), row[at], needs.normals, needs);
}

/// Takes plain corners, all of one form, up to the line end. False for all else.
bool TakePlainCorners(const VertexLists& lists, const char*& text, GK_SimpleArray<int>& values,
                      PlainFace& face)
{
    const int first = values.Count();
    CornerForm form;
    while (SkipSpaces(text)) {
        int row[3];
        if (!TakePlainCorner(lists, text, row, face) || !EndsNumber(*text))
            return false;
        if (values.Count() == first)
            form = face.form;
        else if (form != face.form)
            return false;
        int* const place = values.AppendUnset(form.stride);
        for (int i = 0; i < form.stride; ++i)
            place[i] = row[i];
    }
    return true;
}

} // namespace

bool ReadPlainFace(PlainText& text, const char* corners, const VertexLists& lists, FaceBlock& block,
                   PlainFace& face)
{
    const int first = block.values.Count();
    const bool plain = TakePlainCorners(lists, corners, block.values, face);
    const int cornerCount = (block.values.Count() - first) / face.form.stride;
    if (!plain || cornerCount < 3 || !text.SkipLine(corners)) {
        block.values.SetCount(first);
        return false;
    }
    return true;
}
