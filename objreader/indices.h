#pragma once

#include "objreader/reading_events.h"
#include "objreader/vertex_lists.h"

struct V_TN_IDX;

/// Turns an OBJ index (from 1, or negative and counting back from the last of `count` elements)
/// into a 0-based one. False when it names no element: the index is then -1 and has been added to
/// `bogusIndexCount`.
inline bool ResolveIndex(int& index, int count, int& bogusIndexCount)
{
    if (index >= 1 && index <= count) {
        --index;
        return true;
    }
    if (index < 0 && index >= -count) {
        index += count;
        return true;
    }
    index = -1;
    ++bogusIndexCount;
    return false;
}

/// Reads one corner, "v", "v/vt", "v/vt/vn" or "v//vn"; returns how many fields it has. An empty
/// field's index is -1. After a bad field nothing more is read. A corner of more than three fields
/// is not read at all. The mesh vertex of `corner` stays as it is.
int ParseCorner(const char* token, const VertexLists& lists, V_TN_IDX& corner, BadField& bad_field,
                int& bogusIndexCount);
