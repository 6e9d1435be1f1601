#include "objimport/exchange/glb_buffer.h"

#include "objimport/exchange/linear_color.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

static_assert(std::endian::native == std::endian::little, "numbers are stored as they stand");

namespace {

/// tinygltf writes where an accessor begins as an int; a file states its own length in 32 bits, and
/// there has to be room for its description.
constexpr std::size_t MostInSection = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t MostInAll = 0xF0000000;

[[noreturn]] void ThrowTooLarge()
{
    throw std::runtime_error("the document is too large for a GLB, which ends at 4 GB, and at 2 GB "
                             "of positions");
}

/// Returns a unit vector in the direction of a normal, or along Z where it has none.
std::array<float, 3> UnitNormal(const GK_3fVector& normal)
{
    const double x = normal.x;
    const double y = normal.y;
    const double z = normal.z;
    const double square = x * x + y * y + z * z;
    constexpr double NearlyUnit = 1e-5;
    if (std::abs(square - 1.0) < NearlyUnit)
        return {normal.x, normal.y, normal.z};
    if (!(square > 0.0) || !std::isfinite(square))
        return {0.0F, 0.0F, 1.0F};
    const double length = std::sqrt(square);
    return {static_cast<float>(x / length), static_cast<float>(y / length),
            static_cast<float>(z / length)};
}

float FiniteOrZero(float value)
{
    return std::isfinite(value) ? value : 0.0F;
}

void PadToFour(std::vector<unsigned char>& bytes)
{
    bytes.resize((bytes.size() + 3) / 4 * 4);
}

} // namespace

float GlbBuffer::Coordinate(double value)
{
    constexpr float Most = std::numeric_limits<float>::max();
    const auto rounded = static_cast<float>(value);
    if (std::isfinite(rounded))
        return rounded;
    ++m_clamped;
    return std::isnan(value) ? 0.0F : std::copysign(Most, rounded);
}

int GlbBuffer::AddAccessor(Section section, std::size_t firstByte, std::size_t count, int component,
                           int type)
{
    if (firstByte > MostInSection)
        ThrowTooLarge();
    tinygltf::Accessor accessor;
    accessor.bufferView = section; // until the views are made
    accessor.byteOffset = firstByte;
    accessor.componentType = component;
    accessor.count = count;
    accessor.type = type;
    m_model.accessors.push_back(std::move(accessor));
    return static_cast<int>(m_model.accessors.size()) - 1;
}

void GlbBuffer::SetBounds(int accessor, std::span<const std::array<float, 3>> positions)
{
    std::array<float, 3> low = positions.front();
    std::array<float, 3> high = low;
    for (const std::array<float, 3>& position : positions) {
        for (std::size_t i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], position[i]);
            high[i] = std::max(high[i], position[i]);
        }
    }
    tinygltf::Accessor& described = m_model.accessors[static_cast<std::size_t>(accessor)];
    described.minValues.assign(low.begin(), low.end());
    described.maxValues.assign(high.begin(), high.end());
}

int GlbBuffer::AddPositions(std::span<const GK_3dPoint> positions)
{
    const std::size_t first = m_positions.size();
    for (const GK_3dPoint& position : positions) {
        const GK_3dVector from = position - m_origin;
        m_positions.push_back({Coordinate(from.x), Coordinate(from.y), Coordinate(from.z)});
    }
    const int accessor = AddAccessor(Positions, first * sizeof(m_positions[0]), positions.size(),
                                     TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC3);
    SetBounds(accessor, std::span(m_positions).subspan(first));
    return accessor;
}

int GlbBuffer::AddNormals(std::span<const GK_3fVector> normals)
{
    const std::size_t first = m_normals.size();
    for (const GK_3fVector& normal : normals)
        m_normals.push_back(UnitNormal(normal));
    return AddAccessor(Normals, first * sizeof(m_normals[0]), normals.size(),
                       TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC3);
}

int GlbBuffer::AddTextureCoordinates(std::span<const GK_2fPoint> coordinates)
{
    const std::size_t first = m_coordinates.size();
    for (const GK_2fPoint& at : coordinates) // v runs down here
        m_coordinates.push_back({FiniteOrZero(at.x), FiniteOrZero(1.0F - at.y)});
    return AddAccessor(Coordinates, first * sizeof(m_coordinates[0]), coordinates.size(),
                       TINYGLTF_COMPONENT_TYPE_FLOAT, TINYGLTF_TYPE_VEC2);
}

