#include "objreader/corner.h"

#include "objreader/indices.h"
#include "objreader/numbers.h"
#include "objreader/vertex_lists.h"

#include <cstdint>
#include <limits>

namespace {

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

/// Resolves the fields of a corner up to the first that names nothing, and returns which that is.
BadField ResolveFields(const CornerFields& fields, const VertexLists& lists, V_TN_IDX& corner,
                       int& bogusIndexCount)
{
    const auto resolve = [&bogusIndexCount](std::int64_t number, int& index, int listLength) {
        if (number == NoNumber)
            return true;
        index = static_cast<int>(number);
        return ResolveIndex(index, listLength, bogusIndexCount);
    };
    if (!resolve(fields.vertex, corner.vi, lists.vertices.Count()))
        return BadFieldVertex;
    if (!resolve(fields.texture, corner.ti, lists.texCoords.Count()))
        return BadFieldTexture;
    if (!resolve(fields.normal, corner.ni, lists.normals.Count()))
        return BadFieldNormal;
    return BadFieldNone;
}

} // namespace

int ParseCorner(const char* token, const VertexLists& lists, V_TN_IDX& corner, BadField& bad_field,
                int& bogusIndexCount)
{
    const CornerFields fields = CutCorner(token);
    corner.vi = corner.ti = corner.ni = -1;
    bad_field = fields.count <= MostCornerFields
                    ? ResolveFields(fields, lists, corner, bogusIndexCount)
                    : BadFieldNone;
    return fields.count;
}
