#include "objreader/group_object.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

#include <cstdint>
#include <limits>
#include <new>

namespace {

constexpr int MostFields = 3;

/// Stands for the number of an empty field.
constexpr std::int64_t NoNumber = std::numeric_limits<std::int64_t>::min();

/// A corner cut into its fields, each with its number.
struct CornerFields
{
    std::int64_t vertex = NoNumber;
    std::int64_t texture = NoNumber;
    std::int64_t normal = NoNumber;
    int count = 0;
};

bool EndsField(char c)
{
    return c == '/' || c == '\0';
}

/// Reads a field and steps to its end.
const char* ReadField(const char* text, std::int64_t& number)
{
    if (EndsField(*text))
        return text;
    number = TakeInteger(text);
    while (!EndsField(*text))
        ++text;
    return text;
}

/// Fields beyond the third are only counted.
CornerFields CutCorner(const char* text)
{
    CornerFields fields;
    fields.count = 1;
    text = ReadField(text, fields.vertex);
    if (*text == '\0')
        return fields;
    fields.count = 2;
    text = ReadField(text + 1, fields.texture);
    if (*text == '\0')
        return fields;
    fields.count = 3;
    text = ReadField(text + 1, fields.normal);
    for (; *text != '\0'; ++text)
        fields.count += static_cast<int>(*text == '/');
    return fields;
}

/// Resolves the fields of a corner up to the first that names nothing, and gives which that is.
CReadOBJ::BadField ResolveFields(CReadOBJ& reader, const CornerFields& fields, V_TN_IDX& corner)
{
    const auto resolve = [&reader](std::int64_t number, int& index, int listLength) {
        if (number == NoNumber)
            return true;
        index = static_cast<int>(number);
        return reader.ResolveIndex(index, listLength);
    };
    if (!resolve(fields.vertex, corner.vi, reader.vertices.Count()))
        return CReadOBJ::BadFieldVertex;
    if (!resolve(fields.texture, corner.ti, reader.texCoords.Count()))
        return CReadOBJ::BadFieldTexture;
    if (!resolve(fields.normal, corner.ni, reader.normals.Count()))
        return CReadOBJ::BadFieldNormal;
    return CReadOBJ::BadFieldNone;
}

/// A corner with what its fields name.
struct ParsedCorner
{
    V_TN_IDX indices;
    int fieldCount = 0;
    bool hasVertex = false; ///< the first field is not empty
    CReadOBJ::BadField badField = CReadOBJ::BadFieldNone;
};

ParsedCorner ParseFields(CReadOBJ& reader, const char* token)
{
    const CornerFields fields = CutCorner(token);
    ParsedCorner parsed;
    parsed.fieldCount = fields.count;
    parsed.hasVertex = fields.vertex != NoNumber;
    if (fields.count <= MostFields)
        parsed.badField = ResolveFields(reader, fields, parsed.indices);
    return parsed;
}

} // namespace

int CReadOBJ::ParseCorner(const char* token, int& vi, int& ti, int& ni, int& bad_field)
{
    const ParsedCorner parsed = ParseFields(*this, token);
    vi = parsed.indices.vi;
    ti = parsed.indices.ti;
    ni = parsed.indices.ni;
    bad_field = parsed.badField;
    return parsed.fieldCount;
}

bool CReadOBJ::NewGroupMesh()
{
    std::unique_ptr<GK_Mesh> mesh(new (std::nothrow) GK_Mesh);
    if (mesh == nullptr)
        return false;
    for (const int direction : {0, 1}) {
        mesh->SetSurfaceParameterDomain(direction, GK_Interval(0.0, 1.0));
        mesh->SetPackedTextureDomain(direction, GK_Interval(0.0, 1.0));
    }
    currentGroup->GeometryToFill().mesh = std::move(mesh);
    return true;
}

/// Reads a corner of a face. `fieldCount` is that of the face, 0 until a corner has set it; a
/// corner whose fields do not agree with it is no part of the face, and false.
bool CReadOBJ::ReadCorner(const char* token, int& fieldCount, V_TN_IDX& corner)
{
    corner = {};
    ParsedCorner parsed = ParseFields(*this, token);
    if (parsed.fieldCount > MostFields)
        return false;
    if (parsed.hasVertex) {
        if (fieldCount == 0)
            fieldCount = parsed.fieldCount;
        if (parsed.fieldCount != fieldCount)
            return false;
    }
    if (parsed.badField != BadFieldNone)
        PrintBadCorner(parsed.badField, token);
    if (ImportAsMorphTarget)
        parsed.indices.ti = parsed.indices.ni = -1;
    corner = parsed.indices;
    return true;
}

bool CReadOBJ::ReadFace()
{
    Geometry& geometry = currentGroup->GeometryToFill();
    if (!geometry.mesh && !NewGroupMesh())
        return false;
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 4)
        return false;

    geometry.faces.Append({geometry.corners.Count(), 0});
    Face& face = *geometry.faces.Last();
    int fieldCount = 0;
    const char* const* token = tokenizer.Tokens();
    V_TN_IDX* corner = geometry.corners.AppendUnset(tokenCount - 1);
    while (face.cornerCount < tokenCount - 1) {
        if (!ReadCorner(*++token, fieldCount, *corner++)) {
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

/// Takes "v", "v/vt", "v/vt/vn" or "v//vn" of plain indices, and gives how many fields that is; 0
/// for all others.
[[gnu::always_inline]] inline int TakePlainCorner(const CReadOBJ& reader, const char*& text,
                                                  V_TN_IDX& corner)
{
    if (!TakePlainIndex(text, reader.vertices.Count(), corner.vi))
        return 0;
    if (*text != '/')
        return 1;
    ++text;
    if (*text != '/' && !TakePlainIndex(text, reader.texCoords.Count(), corner.ti))
        return 0;
    if (*text != '/')
        return 2;
    ++text;
    return TakePlainIndex(text, reader.normals.Count(), corner.ni) ? 3 : 0;
}

/// Takes plain corners, all of as many fields, up to the line end. False for all others.
bool TakePlainCorners(const CReadOBJ& reader, const char*& text, GK_SimpleArray<V_TN_IDX>& corners)
{
    int fieldCount = 0;
    while (SkipSpaces(text)) {
        V_TN_IDX corner;
        const int count = TakePlainCorner(reader, text, corner);
        if (count == 0 || (count != fieldCount && fieldCount != 0) || !EndsNumber(*text))
            return false;
        fieldCount = count;
        corners.Append(corner);
    }
    return true;
}

} // namespace

bool CReadOBJ::ReadPlainFace(const char* text)
{
    if (ImportAsMorphTarget)
        return false;
    Geometry& geometry = currentGroup->GeometryToFill();
    const int firstCorner = geometry.corners.Count();
    const bool plain = TakePlainCorners(*this, text, geometry.corners);
    const int cornerCount = geometry.corners.Count() - firstCorner;
    // The mesh comes before the step over the line, which cannot be taken back.
    if (!plain || cornerCount < 3 || (!geometry.mesh && !NewGroupMesh()) ||
        !tokenizer.SkipLine(text)) {
        geometry.corners.SetCount(firstCorner);
        return false;
    }
    geometry.faces.Append({firstCorner, cornerCount});
    return true;
}
