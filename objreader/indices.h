#pragma once

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
