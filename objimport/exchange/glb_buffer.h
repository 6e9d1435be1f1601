#pragma once

#include "objimport/exchange/object_drawing.h"

#include <array>
#include <cstdint>
#include <span>
#include <tiny_gltf.h>
#include <vector>

/// Gathers the numbers and images of a glTF file, one section for each kind of them, and describes
/// them in its model: an accessor for each list that is added, a buffer view for each section and
/// image, one buffer. What belongs to one section stands end to end.
class GlbBuffer
{
public:
    /// Positions are stored less `origin`, in single precision.
    GlbBuffer(tinygltf::Model& model, const GK_3dPoint& origin) : m_model(model), m_origin(origin)
    {
    }

    /// Each adds a list, which is not empty, and returns the index of its accessor.
    int AddPositions(std::span<const GK_3dPoint> positions);
    int AddNormals(std::span<const GK_3fVector> normals);
    int AddTextureCoordinates(std::span<const GK_2fPoint> coordinates);
    int AddColors(std::span<const GK_Color> colors);

    /// Adds the corners of triangles among so many vertices, of 16 bits where these reach.
    int AddTriangles(std::span<const ObjectDrawing::Triangle> triangles, std::size_t vertexCount);

    /// Adds the bytes of an image and returns a number for it, from 0.
    int AddImage(std::span<const unsigned char> file);

    /// Returns how many positions lie beyond single precision, where its limits stand for them.
    [[nodiscard]] std::size_t ClampedCount() const { return m_clamped; }

    /// Moves everything into the model. Returns the index of the buffer view of the first image.
    /// Throws std::runtime_error when the file cannot hold so much.
    int Finish();

private:
    enum Section
    {
        Positions,
        Normals,
        Coordinates,
        Colors,
        LargeIndices,
        SmallIndices,
        SectionCount
    };

    /// What is not a coordinate of single precision becomes one.
    float Coordinate(double value);

    int AddAccessor(Section section, std::size_t firstByte, std::size_t count, int component,
                    int type);
    void SetBounds(int accessor, std::span<const std::array<float, 3>> positions);
    template <class T>
    void FinishSection(Section section, std::vector<T>& values);
    void FinishImages();

    tinygltf::Model& m_model;
    GK_3dPoint m_origin;
    std::size_t m_clamped = 0;
    std::vector<std::array<float, 3>> m_positions;
    std::vector<std::array<float, 3>> m_normals;
    std::vector<std::array<float, 2>> m_coordinates;
    std::vector<std::array<std::uint16_t, 4>> m_colors;
    std::vector<std::uint32_t> m_largeIndices;
    std::vector<std::uint16_t> m_smallIndices;
    std::vector<unsigned char> m_images;
    std::vector<std::size_t> m_imageEnds;
    std::array<int, SectionCount> m_views{}; ///< of each section in the model
};
