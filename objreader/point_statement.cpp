#include "objreader/indices.h"
#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/statements.h"

namespace {

bool ReadVertexIndex(ObjReading& reading, const char* token, int& index)
{
    index = TakeInteger(token);
    return ResolveIndex(index, reading.file.lists.vertices.Count(), reading.file.BogusIndexCount);
}

/// The points before a bad index stay in the cloud.
bool ReadPointCloud(ObjReading& reading, Geometry& geometry)
{
    geometry.cloudEnds.Append(geometry.cloudVertices.Count());
    for (int i = 1; i < reading.tokenizer.TokenCount(); ++i) {
        int index = -1;
        if (!ReadVertexIndex(reading, reading.tokenizer.Token(i), index))
            return false;
        geometry.cloudVertices.Append(index);
        *geometry.cloudEnds.Last() = geometry.cloudVertices.Count();
    }
    return true;
}

} // namespace

bool ReadPoint(ObjReading& reading)
{
    const int tokenCount = reading.tokenizer.TokenCount();
    if (tokenCount < 2)
        return false;
    Geometry& geometry = reading.currentGroup->GeometryToFill();
    if (tokenCount > 2)
        return ReadPointCloud(reading, geometry);

    int index = -1;
    if (!ReadVertexIndex(reading, reading.tokenizer.Token(1), index))
        return false;
    geometry.points.Append(reading.file.lists.Position(index));
    return true;
}
