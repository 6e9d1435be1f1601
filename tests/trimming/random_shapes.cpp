#include "tests/trimming/random_shapes.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

// The part of a surface that its outer loops leave, in the unit square or beyond it.
struct Region
{
    double u0 = 0.0;
    double v0 = 0.0;
    double u1 = 1.0;
    double v1 = 1.0;
};

int PiecesOf(const TrimmedShape& shape)
{
    const bool isNatural = shape.loops.empty() || shape.loops[0].isHole;
    int pieces = isNatural ? 4 : 0;
    for (const TrimLoop& loop : shape.loops)
        pieces += static_cast<int>(loop.pieces.size());
    return pieces;
}

class Maker
{
public:
    explicit Maker(std::uint32_t seed) : m_numbers(seed) {}

    RandomFile File();

private:
    std::uint32_t Next() { return static_cast<std::uint32_t>(m_numbers()); }
    double Between(double low, double high) { return low + (high - low) * Next() * 0x1p-32; }
    int Below(int count) { return static_cast<int>(Between(0, count)); }
    bool Chance(double share) { return Between(0, 1) < share; }
    unsigned int Mask(double share) { return Chance(share) ? Next() : 0U; }

    ShapeSurface Surface();
    TrimmedShape Shape();
    Region AddOuter(TrimmedShape& shape);
    Region AddBand(TrimmedShape& shape);
    Region AddSeamed(TrimmedShape& shape);
    Region AddWindow(TrimmedShape& shape);
    Pieces WindowLoop(const Region& region);
    void AddHoles(TrimmedShape& shape, const Region& region);
    void AddHole(TrimmedShape& shape, const Region& cell);
    Pieces HoleLoop(const Region& cell);
    Pieces Line(UV a, UV b);
    void AddOpenHole(TrimmedShape& shape, const Region& cell);
    void Style(TrimmedShape& shape);
    Writing Way();

    std::mt19937 m_numbers;
    bool m_gapsAreGaps = true; // they are larger than the tolerance
};

ShapeSurface Maker::Surface()
{
    const double size = Between(0.5, 2.0);
    std::array<double, 16> heights{};
    switch (Below(6)) {
    case 0:
        return PlaneShape(size, Between(0.5, 2.0));
    case 1:
        return CylinderShape(size, Between(0.5, 2.0));
    case 2:
        return Chance(0.5) ? ConeShape(0, size, 1.0) : ConeShape(size, Chance(0.5) ? 0 : 0.4, 1.0);
    case 3:
        return SphereShape(size);
    case 4:
        return TorusShape(1.0 + size, Between(0.2, 1.0));
    default:
        for (double& height : heights)
            height = Between(-0.4, 0.4);
        return PatchShape(size, Between(0.5, 2.0), heights);
    }
}

// Returns a line in one piece, in several, or as a curve of several spans.
Pieces Maker::Line(UV a, UV b)
{
    const int count = Chance(0.7) ? 1 : 2 + Below(3);
    std::vector<UV> points;
    for (int i = 0; i <= count; ++i)
        points.push_back({a.u + (b.u - a.u) * i / count, a.v + (b.v - a.v) * i / count});
    if (Chance(0.5))
        return {PolylinePiece(points)};
    Pieces pieces;
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        pieces.push_back(LinePiece(points[i], points[i + 1]));
    return pieces;
}

