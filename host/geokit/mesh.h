#pragma once

#include "host/geokit/color.h"
#include "host/geokit/interval.h"
#include "host/geokit/object.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/xform.h"
#include "host/runtime/work_sharing.h"

#include <array>
#include <memory>
#include <span>

/// A triangle or quad by the indices of its mesh vertices; a triangle repeats its third index in
/// the fourth place. A plain value; nothing here fails.
struct GK_MeshFace
{
    std::array<int, 4> vi{-1, -1, -1, -1};

    [[nodiscard]] bool IsTriangle() const { return vi[2] == vi[3]; }
    [[nodiscard]] bool IsQuad() const { return vi[2] != vi[3]; }

    /// Returns true when all four indices are at least 0 and below `vertexCount`, and the three or
    /// four corners are pairwise different both as indices and as positions. `vertices` holds that
    /// many positions.
    [[nodiscard]] bool IsValid(int vertexCount, const GK_3fPoint* vertices) const;

    /// Drops corners that repeat an earlier one, by index or position. When three or four are left
    /// the face becomes that triangle or quad; returns true. Otherwise, or when an index is out of
    /// range, it stays as it was; returns false.
    bool Repair(int vertexCount, const GK_3fPoint* vertices);

    friend bool operator==(const GK_MeshFace&, const GK_MeshFace&) = default;
};

inline bool GK_MeshFace::IsValid(int vertexCount, const GK_3fPoint* vertices) const
{
    const auto [a, b, c, d] = vi;
    const auto inRange = [vertexCount](int index) { return index >= 0 && index < vertexCount; };
    if (!inRange(a) || !inRange(b) || !inRange(c) || !inRange(d))
        return false;
    const auto differ = [vertices](int i, int j) { return i != j && vertices[i] != vertices[j]; };
    if (!differ(a, b) || !differ(b, c) || !differ(c, a))
        return false;
    return c == d || (differ(d, a) && differ(d, b) && differ(d, c));
}

/// A view of one polygon of a mesh: its mesh vertices in order, and the indices of the mesh faces
/// that together cover it. Valid until a polygon is added to its list or removed.
struct GK_MeshNgon
{
    std::span<int> vi;
    std::span<int> fi;
};

/// The same, read-only.
struct GK_MeshConstNgon
{
    std::span<const int> vi;
    std::span<const int> fi;
};

/// The polygons of a mesh, kept end to end in one block. Adding throws std::bad_alloc when out of
/// memory. Any thread may use a list, one thread at a time while it changes.
class GK_MeshNgonList
{
public:
    [[nodiscard]] int Count() const { return m_ngons.Count(); }

    /// Adds and returns a polygon of `vertexCount` vertices (3 or more) and `vertexCount` - 2
    /// faces, all indices -1 until they are set through the result.
    GK_MeshNgon AddNgon(int vertexCount);

    /// Return the polygon at `index`, which must be one of the list's.
    [[nodiscard]] GK_MeshNgon Ngon(int index);
    [[nodiscard]] GK_MeshConstNgon Ngon(int index) const;

    /// Makes a polygon's face list shorter by keeping its first `count` entries.
    void SetFaceCount(int index, int count) { m_ngons[index].faceCount = count; }

    /// Removes the polygons without faces and keeps the order of the others.
    void RemoveEmpty();

    /// Reverses every polygon's vertices; its first vertex stays the first.
    void Reverse();

private:
    struct Place
    {
        int first;
        int vertexCount;
        int faceCount;
    };

    GK_SimpleArray<Place> m_ngons;
    GK_SimpleArray<int> m_indices;
};

/// Which mesh vertices are at the same place: those with equal single-precision positions are one
/// topological vertex. A position with a coordinate that is not a number equals none, and -0 equals
/// 0. Topological vertices are numbered by their lowest mesh vertex. Constant once made: any number
/// of threads may read it. The constructor throws std::bad_alloc when out of memory.
class GK_MeshTopology
{
public:
    explicit GK_MeshTopology(std::span<const GK_3fPoint> vertices);

    [[nodiscard]] int VertexCount() const { return m_count; }

    /// Returns the topological vertex of a mesh vertex.
    [[nodiscard]] int TopologicalVertex(int meshVertex) const { return m_vertexMap[meshVertex]; }

private:
    GK_SimpleArray<int> m_vertexMap;
    int m_count = 0;
};

