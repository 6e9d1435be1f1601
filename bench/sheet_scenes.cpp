#include "bench/scene_writers.h"
#include "bench/text_sink.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// A wavy sheet of side x side grid points.
struct Sheet
{
    long long side;

    /// The 1-based number of a grid point.
    [[nodiscard]] long long Number(long long row, long long column) const
    {
        return row * side + column + 1;
    }
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

/// Calls back for each grid point, or for each quad when `count` is one less than the side.
template <typename Callback>
void ForEach(long long count, const Callback& callback)
{
    for (long long row = 0; row < count; ++row)
        for (long long column = 0; column < count; ++column)
            callback(row, column);
}

void WritePosition(TextSink& sink, long long row, long long column)
{
    sink << "v " << static_cast<double>(column) * 0.05 << " " << static_cast<double>(row) * 0.05
         << " " << Height(row, column);
}

void WritePositions(TextSink& sink, const Sheet& sheet)
{
    ForEach(sheet.side, [&](long long row, long long column) {
        WritePosition(sink, row, column);
        sink << "\n";
    });
}

void WriteTextureCoordinates(TextSink& sink, const Sheet& sheet)
{
    const double step = 1.0 / static_cast<double>(sheet.side - 1);
    ForEach(sheet.side, [&](long long row, long long column) {
        sink << "vt " << static_cast<double>(column) * step << " "
             << static_cast<double>(row) * step << "\n";
    });
}

void WriteNormals(TextSink& sink, const Sheet& sheet)
{
    ForEach(sheet.side, [&](long long row, long long column) {
        const double x = 0.4 * std::sin(static_cast<double>(column) * 0.017);
        const double y = 0.4 * std::cos(static_cast<double>(row) * 0.013);
        sink << "vn " << x << " " << y << " " << std::sqrt(1.0 - x * x - y * y) << "\n";
    });
}

/// One face over some numbers, each written once for each of `fields` fields.
template <std::size_t Count>
void WriteFace(TextSink& sink, const std::array<long long, Count>& numbers, int fields)
{
    sink << "f";
    for (const long long number : numbers) {
        sink << " " << number;
        for (int field = 1; field < fields; ++field)
            sink << "/" << number;
    }
    sink << "\n";
}

std::array<long long, 4> QuadAt(const Sheet& sheet, long long row, long long column)
{
    return {sheet.Number(row, column), sheet.Number(row, column + 1),
            sheet.Number(row + 1, column + 1), sheet.Number(row + 1, column)};
}

void WriteTriangleFaces(TextSink& sink, const Sheet& sheet)
{
    ForEach(sheet.side - 1, [&](long long row, long long column) {
        const auto [a, b, c, d] = QuadAt(sheet, row, column);
        WriteFace(sink, std::array{a, b, c}, 1);
        WriteFace(sink, std::array{a, c, d}, 1);
    });
}

/// One polygon between two rows: `below` edges of the one and `above` edges of the next.
void WriteBandPolygon(TextSink& sink, const Sheet& sheet, long long row,
                      const std::array<long long, 2>& columns,
                      const std::array<long long, 2>& edges)
{
    sink << "f";
    for (long long i = 0; i <= edges[0]; ++i)
        sink << " " << sheet.Number(row, columns[0] + i);
    for (long long i = edges[1]; i >= 0; --i)
        sink << " " << sheet.Number(row + 1, columns[1] + i);
    sink << "\n";
}

/// As many edges below as above in all, so that the two ends of a band stay near each other.
constexpr std::array<std::array<long long, 2>, 8> BandEdges{
    {{1, 2}, {2, 2}, {2, 3}, {3, 3}, {2, 1}, {2, 2}, {3, 2}, {3, 3}}};

} // namespace

void WriteQuads(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 166.5);
    WritePositions(sink, sheet);
    WriteTextureCoordinates(sink, sheet);
    WriteNormals(sink, sheet);
    ForEach(sheet.side - 1, [&](long long row, long long column) {
        WriteFace(sink, QuadAt(sheet, row, column), 3);
    });
    sink.Close();
}

void WriteTriangles(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 77.9);
    WritePositions(sink, sheet);
    WriteTriangleFaces(sink, sheet);
    sink.Close();
}

void WriteLongNumbers(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 85.8);
    ForEach(sheet.side, [&](long long row, long long column) {
        // Steps that binary fractions do not hit, so that no coordinate is short.
        sink << "v ";
        sink.WriteDigits17(static_cast<double>(column + 1) * 0.0499777);
        sink << " ";
        sink.WriteDigits17(static_cast<double>(row + 1) * 0.0500113);
        sink << " ";
        sink.WriteDigits17(Height(row, column));
        sink << "\n";
    });
    ForEach(sheet.side - 1, [&](long long row, long long column) {
        WriteFace(sink, QuadAt(sheet, row, column), 1);
    });
    sink.Close();
}

void WriteSomeColors(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 86.0);
    ForEach(sheet.side, [&](long long row, long long column) {
        WritePosition(sink, row, column);
        if (sheet.Number(row, column) % 3 == 0)
            sink << " 0.250000 " << static_cast<double>(row % 100) * 0.01 << " 0.750000";
        sink << "\n";
    });
    WriteTriangleFaces(sink, sheet);
    sink.Close();
}

void WriteMaterialSwitches(const std::string& path, std::size_t bytes)
{
    constexpr long long MaterialCount = 12;
    constexpr long long FacesToSwitch = 4;
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 112.5);
    WritePositions(sink, sheet);
    WriteTextureCoordinates(sink, sheet);
    long long faceCount = 0;
    ForEach(sheet.side - 1, [&](long long row, long long column) {
        if (faceCount % FacesToSwitch == 0)
            sink << "usemtl paint_" << faceCount / FacesToSwitch * 7 % MaterialCount << "\n";
        WriteFace(sink, QuadAt(sheet, row, column), 2);
        ++faceCount;
    });
    sink.Close();
}

void WriteSharedPolygons(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    const Sheet sheet = SheetFor(bytes, 53.9);
    WritePositions(sink, sheet);
    constexpr long long MostEdges = 3;
    for (long long row = 0; row + 1 < sheet.side; ++row) {
        std::array<long long, 2> columns{0, 0};
        for (std::size_t polygon = 0; std::ranges::max(columns) + MostEdges < sheet.side;
             ++polygon) {
            const std::array<long long, 2>& edges = BandEdges[polygon % BandEdges.size()];
            WriteBandPolygon(sink, sheet, row, columns, edges);
            columns = {columns[0] + edges[0], columns[1] + edges[1]};
        }
    }
    sink.Close();
}
