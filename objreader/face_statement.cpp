#include "objreader/group_object.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

#include <array>
#include <cstdlib>

namespace {

constexpr int MostFields = 3;

/// A corner cut into its fields, each with its number; an empty field has none.
struct CornerFields
{
    std::array<int, MostFields> numbers{};
    std::array<bool, MostFields> present{};
    int count = 0;
};

CornerFields CutCorner(const char* token)
{
    CornerFields fields;
    for (;; ++token) {
        const bool hasRoom = fields.count < MostFields;
        if (hasRoom && *token != '/' && *token != '\0') {
            const auto field = static_cast<std::size_t>(fields.count);
            fields.present[field] = true;
            fields.numbers[field] = TakeInteger(token);
        }
        while (*token != '/' && *token != '\0')
            ++token;
        ++fields.count;
        if (*token == '\0')
            return fields;
    }
}

} // namespace

bool CReadOBJ::ResolveIndex(int& index, int count)
{
    // Widened, so that the lowest index has a magnitude too.
    const std::int64_t wide = index;
    if (wide < 0 && -wide <= count) {
        index += count;
        return true;
    }
    if (wide >= 1 && wide <= count) {
        --index;
        return true;
    }
    index = -1;
    ++BogusIndexCount;
    return false;
}

int CReadOBJ::ParseCorner(const char* token, int& vi, int& ti, int& ni, int& bad_field)
{
    const CornerFields fields = CutCorner(token);
    vi = ti = ni = -1;
    bad_field = BadFieldNone;
    if (fields.count > MostFields)
        return fields.count;

    struct Target
    {
        int& index;
        int listLength;
        BadField field;
    };
    const std::array<Target, MostFields> targets{{{vi, vertices.Count(), BadFieldVertex},
                                                  {ti, texCoords.Count(), BadFieldTexture},
                                                  {ni, normals.Count(), BadFieldNormal}}};
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (!fields.present[i])
            continue;
        targets[i].index = fields.numbers[i];
        if (!ResolveIndex(targets[i].index, targets[i].listLength)) {
            bad_field = targets[i].field;
            break;
        }
    }
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

/// Adds a corner to the last face. `fieldCount` is that of the face, 0 until a corner has set it; a
/// corner whose fields do not agree with it is no part of the face, and false.
bool CReadOBJ::ReadCorner(const char* token, int& fieldCount, Geometry& geometry)
{
    geometry.corners.Append({});
    int badField = BadFieldNone;
    V_TN_IDX corner;
    const int fields = ParseCorner(token, corner.vi, corner.ti, corner.ni, badField);
    if (fields > MostFields)
        return false;

    const bool hasVertexField = *token != '/';
    if (hasVertexField) {
        if (fieldCount == 0)
            fieldCount = fields;
        if (fields != fieldCount)
            return false;
    }
    if (badField != BadFieldNone)
        PrintBadCorner(badField, token);
    if (ImportAsMorphTarget)
        corner.ti = corner.ni = -1;
    *geometry.corners.Last() = corner;
    ++geometry.faces.Last()->cornerCount;
    return true;
}
