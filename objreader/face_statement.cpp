#include "objreader/group_object.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

#include <cstdint>
#include <limits>

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

/// Reads a field that may be anything and steps to its end.
[[gnu::noinline]] const char* ReadAnyField(const char* text, std::int64_t& number)
{
    if (EndsField(*text))
        return text;
    number = TakeInteger(text);
    while (!EndsField(*text))
        ++text;
    return text;
}

/// Reads a field and steps to its end. Nearly all fields are a few digits; this is done for every
/// index of a file, so these get by without a call.
[[gnu::always_inline]] inline const char* ReadField(const char* text, std::int64_t& number)
{
    const DigitRun run = ReadDigits(text);
    if (run.count == 0 || !EndsField(text[run.count]))
        return ReadAnyField(text, number);
    number = run.value;
    return text + run.count;
}

/// Fields beyond the third are only counted.
inline CornerFields CutCorner(const char* text)
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
[[gnu::always_inline]] inline CReadOBJ::BadField
ResolveFields(CReadOBJ& reader, const CornerFields& fields, V_TN_IDX& corner)
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

} // namespace

int CReadOBJ::ParseCorner(const char* token, int& vi, int& ti, int& ni, int& bad_field)
{
    const CornerFields fields = CutCorner(token);
    V_TN_IDX corner;
    bad_field = BadFieldNone;
    if (fields.count <= MostFields)
        bad_field = ResolveFields(*this, fields, corner);
    vi = corner.vi;
    ti = corner.ti;
    ni = corner.ni;
    return fields.count;
}

bool CReadOBJ::NewGroupMesh()
{
    auto mesh = std::make_unique<GK_Mesh>();
    for (const int direction : {0, 1}) {
        mesh->SetSurfaceParameterDomain(direction, GK_Interval(0.0, 1.0));
        mesh->SetPackedTextureDomain(direction, GK_Interval(0.0, 1.0));
    }
    currentGroup->GeometryToFill().mesh = std::move(mesh);
    return true;
}

/// Adds a corner to the last face. `fieldCount` is that of the face, 0 until a corner has set it; a
/// corner whose fields do not agree with it is no part of the face, and false.
inline bool CReadOBJ::ReadCorner(const char* token, int& fieldCount, Geometry& geometry)
{
    V_TN_IDX& corner = *geometry.corners.AppendUnset(1);
    corner = {};
    const CornerFields fields = CutCorner(token);
    if (fields.count > MostFields)
        return false;

    V_TN_IDX read;
    const BadField badField = ResolveFields(*this, fields, read);
    if (fields.vertex != NoNumber) {
        if (fieldCount == 0)
            fieldCount = fields.count;
        if (fields.count != fieldCount)
            return false;
    }
    if (badField != BadFieldNone)
        PrintBadCorner(badField, token);
    if (ImportAsMorphTarget)
        read.ti = read.ni = -1;
    corner = read;
    ++geometry.faces.Last()->cornerCount;
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
    int fieldCount = 0;
    for (int i = 1; i < tokenCount; ++i) {
        if (!ReadCorner(tokenizer.Token(i), fieldCount, geometry))
            return false;
    }
    return true;
}
