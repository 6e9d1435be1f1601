#pragma once

#include "host/geokit/class_array.h"
#include "host/geokit/curve_proxy.h"
#include "host/geokit/simple_array.h"
#include "host/geokit/surface.h"

#include <array>
#include <memory>

/// A corner of a brep, where edges end.
class GK_BrepVertex : public GK_Geometry
{
public:
    int vertexIndex = -1;
    GK_3dPoint point;
    double tolerance = GK_UNSET_VALUE; ///< within it everything that ends here lies
};

/// A piece of a 3D curve between two vertices (the same one when closed). The domain increases.
class GK_BrepEdge : public GK_CurveProxy
{
public:
    int edgeIndex = -1;
    int curveIndex = -1;                    ///< of the 3D curve
    std::array<int, 2> vertexIndex{-1, -1}; ///< start and end
    GK_SimpleArray<int> trimIndices;        ///< the trims that run along the edge
    double tolerance = GK_UNSET_VALUE;
};

/// One step of a loop: a piece of a 2D curve in the parameter plane of the face's surface, and the
/// edge that it runs along.
class GK_BrepTrim : public GK_CurveProxy
{
public:
    int trimIndex = -1;
    int curveIndex = -1; ///< of the 2D curve
    int edgeIndex = -1;  ///< -1: the trim collapses to a point, as at the pole of a sphere
    int loopIndex = -1;
    std::array<int, 2> vertexIndex{-1, -1}; ///< start and end, in the direction of the trim
    bool reversed = false;                  ///< the trim runs against its edge
};

/// A closed chain of trims on a face. Outer loops go counter-clockwise in the parameter plane,
/// inner ones clockwise.
class GK_BrepLoop : public GK_Geometry
{
public:
    enum TYPE
    {
        unknown = 0,
        outer = 1,
        inner = 2
    };

    int loopIndex = -1;
    TYPE type = unknown;
    int faceIndex = -1;
    GK_SimpleArray<int> trimIndices; ///< in the order of the chain
};

/// The part of a surface that its loops bound.
class GK_BrepFace : public GK_Geometry
{
public:
    int faceIndex = -1;
    int surfaceIndex = -1;
    GK_SimpleArray<int> loopIndices;

    [[nodiscard]] int LoopCount() const { return loopIndices.Count(); }
};

/// A boundary representation: faces on surfaces, bounded by loops of trims along edges. It owns
/// everything that it is given. Its parts name each other by their index, from 0; an index that is
/// handed in must be one of the brep's unless an operation says otherwise.
///
/// The references that the New... operations and the accessors return are valid until the next part
/// of the same kind is made or parts are removed; keep the index instead. Operations that make
/// parts throw std::bad_alloc when out of memory. Any thread may use a brep, one thread at a time
/// while it changes.
class GK_Brep : public GK_Geometry
{
public:
    GK_Brep() = default;
    GK_Brep(const GK_Brep&) = delete;
    GK_Brep(GK_Brep&&) = default;
    GK_Brep& operator=(const GK_Brep&) = delete;
    GK_Brep& operator=(GK_Brep&&) = default;
    ~GK_Brep() override = default;

    /// Take a surface or curve over, which must not be null, and return its index.
    int AddSurface(std::unique_ptr<GK_Surface> surface);
    int AddTrimCurve(std::unique_ptr<GK_Curve> curve2d);
    int AddEdgeCurve(std::unique_ptr<GK_Curve> curve3d);

    /// Adds the 3D curve along `direction` of a surface of the brep on which the other parameter is
    /// `parameter`, and returns its index. The curve follows changes of the surface.
    int AddIsoCurve(int surfaceIndex, int direction, double parameter);

    /// Removes all faces with their loops, trims, edges, vertices and curves; the surfaces stay.
    void RemoveFaces();

    /// Makes a new face, without loops, on a surface of the brep.
    GK_BrepFace& NewFace(int surfaceIndex);

    /// Makes a new loop, without trims, at the end of the face's loops.
    GK_BrepLoop& NewLoop(GK_BrepLoop::TYPE type, GK_BrepFace& face);

    /// Makes a new vertex.
    GK_BrepVertex& NewVertex(const GK_3dPoint& point, double tolerance);

    /// Makes a new edge from one vertex to another on a 3D curve of the brep, over the sub-domain
    /// (all of it when null), which may be given in either direction and is cut to the curve's
    /// domain.
    GK_BrepEdge& NewEdge(const GK_BrepVertex& start, const GK_BrepVertex& end, int curve3dIndex,
                         const GK_Interval* subdomain, double tolerance);

