#include "bench/scenes.h"

#include "bench/text_sink.h"

#include <array>
#include <cmath>
#include <numbers>

namespace {

/// A wavy sheet of side x side grid points.
struct Sheet
{
    long long side;
};

double Height(long long row, long long column)
{
    return 3.0 * std::sin(static_cast<double>(row) * 0.013) *
           std::cos(static_cast<double>(column) * 0.017);
}

/// The largest sheet whose file stays within `bytes` when a grid point takes `bytesPerPoint`.
Sheet SheetFor(std::size_t bytes, double bytesPerPoint)
{
    const double points = static_cast<double>(bytes) / bytesPerPoint;
    return {std::max(2LL, static_cast<long long>(std::sqrt(points)))};
}

void WritePosition(TextSink& sink, long long row, long long column)
{
    sink << "v " << static_cast<double>(column) * 0.05 << " " << static_cast<double>(row) * 0.05
         << " " << Height(row, column) << "\n";
}

void WritePositions(TextSink& sink, const Sheet& sheet)
{
    for (long long row = 0; row < sheet.side; ++row)
        for (long long column = 0; column < sheet.side; ++column)
            WritePosition(sink, row, column);
}

void WriteTextureCoordinatesAndNormals(TextSink& sink, const Sheet& sheet)
{
    const double step = 1.0 / static_cast<double>(sheet.side - 1);
    for (long long row = 0; row < sheet.side; ++row)
        for (long long column = 0; column < sheet.side; ++column)
            sink << "vt " << static_cast<double>(column) * step << " "
                 << static_cast<double>(row) * step << "\n";
    for (long long row = 0; row < sheet.side; ++row)
        for (long long column = 0; column < sheet.side; ++column) {
            const double x = 0.4 * std::sin(static_cast<double>(column) * 0.017);
            const double y = 0.4 * std::cos(static_cast<double>(row) * 0.013);
            const double z = std::sqrt(1.0 - x * x - y * y);
            sink << "vn " << x << " " << y << " " << z << "\n";
        }
}

void WriteQuads(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 166.5);
    WritePositions(sink, sheet);
    WriteTextureCoordinatesAndNormals(sink, sheet);
    for (long long row = 0; row + 1 < sheet.side; ++row)
        for (long long column = 0; column + 1 < sheet.side; ++column) {
            const long long a = row * sheet.side + column + 1;
            sink << "f";
            for (const long long index : {a, a + 1, a + sheet.side + 1, a + sheet.side})
                sink << " " << index << "/" << index << "/" << index;
            sink << "\n";
        }
    sink.Close();
}

void WriteTriangles(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 77.9);
    WritePositions(sink, sheet);
    for (long long row = 0; row + 1 < sheet.side; ++row)
        for (long long column = 0; column + 1 < sheet.side; ++column) {
            const long long a = row * sheet.side + column + 1;
            const long long c = a + sheet.side + 1;
            sink << "f " << a << " " << a + 1 << " " << c << "\n";
            sink << "f " << a << " " << c << " " << c - 1 << "\n";
        }
    sink.Close();
}

/// Many groups, each under a name of its own, its share of the size made up of quads.
void WriteGroups(const std::string& path, std::size_t bytes)
{
    constexpr long long GroupCount = 20000;
    constexpr double BytesPerStrip = 90.0;
    TextSink sink(path);
    const double share = static_cast<double>(bytes) / static_cast<double>(GroupCount);
    const long long strips = std::max(1LL, static_cast<long long>(share / BytesPerStrip));
    long long vertex = 1;
    for (long long group = 0; group < GroupCount; ++group) {
        // In an order that is not the order of the names.
        sink << "g part_" << group * 7919 % GroupCount << "\n";
        for (long long strip = 0; strip <= strips; ++strip)
            for (const double y : {0.0, 1.0})
                sink << "v " << static_cast<double>(strip) << " " << y << " "
                     << static_cast<double>(group) * 0.5 << "\n";
        for (long long strip = 0; strip < strips; ++strip) {
            sink << "f " << vertex << " " << vertex + 2 << " " << vertex + 3 << " " << vertex + 1
                 << "\n";
            vertex += 2;
        }
        vertex += 2;
    }
    sink.Close();
}

void WriteRing(TextSink& sink, long long corners, double x, double y, double radius)
{
    for (long long i = 0; i < corners; ++i) {
        const double angle =
            2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(corners);
        // Every other corner stands further in, so that the polygon is not convex.
        const double reach = i % 2 == 0 ? radius : radius * 0.8;
        sink << "v " << x + reach * std::cos(angle) << " " << y + reach * std::sin(angle)
             << " 0.000000\n";
    }
}

void WriteFaceOverRange(TextSink& sink, long long first, long long corners)
{
    sink << "f";
    for (long long i = 0; i < corners; ++i)
        sink << " " << first + i;
    sink << "\n";
}

void WritePolygons(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    long long vertex = 1;
    for (long long polygon = 0; sink.Written() < bytes; ++polygon) {
        const long long corners = 5 + polygon % 12;
        const long long column = polygon % 1000;
        const long long row = polygon / 1000;
        WriteRing(sink, corners, static_cast<double>(column) * 2.5, static_cast<double>(row) * 2.5,
                  1.0);
        WriteFaceOverRange(sink, vertex, corners);
        vertex += corners;
    }
    sink.Close();
}

void WriteNegative(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    for (long long quad = 0; sink.Written() < bytes; ++quad) {
        const long long column = quad % 1000;
        const long long row = quad / 1000;
        const auto x = static_cast<double>(column);
        const auto y = static_cast<double>(row);
        for (const auto& [dx, dy] : {std::pair{0.1, 0.1}, {0.9, 0.1}, {0.9, 0.9}, {0.1, 0.9}})
            sink << "v " << x + dx << " " << y + dy << " 0.000000\nvt " << dx << " " << dy << "\n";
        sink << "f -4/-4 -3/-3 -2/-2 -1/-1\n";
    }
    sink.Close();
}

/// One polygon; its corners fill the size, at 100,000 when none is asked for.
void WriteOnePolygon(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    constexpr double BytesPerCorner = 42.0;
    const auto corners =
        std::max(5LL, static_cast<long long>(static_cast<double>(bytes) / BytesPerCorner));
    WriteRing(sink, corners, 0.0, 0.0, 1000.0);
    WriteFaceOverRange(sink, 1, corners);
    sink.Close();
}

constexpr std::array<Scene, 6> AllScenes{{
    {"quads", "a sheet of quads with v, vt and vn", 100.0, WriteQuads},
    {"triangles", "a sheet of triangles with v only", 50.0, WriteTriangles},
    {"groups", "20,000 groups", 20.0, WriteGroups},
    {"polygons", "concave polygons of 5 to 16 corners", 20.0, WritePolygons},
    {"negative", "quads by negative indices", 20.0, WriteNegative},
    {"one_polygon", "one polygon of 100,000 corners", 4.2, WriteOnePolygon},
}};

} // namespace

std::span<const Scene> Scenes()
{
    return AllScenes;
}