int GlbBuffer::AddColors(std::span<const GK_Color> colors)
{
    constexpr std::uint16_t Most = std::numeric_limits<std::uint16_t>::max();
    const auto channel = [](int value) {
        return static_cast<std::uint16_t>(std::lround(LinearChannel(value) * Most));
    };
    const std::size_t first = m_colors.size();
    for (const GK_Color& color : colors)
        m_colors.push_back(
            {channel(color.Red()), channel(color.Green()), channel(color.Blue()), Most});
    const int accessor = AddAccessor(Colors, first * sizeof(m_colors[0]), colors.size(),
                                     TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT, TINYGLTF_TYPE_VEC4);
    m_model.accessors[static_cast<std::size_t>(accessor)].normalized = true;
    return accessor;
}

int GlbBuffer::AddTriangles(std::span<const ObjectDrawing::Triangle> triangles,
                            std::size_t vertexCount)
{
    // The highest index of 16 bits is not one of a vertex.
    constexpr std::size_t Reach = std::numeric_limits<std::uint16_t>::max();
    const std::size_t count = triangles.size() * 3;
    if (vertexCount <= Reach) {
        const std::size_t first = m_smallIndices.size();
        for (const ObjectDrawing::Triangle& triangle : triangles)
            for (const std::uint32_t corner : triangle)
                m_smallIndices.push_back(static_cast<std::uint16_t>(corner));
        return AddAccessor(SmallIndices, first * sizeof(std::uint16_t), count,
                           TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT, TINYGLTF_TYPE_SCALAR);
    }
    const std::size_t first = m_largeIndices.size();
    for (const ObjectDrawing::Triangle& triangle : triangles)
        m_largeIndices.insert(m_largeIndices.end(), triangle.begin(), triangle.end());
    return AddAccessor(LargeIndices, first * sizeof(std::uint32_t), count,
                       TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT, TINYGLTF_TYPE_SCALAR);
}

int GlbBuffer::AddImage(std::span<const unsigned char> file)
{
    if (m_images.size() + file.size() > MostInSection)
        ThrowTooLarge();
    PadToFour(m_images);
    m_images.insert(m_images.end(), file.begin(), file.end());
    m_imageEnds.push_back(m_images.size());
    return static_cast<int>(m_imageEnds.size()) - 1;
}

/// Moves the values of a section, if there are any, to the end of the buffer.
template <class T>
void GlbBuffer::FinishSection(Section section, std::vector<T>& values)
{
    if (values.empty())
        return;
    std::vector<unsigned char>& bytes = m_model.buffers.front().data;
    PadToFour(bytes);
    const bool areIndices = section == LargeIndices || section == SmallIndices;
    tinygltf::BufferView view;
    view.buffer = 0;
    view.byteOffset = bytes.size();
    view.byteLength = values.size() * sizeof(T);
    view.byteStride = areIndices ? 0 : sizeof(T);
    view.target = areIndices ? TINYGLTF_TARGET_ELEMENT_ARRAY_BUFFER : TINYGLTF_TARGET_ARRAY_BUFFER;
    const auto* from = reinterpret_cast<const unsigned char*>(values.data());
    bytes.insert(bytes.end(), from, from + view.byteLength);
    std::vector<T>().swap(values);
    m_views[section] = static_cast<int>(m_model.bufferViews.size());
    m_model.bufferViews.push_back(std::move(view));
}

void GlbBuffer::FinishImages()
{
    std::vector<unsigned char>& bytes = m_model.buffers.front().data;
    PadToFour(bytes);
    std::size_t first = 0;
    for (const std::size_t end : m_imageEnds) {
        tinygltf::BufferView view;
        view.buffer = 0;
        view.byteOffset = bytes.size() + first;
        view.byteLength = end - first;
        m_model.bufferViews.push_back(std::move(view));
        first = (end + 3) / 4 * 4;
    }
    bytes.insert(bytes.end(), m_images.begin(), m_images.end());
}

int GlbBuffer::Finish()
{
    const std::size_t size =
        m_positions.size() * sizeof(m_positions[0]) + m_normals.size() * sizeof(m_normals[0]) +
        m_coordinates.size() * sizeof(m_coordinates[0]) + m_colors.size() * sizeof(m_colors[0]) +
        m_largeIndices.size() * sizeof(std::uint32_t) +
        m_smallIndices.size() * sizeof(std::uint16_t) + m_images.size();
    if (size > MostInAll)
        ThrowTooLarge();
    if (size == 0)
        return 0;
    m_model.buffers.emplace_back();
    m_model.buffers.front().data.reserve(size + std::size_t{4} * SectionCount);
    FinishSection(Positions, m_positions);
    FinishSection(Normals, m_normals);
    FinishSection(Coordinates, m_coordinates);
    FinishSection(Colors, m_colors);
    FinishSection(LargeIndices, m_largeIndices);
    FinishSection(SmallIndices, m_smallIndices);
    for (tinygltf::Accessor& accessor : m_model.accessors)
        accessor.bufferView = m_views[static_cast<std::size_t>(accessor.bufferView)];
    const auto firstImage = static_cast<int>(m_model.bufferViews.size());
    FinishImages();
    return firstImage;
}
