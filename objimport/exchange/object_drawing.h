#pragma once

#include "objimport/exchange/exchange.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// An object of a document as triangles, as a line or as points: what forms for viewing have in
/// common. The positions and what belongs to each of them are views, of the object or of the lists
/// that the drawing owns; it is valid while the document does not change.
struct ObjectDrawing
{
    enum class Kind
    {
        Triangles, ///< of a mesh or brep
        Line,      ///< of a curve: through all positions, in their order
        Points     ///< of a point or point cloud
    };

    using Triangle = std::array<std::uint32_t, 3>;
    using Segment = std::array<GK_3dPoint, 2>;

    ObjectDrawing() = default;
    ObjectDrawing(const ObjectDrawing&) = delete;
    ObjectDrawing(ObjectDrawing&&) = default;
    ObjectDrawing& operator=(const ObjectDrawing&) = delete;
    ObjectDrawing& operator=(ObjectDrawing&&) = default;
    ~ObjectDrawing() = default;

    Kind kind = Kind::Points;
    std::span<const GK_3dPoint> positions;

    // One for each position, or none at all.
    std::span<const GK_3fVector> normals;           ///< unit, but for what a mesh may hold
    std::span<const GK_2fPoint> textureCoordinates; ///< v runs up
    std::span<const GK_Color> colors;

    /// Positions by their indices, counter-clockwise seen from outside; a mesh's faces in their
    /// order, a quad as two.
    std::vector<Triangle> triangles;

    /// Where the faces and polygons of a mesh, or the faces of a brep, end, when edges are wanted.
    std::vector<Segment> edges;

    int material = -1; ///< index of the object's own material in the document; -1: none

    std::size_t facesWithout = 0; ///< faces of a brep that could not be made triangles
    std::string whyWithout;       ///< why, as a clause
    bool isCoarse = false;        ///< a curve or brep is followed less closely than was asked for

    // What the views are of, where that does not stand in the object.
    std::vector<GK_3dPoint> ownPositions;
    std::vector<GK_3fVector> ownNormals;
};

enum class DrawnEdges
{
    None,
    Wanted
};

/// Returns the drawing of an object. Lines and the triangles of breps follow the geometry within
/// the tolerance, which is above 0, and within a thousandth of its size. Throws std::bad_alloc when
/// out of memory.
ObjectDrawing DrawObject(const ExchangeObject& object, double tolerance,
                         DrawnEdges edges = DrawnEdges::None);