Pieces Joined(const std::vector<Pieces>& parts)
{
    Pieces all;
    for (const Pieces& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// Adds two rings, without the seam.
Region Maker::AddBand(TrimmedShape& shape)
{
    const double v0 = Between(0.1, 0.4);
    const double v1 = Between(0.6, 0.9);
    const double u = Chance(0.5) ? 0.0 : Between(-0.5, 0.5);
    shape.loops.push_back({false, Line({u, v0}, {u + 1, v0})});
    shape.loops.push_back({Chance(0.5), Line({u + 1, v1}, {u, v1})});
    shape.area = AreaOfBand(shape.surface, v0, v1);
    return {u, v0, u + 1, v1};
}

// Adds a loop all around, with the seam's pieces, and a pole with or without its own.
Region Maker::AddSeamed(TrimmedShape& shape)
{
    const bool hasPole =
        std::all_of(shape.surface.points.begin(), shape.surface.points.begin() + 9,
                    [](const auto& point) { return point[0] == 0.0 && point[1] == 0.0; });
    const double v0 = hasPole ? 0.0 : Between(0.1, 0.4);
    const double v1 = Between(0.6, 0.9);
    const Pieces bottom = hasPole && Chance(0.5) ? Pieces{} : Line({0, v0}, {1, v0});
    shape.loops.push_back({false, Joined({bottom, Line({1, v0}, {1, v1}), Line({1, v1}, {0, v1}),
                                          Line({0, v1}, {0, v0})})});
    shape.area = AreaOfBand(shape.surface, v0, v1);
    return {0, v0, 1, v1};
}

Pieces Maker::WindowLoop(const Region& r)
{
    const double cutU = Between(0.01, 0.3) * (r.u1 - r.u0);
    const double cutV = Between(0.01, 0.3) * (r.v1 - r.v0);
    switch (Below(3)) {
    case 0:
        return Joined({Line({r.u0, r.v0}, {r.u1, r.v0}), Line({r.u1, r.v0}, {r.u1, r.v1}),
                       Line({r.u1, r.v1}, {r.u0, r.v1}), Line({r.u0, r.v1}, {r.u0, r.v0})});
    case 1:
        return Joined({Line({r.u0 + cutU, r.v0}, {r.u1, r.v0}), Line({r.u1, r.v0}, {r.u1, r.v1}),
                       Line({r.u1, r.v1}, {r.u0, r.v1}), Line({r.u0, r.v1}, {r.u0, r.v0 + cutV}),
                       Line({r.u0, r.v0 + cutV}, {r.u0 + cutU, r.v0})});
    default: // a rounded corner
        return Joined({Line({r.u0, r.v0}, {r.u1, r.v0}),
                       Line({r.u1, r.v0}, {r.u1, r.v1 - cutV}),
                       {ArcPiece({r.u1 - cutU, r.v1 - cutV}, cutU, cutV, 0, 1)},
                       Line({r.u1 - cutU, r.v1}, {r.u0, r.v1}),
                       Line({r.u0, r.v1}, {r.u0, r.v0})});
    }
}

Region Maker::AddWindow(TrimmedShape& shape)
{
    Region region{Between(0.05, 0.4), Between(0.05, 0.4), Between(0.6, 0.95), Between(0.6, 0.95)};
    if (shape.surface.closed[0] && Chance(0.6)) {
        const double shift = Between(-0.6, 0.6);
        region.u0 += shift;
        region.u1 += shift;
        shape.faces = -1; // a window across the seam may be two
    }
    const Pieces loop = WindowLoop(region);
    shape.area = AreaWithin(shape.surface, loop);
    shape.loops.push_back({false, loop});
    const double thirdU = 0.3 * (region.u1 - region.u0); // corners may be cut
    const double thirdV = 0.3 * (region.v1 - region.v0);
    return {region.u0 + thirdU, region.v0 + thirdV, region.u1 - thirdU, region.v1 - thirdV};
}

Region Maker::AddOuter(TrimmedShape& shape)
{
    const int kind = Below(4);
    if (kind == 0) {
        shape.area = AreaOfBand(shape.surface, 0, 1);
        const double u = shape.surface.closed[0] ? Between(-0.3, 0.3) : 0.0;
        const double v = shape.surface.closed[1] ? Between(-0.3, 0.3) : 0.0;
        if (shape.surface.closed[1])
            shape.faces = -1; // holes across both seams may cut the domain apart
        return {u, v, u + 1, v + 1};
    }
    if (kind == 1 || !shape.surface.closed[0])
        return AddWindow(shape);
    return kind == 2 ? AddBand(shape) : AddSeamed(shape);
}

Pieces Maker::HoleLoop(const Region& cell)
{
    const UV middle{0.5 * (cell.u0 + cell.u1), 0.5 * (cell.v0 + cell.v1)};
    const double u = Between(0.05, 0.4) * (cell.u1 - cell.u0);
    const double v = Between(0.05, 0.4) * (cell.v1 - cell.v0);
    constexpr std::array<int, 3> Counts{1, 2, 4};
    switch (Below(4)) {
    case 0:
        return PolygonOf(Rectangle(middle.u - u, middle.v - v, middle.u + u, middle.v + v));
    case 1:
        return Joined({Line({middle.u - u, middle.v - v}, {middle.u + u, middle.v - v}),
                       Line({middle.u + u, middle.v - v}, {middle.u, middle.v + v}),
                       Line({middle.u, middle.v + v}, {middle.u - u, middle.v - v})});
    case 2:
        return SpansOf(ArcPiece(middle, u, v, Below(4), 4));
    default:
        return EllipseOf(middle, u, v, Counts[static_cast<std::size_t>(Below(3))]);
    }
}

void Maker::AddOpenHole(TrimmedShape& shape, const Region& cell)
{
    Pieces loop = PolygonOf(Rectangle(cell.u0 + 0.3 * (cell.u1 - cell.u0), cell.v0,
                                      cell.u1 - 0.3 * (cell.u1 - cell.u0), cell.v1));
    loop.erase(loop.begin() + Below(4));
    shape.loops.push_back({true, loop});
    ++shape.dropped;
}

void Maker::AddHole(TrimmedShape& shape, const Region& cell)
{
    if (m_gapsAreGaps && Chance(0.03))
        return AddOpenHole(shape, cell);
    const Pieces loop = HoleLoop(cell);
    shape.area -= AreaWithin(shape.surface, loop);
    shape.loops.push_back({true, loop});
}

void Maker::AddHoles(TrimmedShape& shape, const Region& region)
{
    constexpr double Margin = 0.03;
    const int columns = 1 + Below(3);
    const int rows = 1 + Below(3);
    const double width = (region.u1 - region.u0) / columns;
    const double height = (region.v1 - region.v0) / rows;
    for (int i = 0; i < columns; ++i)
        for (int j = 0; j < rows; ++j)
            if (Chance(0.4))
                AddHole(shape, {region.u0 + (i + Margin) * width, region.v0 + (j + Margin) * height,
                                region.u0 + (i + 1 - Margin) * width,
                                region.v0 + (j + 1 - Margin) * height});
}

void Maker::Style(TrimmedShape& shape)
{
    for (TrimLoop& loop : shape.loops) {
        if (Chance(0.4))
            loop.pieces = Backwards(loop.pieces);
        loop.pieces = Rotated(loop.pieces, Below(static_cast<int>(loop.pieces.size())));
        loop.pieces = Styled(loop.pieces, Mask(0.3), Mask(0.3));
    }
}

TrimmedShape Maker::Shape()
{
    TrimmedShape shape;
    shape.surface = Surface();
    AddHoles(shape, AddOuter(shape));
    if (!shape.surface.closed[0] && shape.dropped == 0)
        shape.vertices = shape.borders = PiecesOf(shape);
    Style(shape);
    return shape;
}

Writing Maker::Way()
{
    constexpr std::array<std::array<double, 2>, 6> Domains{
        {{0, 1}, {0, 6.283185307179586}, {-5, 3}, {0, 900}, {10, 11}, {-1, 0}}};
    const auto domain = [&] { return Domains[static_cast<std::size_t>(Below(6))]; };
    Writing writing;
    writing.digits = 7 + Below(11);
    writing.domain = {domain(), domain()};
    writing.swapped = Chance(0.3);
    return writing;
}

RandomFile Maker::File()
{
    RandomFile file;
    file.writing = Way();
    file.tolerance = std::pow(10.0, -Below(7));
    double scale = std::pow(10.0, Between(-4, 5));
    if (scale * std::pow(10.0, 1 - file.writing.digits) > file.tolerance)
        scale = file.tolerance; // the file's digits must be enough to join what meets
    m_gapsAreGaps = scale > 1e3 * file.tolerance;
    const int count = 1 + Below(3);
    for (int i = 0; i < count; ++i) {
        TrimmedShape shape = Shape();
        shape.surface = Placed(shape.surface, scale, Chance(0.5) ? 0.0 : Between(-2, 2) * scale);
        shape.area *= scale * scale;
        file.shapes.push_back(std::move(shape));
    }
    return file;
}

} // namespace

RandomFile MakeRandomFile(std::uint32_t seed)
{
    return Maker(seed).File();
}
