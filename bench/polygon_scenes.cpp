#include "bench/scene_writers.h"
#include "bench/text_sink.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// The corners of a star; every other one stands further in.
void WriteRing(TextSink& sink, long long corners, double x, double y, double radius)
{
    for (long long i = 0; i < corners; ++i) {
        const double angle =
            2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(corners);
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

} // namespace

void WritePolygons(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    long long vertex = 1;
    for (long long polygon = 0; sink.Written() < bytes; ++polygon) {
        const long long corners = 5 + polygon % 12;
        const auto column = static_cast<double>(polygon % 1000);
        const auto row = static_cast<double>(polygon / 1000);
        WriteRing(sink, corners, column * 2.5, row * 2.5, 1.0);
        WriteFaceOverRange(sink, vertex, corners);
        vertex += corners;
    }
    sink.Close();
}

void WriteOnePolygon(const std::string& path, std::size_t bytes)
{
    constexpr double BytesPerCorner = 42.0;
    TextSink sink(path);
    const auto corners =
        std::max(5LL, static_cast<long long>(static_cast<double>(bytes) / BytesPerCorner));
    WriteRing(sink, corners, 0.0, 0.0, 1000.0);
    WriteFaceOverRange(sink, 1, corners);
    sink.Close();
}

void WriteLargePolygons(const std::string& path, std::size_t bytes)
{
    constexpr long long Corners = 100'000;
    TextSink sink(path);
    for (long long polygon = 0; sink.Written() < bytes; ++polygon) {
        WriteRing(sink, Corners, static_cast<double>(polygon) * 2500.0, 0.0, 1000.0);
        WriteFaceOverRange(sink, polygon * Corners + 1, Corners);
    }
    sink.Close();
}
