#include "objreader/group_object.h"
#include "objreader/numbers.h"
#include "objreader/read_obj.h"

bool CReadOBJ::ReadVertexIndex(const char* token, int& index)
{
    index = TakeInteger(token);
    return ResolveIndex(index, vertices.Count());
}

bool CReadOBJ::ReadPoint()
{
    const int tokenCount = tokenizer.TokenCount();
    if (tokenCount < 2)
        return false;
    Geometry& geometry = currentGroup->GeometryToFill();
    if (tokenCount > 2)
        return ReadPointCloud(geometry);

    int index = -1;
    if (!ReadVertexIndex(tokenizer.Token(1), index))
        return false;
    geometry.points.Append(vertices[index]);
    return true;
}

/// The points before a bad index stay in the cloud.
bool CReadOBJ::ReadPointCloud(Geometry& geometry)
{
    geometry.cloudEnds.Append(geometry.cloudVertices.Count());
    for (int i = 1; i < tokenizer.TokenCount(); ++i) {
        int index = -1;
        if (!ReadVertexIndex(tokenizer.Token(i), index))
            return false;
        geometry.cloudVertices.Append(index);
        *geometry.cloudEnds.Last() = geometry.cloudVertices.Count();
    }
    return true;
}
