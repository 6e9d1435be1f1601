#pragma once

#include "host/geokit/color.h"
#include "host/geokit/point.h"
#include "host/geokit/simple_array.h"

/// What was read of the vertex statements of a file, which all other statements refer to by
/// index. The lists only grow, in the order of the file.
struct VertexLists
{
    GK_SimpleArray<GK_3fPoint> vertices;  ///< positions, which are kept in single precision
    bool hasVertexWeights = false;        ///< one is not 1
    GK_SimpleArray<double> vertexWeights; ///< one for each position, when there are any
    bool hasVertexColors = false;
    GK_SimpleArray<GK_Color> vertexColors;  ///< of those positions that carry one
    GK_SimpleArray<GK_2dPoint> paramPoints; ///< points in the parameter space of surfaces
    GK_SimpleArray<double> paramWeights;    ///< one for each parameter point
    GK_SimpleArray<GK_2fPoint> texCoords;
    GK_SimpleArray<GK_3fVector> normals; ///< as in the file, of any length

    /// Returns the position at `index` in double precision.
    [[nodiscard]] GK_3dPoint Position(int index) const
    {
        const GK_3fPoint& point = vertices[index];
        return {point.x, point.y, point.z};
    }

    [[nodiscard]] double VertexWeight(int index) const
    {
        return hasVertexWeights ? vertexWeights[index] : 1.0;
    }

    /// Appends a position and its weight.
    void AddVertex(const GK_3fPoint& position, double weight)
    {
        if (weight != 1.0)
            KeepWeights();
        vertices.Append(position);
        if (hasVertexWeights)
            vertexWeights.Append(weight);
    }

    /// Removes everything and keeps the room.
    void Empty()
    {
        hasVertexWeights = hasVertexColors = false;
        vertices.Empty();
        vertexWeights.Empty();
        vertexColors.Empty();
        paramPoints.Empty();
        paramWeights.Empty();
        texCoords.Empty();
        normals.Empty();
    }

    /// Gives every position a weight of its own.
    void KeepWeights()
    {
        if (hasVertexWeights)
            return;
        hasVertexWeights = true;
        vertexWeights.Reserve(vertices.Count());
        for (int i = 0; i < vertices.Count(); ++i)
            vertexWeights.Append(1.0);
    }
};
