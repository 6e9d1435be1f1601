#include "bench/closed_surface.h"
#include "bench/scene_writers.h"
#include "bench/text_sink.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <span>
#include <vector>

namespace {

/// The same numbers in every run and with every library.
class Random
{
public:
    /// Returns a number below `count`, which is at most 2^32.
    std::size_t Below(std::size_t count) { return ((Next() >> 32) * count) >> 32; }

private:
    std::uint64_t Next()
    {
        m_state += 0x9E3779B97F4A7C15;
        std::uint64_t bits = m_state;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EB;
        return bits ^ (bits >> 31);
    }

    std::uint64_t m_state = 1;
};

void Shuffle(std::span<long long> values, Random& random)
{
    for (std::size_t i = values.size(); i > 1; --i)
        std::swap(values[i - 1], values[random.Below(i)]);
}

/// A numbering of places, shuffled.
class Numbering
{
public:
    Numbering(long long count, Scatter scatter)
        : m_places(static_cast<std::size_t>(count)), m_numbers(static_cast<std::size_t>(count))
    {
        std::iota(m_places.begin(), m_places.end(), 0LL);
        Random random;
        const std::size_t blockSize = scatter == Scatter::Wholly ? m_places.size() : 1000;
        for (std::size_t first = 0; first < m_places.size(); first += blockSize)
            Shuffle(
                std::span(m_places).subspan(first, std::min(blockSize, m_places.size() - first)),
                random);
        for (std::size_t i = 0; i < m_places.size(); ++i)
            m_numbers[static_cast<std::size_t>(m_places[i])] = static_cast<long long>(i) + 1;
    }

    /// The places in the order of their numbers.
    [[nodiscard]] const std::vector<long long>& Places() const { return m_places; }

    /// The 1-based number of a place.
    [[nodiscard]] long long NumberOf(long long place) const
    {
        return m_numbers[static_cast<std::size_t>(place)];
    }

private:
    std::vector<long long> m_places;
    std::vector<long long> m_numbers;
};

/// A surface of about so many points, twice as long around as across.
ClosedSurface SurfaceOf(double pointCount)
{
    const auto columns = std::max(3LL, static_cast<long long>(std::sqrt(pointCount / 2.0)));
    return {std::max(3LL, static_cast<long long>(pointCount) / columns), columns};
}

void WriteVector(TextSink& sink, std::string_view keyword, const std::array<double, 3>& vector)
{
    sink << keyword << vector[0] << " " << vector[1] << " " << vector[2] << "\n";
}

void WritePositions(TextSink& sink, const ClosedSurface& surface, const Numbering& numbering)
{
    for (const long long place : numbering.Places())
        WriteVector(sink, "v ", surface.PointAt(place).position);
}

/// The pieces of the texture: bands of columns, each with texture coordinates of its own along
/// both its sides and at both its ends.
struct Charts
{
    static constexpr long long Width = 64;

    ClosedSurface surface;

    [[nodiscard]] long long Count() const { return (surface.columns + Width - 1) / Width; }
    [[nodiscard]] long long Rows() const { return surface.rows + 1; }
    [[nodiscard]] long long PlaceCount() const { return Count() * Rows() * (Width + 1); }

    /// The place of a texture coordinate, for a quad that begins at `quadColumn`.
    [[nodiscard]] long long Place(long long row, long long column, long long quadColumn) const
    {
        const long long chart = quadColumn / Width;
        return (chart * Rows() + row) * (Width + 1) + column - chart * Width;
    }
};

void WriteTextureCoordinates(TextSink& sink, const Charts& charts, const Numbering& numbering)
{
    const double across = 1.0 / static_cast<double>(charts.Count() * (Charts::Width + 1));
    const double along = 1.0 / static_cast<double>(charts.Rows());
    for (const long long place : numbering.Places()) {
        const long long line = place / (Charts::Width + 1);
        const long long column =
            line / charts.Rows() * (Charts::Width + 1) + place % (Charts::Width + 1);
        sink << "vt " << static_cast<double>(column) * across << " "
             << static_cast<double>(line % charts.Rows()) * along << "\n";
    }
}

/// The two triangles of a quad, by what each of its corners is called.
void WriteTwoTriangles(TextSink& sink, const std::array<std::string, 4>& corners)
{
    const auto& [a, b, c, d] = corners;
    sink << "f " << a << " " << b << " " << c << "\nf " << a << " " << c << " " << d << "\n";
}

} // namespace

void WriteScattered(const std::string& path, std::size_t bytes, Scatter scatter)
{
    TextSink sink(path);
    const ClosedSurface surface = SurfaceOf(static_cast<double>(bytes) / 76.3);
    const Numbering numbering(surface.PointCount(), scatter);
    WritePositions(sink, surface, numbering);
    std::array<std::string, 4> corners;
    for (long long row = 0; row < surface.rows; ++row)
        for (long long column = 0; column < surface.columns; ++column) {
            std::ranges::transform(surface.QuadAt(row, column), corners.begin(), [&](auto place) {
                return std::to_string(numbering.NumberOf(place));
            });
            WriteTwoTriangles(sink, corners);
        }
    sink.Close();
}

void WriteScatteredWithSeams(const std::string& path, std::size_t bytes, Scatter scatter)
{
    TextSink sink(path);
    const ClosedSurface surface = SurfaceOf(static_cast<double>(bytes) / 211.0);
    const Numbering numbering(surface.PointCount(), scatter);
    WritePositions(sink, surface, numbering);
    const Charts charts{surface};
    const Numbering chartNumbering(charts.PlaceCount(), scatter);
    WriteTextureCoordinates(sink, charts, chartNumbering);
    for (const long long place : numbering.Places())
        WriteVector(sink, "vn ", surface.PointAt(place).normal);

    for (long long row = 0; row < surface.rows; ++row)
        for (long long column = 0; column < surface.columns; ++column) {
            const auto corner = [&](long long down, long long right) {
                const std::string point =
                    std::to_string(numbering.NumberOf(surface.Place(row + down, column + right)));
                std::string text = point + "/";
                text += std::to_string(
                    chartNumbering.NumberOf(charts.Place(row + down, column + right, column)));
                return text.append("/").append(point);
            };
            WriteTwoTriangles(sink, {corner(0, 0), corner(1, 0), corner(1, 1), corner(0, 1)});
        }
    sink.Close();
}