/// A polygon mesh. The per-vertex lists (normals, texture coordinates, surface parameters, colours)
/// are either empty or as long as the vertex list once the mesh is complete; while it is being made
/// they may be shorter. It owns all its lists. Operations on all vertices or faces throw
/// std::bad_alloc when out of memory; the mesh can then only be destroyed. Any thread may use a
/// mesh, one thread at a time: also IsClosed, Volume and Topology may keep what they find out.
/// Operations that take threads may share their work among them; the result does not depend on how
/// many there are.
class GK_Mesh : public GK_Geometry
{
public:
    GK_SimpleArray<GK_3fPoint> vertices;
    GK_SimpleArray<GK_3fVector> normals;
    GK_SimpleArray<GK_2fPoint> textureCoordinates;
    GK_SimpleArray<GK_2dPoint> surfaceParameters;
    GK_SimpleArray<GK_Color> colors;
    GK_SimpleArray<GK_MeshFace> faces;

    /// The domains of the surface parameters and of the packed textures, by direction.
    std::array<GK_Interval, 2> surfaceParameterDomain;
    std::array<GK_Interval, 2> packedTextureDomain;

    [[nodiscard]] int VertexCount() const { return vertices.Count(); }
    [[nodiscard]] int FaceCount() const { return faces.Count(); }
    [[nodiscard]] bool HasVertexNormals() const;

    /// Return the double-precision vertices, which the mesh owns. While they are not marked valid
    /// they are whatever the maker of the mesh has put there.
    [[nodiscard]] GK_SimpleArray<GK_3dPoint>& DoublePrecisionVertices() { return m_dVertices; }
    [[nodiscard]] const GK_SimpleArray<GK_3dPoint>& DoublePrecisionVertices() const
    {
        return m_dVertices;
    }

    /// Makes the single-precision vertices again from the double-precision ones.
    void UpdateSinglePrecisionVertices();

    void SetDoublePrecisionVerticesAsValid() { m_dVerticesValid = true; }
    [[nodiscard]] bool DoublePrecisionVerticesAreValid() const { return m_dVerticesValid; }

    /// Returns the list of polygons, which the mesh owns, made when there is none yet; null when
    /// none is available.
    [[nodiscard]] GK_MeshNgonList* ModifyNgonList();

    /// Returns the list of polygons, or null when the mesh never had one.
    [[nodiscard]] const GK_MeshNgonList* NgonList() const { return m_ngons.get(); }

    /// Removes faces that are not valid, polygons left without a face, and vertices that no face
    /// and no polygon names. The per-vertex lists stay in step; a colour list whose length differs
    /// from the vertex count is dropped.
    void Compact(KelvoWorkSharing* threads = nullptr);

    /// Returns the topology of the vertices as they are now. The mesh owns it and keeps it until a
    /// member operation changes the vertices.
    [[nodiscard]] const GK_MeshTopology& Topology() const;

    /// Sets as every vertex's normal the sum, made unit, of the unit normals of the faces that use
    /// it; (0, 0, 1) where that is zero. The normal of a quad is the cross product of its
    /// diagonals. A face without area, or whose area is not finite, adds nothing.
    void ComputeVertexNormals(KelvoWorkSharing* threads = nullptr);

    /// Returns true when there is at least one face and every edge between topological vertices
    /// belongs to two faces exactly; false when a face names a vertex that is not there.
    [[nodiscard]] bool IsClosed(KelvoWorkSharing* threads = nullptr) const;

    /// Returns the sum of the signed tetrahedra that the faces span with a point, a quad (a, b, c,
    /// d) taken as (a, b, c) and (a, c, d): positive when a closed mesh faces outward. No estimate
    /// of the error is made, so the second argument must be null.
    [[nodiscard]] double Volume(const GK_3dPoint& basePoint, double* errorEstimate,
                                KelvoWorkSharing* threads = nullptr) const;

    /// Reverses every face and polygon, whose first corners stay the first, and negates the
    /// normals.
    void Flip();

    /// Moves the vertices, single and double precision, and turns the normals by the linear part,
    /// after which they are made unit again.
    void Transform(const GK_Xform& xform);

private:
    GK_SimpleArray<GK_3dPoint> m_dVertices;
    bool m_dVerticesValid = false;
    std::unique_ptr<GK_MeshNgonList> m_ngons;
    mutable std::unique_ptr<GK_MeshTopology> m_topology;
};
