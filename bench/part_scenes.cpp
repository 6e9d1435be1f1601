#include "bench/closed_surface.h"
#include "bench/scene_writers.h"
#include "bench/text_sink.h"

#include <algorithm>
#include <utility>

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

void WriteObjects(const std::string& path, std::size_t bytes)
{
    constexpr ClosedSurface Surface{10, 20};
    TextSink sink(path);
    for (long long object = 0; sink.Written() < bytes; ++object) {
        sink << "o part_" << object << "\n";
        const double offset = static_cast<double>(object) * 3.0;
        for (long long place = 0; place < Surface.PointCount(); ++place) {
            const SurfacePoint point = Surface.PointAt(place);
            sink << "v " << point.position[0] + offset << " " << point.position[1] << " "
                 << point.position[2] << "\nvn " << point.normal[0] << " " << point.normal[1] << " "
                 << point.normal[2] << "\n";
        }
        const long long first = object * Surface.PointCount() + 1;
        for (long long row = 0; row < Surface.rows; ++row)
            for (long long column = 0; column < Surface.columns; ++column) {
                sink << "f";
                for (const long long place : Surface.QuadAt(row, column))
                    sink << " " << first + place << "//" << first + place;
                sink << "\n";
            }
    }
    sink.Close();
}

void WriteNegative(const std::string& path, std::size_t bytes)
{
    TextSink sink(path);
    for (long long quad = 0; sink.Written() < bytes; ++quad) {
        const auto x = static_cast<double>(quad % 1000);
        const auto y = static_cast<double>(quad / 1000);
        for (const auto& [dx, dy] : {std::pair{0.1, 0.1}, {0.9, 0.1}, {0.9, 0.9}, {0.1, 0.9}})
            sink << "v " << x + dx << " " << y + dy << " 0.000000\nvt " << dx << " " << dy << "\n";
        sink << "f -4/-4 -3/-3 -2/-2 -1/-1\n";
    }
    sink.Close();
}