    /// Makes a new trim of the edge at the end of the loop, along all of a 2D curve of the brep. It
    /// goes from the edge's start vertex to its end vertex, or back when `reversedOnEdge` is not 0.
    GK_BrepTrim& NewTrim(GK_BrepEdge& edge, int reversedOnEdge, GK_BrepLoop& loop,
                         int curve2dIndex);

    /// Makes a new trim without an edge, at the end of the loop, that stays at a vertex.
    GK_BrepTrim& NewSingularTrim(const GK_BrepVertex& vertex, GK_BrepLoop& loop, int curve2dIndex);

    /// Adds to a face an outer loop along its surface's boundary, counter-clockwise: four trims in
    /// the order v lowest, u highest, v highest, u lowest. The two sides of a surface that is
    /// closed in a direction share one edge; a side that collapses to a point becomes a trim
    /// without an edge. The surface must be valid.
    ///
    /// `vertices` names existing vertices for the corners, counter-clockwise from both lowest,
    /// `edges` existing edges for the sides and `reversed` whether the loop runs against them; -1
    /// has a new one made. The two arrays are filled in with what was used (-1: no edge). Returns
    /// the loop, or null when the face does not exist or its surface is not valid.
    GK_BrepLoop* NewOuterLoop(int faceIndex, int vertices[4], int edges[4], bool reversed[4]);

    [[nodiscard]] int SurfaceCount() const { return m_surfaces.Count(); }
    [[nodiscard]] int TrimCurveCount() const { return m_trimCurves.Count(); }
    [[nodiscard]] int EdgeCurveCount() const { return m_edgeCurves.Count(); }
    [[nodiscard]] int FaceCount() const { return m_faces.Count(); }
    [[nodiscard]] int LoopCount() const { return m_loops.Count(); }
    [[nodiscard]] int TrimCount() const { return m_trims.Count(); }
    [[nodiscard]] int EdgeCount() const { return m_edges.Count(); }
    [[nodiscard]] int VertexCount() const { return m_vertices.Count(); }

    /// Return the surface or curve of an index, which the brep owns; null when there is none.
    [[nodiscard]] const GK_Surface* Surface(int index) const;
    [[nodiscard]] const GK_Curve* TrimCurve(int index) const;
    [[nodiscard]] const GK_Curve* EdgeCurve(int index) const;

    /// Return a part by its index.
    [[nodiscard]] GK_BrepFace& Face(int index) { return m_faces[index]; }
    [[nodiscard]] const GK_BrepFace& Face(int index) const { return m_faces[index]; }
    [[nodiscard]] GK_BrepLoop& Loop(int index) { return m_loops[index]; }
    [[nodiscard]] const GK_BrepLoop& Loop(int index) const { return m_loops[index]; }
    [[nodiscard]] GK_BrepTrim& Trim(int index) { return m_trims[index]; }
    [[nodiscard]] const GK_BrepTrim& Trim(int index) const { return m_trims[index]; }
    [[nodiscard]] GK_BrepEdge& Edge(int index) { return m_edges[index]; }
    [[nodiscard]] const GK_BrepEdge& Edge(int index) const { return m_edges[index]; }
    [[nodiscard]] GK_BrepVertex& Vertex(int index) { return m_vertices[index]; }
    [[nodiscard]] const GK_BrepVertex& Vertex(int index) const { return m_vertices[index]; }

    /// Removes surfaces that no face uses, edges and vertices that no trim uses, and their curves,
    /// renumbers what is left in the same order, and releases unused memory.
    void RemoveUnused();

    /// Return the object as a brep, or null when it is none.
    static GK_Brep* Cast(GK_Object* object) { return dynamic_cast<GK_Brep*>(object); }
    static const GK_Brep* Cast(const GK_Object* object)
    {
        return dynamic_cast<const GK_Brep*>(object);
    }

private:
    GK_ClassArray<std::shared_ptr<GK_Surface>> m_surfaces; ///< curves along them share them
    GK_ClassArray<std::unique_ptr<GK_Curve>> m_trimCurves;
    GK_ClassArray<std::unique_ptr<GK_Curve>> m_edgeCurves;
    GK_ClassArray<GK_BrepFace> m_faces;
    GK_ClassArray<GK_BrepLoop> m_loops;
    GK_ClassArray<GK_BrepTrim> m_trims;
    GK_ClassArray<GK_BrepEdge> m_edges;
    GK_ClassArray<GK_BrepVertex> m_vertices;
};
