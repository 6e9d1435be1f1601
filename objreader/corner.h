#pragma once

struct VertexLists;

/// One corner of a face. Indices are 0-based; -1 is none.
struct V_TN_IDX
{
    int vi = -1; ///< into the file's positions
    int ti = -1; ///< into the file's texture coordinates
    int ni = -1; ///< into the file's normals

    friend bool operator==(const V_TN_IDX&, const V_TN_IDX&) = default;
};

/// The one order of corners: by position, then normal, then texture coordinate. Less than, equal to
/// or greater than 0.
inline int CompareCorners(const V_TN_IDX& a, const V_TN_IDX& b)
{
    const auto order = [](int x, int y) {
        return static_cast<int>(x > y) - static_cast<int>(x < y);
    };
    if (a.vi != b.vi)
        return order(a.vi, b.vi);
    return a.ni != b.ni ? order(a.ni, b.ni) : order(a.ti, b.ti);
}

/// A corner with more fields is no corner.
inline constexpr int MostCornerFields = 3;

/// Which field of a corner named nothing.
enum BadField : int
{
    BadFieldNone = 0,
    BadFieldVertex = 1,
    BadFieldTexture = 2,
    BadFieldNormal = 3
};

/// Reads one corner, "v", "v/vt", "v/vt/vn" or "v//vn"; returns how many fields it has. An empty
/// field's index is -1. After a bad field nothing more is read. A corner of more than three fields
/// is not read at all.
int ParseCorner(const char* token, const VertexLists& lists, V_TN_IDX& corner, BadField& bad_field,
                int& bogusIndexCount);
