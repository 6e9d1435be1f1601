#include "tests/trimming/brep_walk.h"
#include "tests/trimming/families.h"

#include <cmath>

// Loops on closed surfaces and on surfaces with poles.

namespace {

struct NamedSurface
{
    const char* name;
    ShapeSurface surface;
};

std::vector<NamedSurface> ClosedSurfaces()
{
    return {{"cylinder", CylinderShape(1, 2)},
            {"cone", ConeShape(2, 0, 1)},
            {"stump", ConeShape(2, 1, 1)},
            {"sphere", SphereShape(1)},
            {"torus", TorusShape(3, 1)}};
}

// Returns a line around a closed surface, in one piece or several, from u to u + 1.
Pieces Ring(double u, double v, int pieces)
{
    Pieces ring;
    for (int i = 0; i < pieces; ++i)
        ring.push_back(LinePiece({u + 1.0 * i / pieces, v}, {u + (i + 1.0) / pieces, v}));
    return ring;
}

Pieces Joined(Pieces first, const Pieces& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TrimmedShape Band(const ShapeSurface& surface, double v0, double v1, const Pieces& bottom,
                  const Pieces& top)
{
    TrimmedShape shape = Bare(surface);
    shape.area = AreaOfBand(surface, v0, v1);
    shape.loops = {{false, bottom}, {false, top}};
    return shape;
}

TEST(SeamFamilies, NaturalBoundaries)
{
    struct Case
    {
        const char* name;
        ShapeSurface surface;
        int vertices;
        int borders;
        int seams;
    };
    const Case cases[] = {
        {"cylinder", CylinderShape(1, 2), 2, 2, 1}, {"cone", ConeShape(2, 0, 1), 2, 1, 1},
        {"sphere", SphereShape(1), 2, 0, 1},        {"torus", TorusShape(3, 1), 1, 0, 2},
        {"plane", PlaneShape(3, 1), 4, 4, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ExpectImportedEverywhere(Counted(Whole(c.surface), c.vertices, c.borders, c.seams));
    }
}

TEST(SeamFamilies, TwoRingsBoundTheBandBetweenThem)
{
    for (const NamedSurface& closed : ClosedSurfaces()) {
        SCOPED_TRACE(closed.name);
        for (const double start : {0.0, 0.3, -0.4}) {
            for (const int pieces : {1, 3}) {
                TrimmedShape shape = Band(closed.surface, 0.25, 0.75, Ring(start, 0.25, pieces),
                                          Backwards(Ring(start, 0.75, 1)));
                if (start == 0.0)
                    shape = Counted(shape, pieces + 1, pieces + 1, 1);
                for (const unsigned int holes : {0U, 2U}) { // as one "trim" and one "hole", too
                    shape.loops[1].isHole = holes != 0;
                    ExpectImportedEverywhere(shape);
                    if (HasFailure())
                        return;
                }
                shape.loops = {{false, Joined(shape.loops[0].pieces, shape.loops[1].pieces)}};
                ExpectImportedEverywhere(shape, false); // as one statement without seams
            }
        }
        TrimmedShape turned = Band(closed.surface, 0.1, 0.9, Ring(0.0, 0.1, 1), Ring(0.0, 0.9, 1));
        ExpectImportedEverywhere(Counted(turned, 2, 2, 1));
        std::swap(turned.loops[0], turned.loops[1]);
        ExpectImportedEverywhere(Counted(turned, 2, 2, 1));
    }
}

TEST(SeamFamilies, SeamsElsewhereThanTheSurfaces)
{
    for (const NamedSurface& closed : ClosedSurfaces()) {
        SCOPED_TRACE(closed.name);
        for (const double u : {0.5, -0.3}) {
            for (const double top : {0.8, 1.0}) {
                std::vector<UV> corners = Rectangle(u, 0.2, u + 1, top);
                const Pieces loop = PolygonOf(corners);
                TrimmedShape shape = WithOuter(Bare(closed.surface), loop);
                ExpectImportedEverywhere(shape);
                ExpectImportedEverywhere(WithHole(shape, EllipseOf({0.1, 0.5}, 0.2, 0.1, 1)));
                shape.loops[0].pieces = Backwards(Styled(Rotated(loop, 1), 10, 5));
                ExpectImportedEverywhere(shape);
                corners.push_back(corners.front());
                shape.loops[0].pieces = {PolylinePiece(corners)};
                ExpectImportedEverywhere(shape);
                if (HasFailure())
                    return;
            }
        }
    }
    const ShapeSurface surfaces[] = {SphereShape(2), TorusShape(3, 1)};
    for (const ShapeSurface& surface : surfaces) {
        TrimmedShape shape = Whole(surface);
        shape.loops = {{false, PolygonOf(Rectangle(0.4, 0, 1.4, 1))}};
        ExpectImportedEverywhere(shape);
        if (surface.closed[1]) {
            shape.loops = {{false, PolygonOf(Rectangle(0.4, -0.3, 1.4, 0.7))}};
            ExpectImportedEverywhere(Counted(shape, 1, 0, 2));
            shape.loops = {{false, Ring(0, 0.4, 1)}}; // has the face on both sides
            shape.faces = 0;
            ExpectImportedEverywhere(shape);
        }
    }
}

TEST(SeamFamilies, ExplicitSeamsAreOneEdge)
{
    const auto side = [](double u, double v0, double v1, int pieces) {
        Pieces line;
        for (int i = 0; i < pieces; ++i)
            line.push_back(LinePiece({u, v0 + (v1 - v0) * i / pieces},
                                     {u, v0 + (v1 - v0) * (i + 1.0) / pieces}));
        return line;
    };
    for (const NamedSurface& closed : ClosedSurfaces()) {
        SCOPED_TRACE(closed.name);
        for (const int right : {1, 2, 3}) {
            for (const int left : {1, 2}) {
                Pieces loop = Joined(Ring(0, 0.2, 1), side(1, 0.2, 0.8, right));
                loop = Joined(Joined(loop, Backwards(Ring(0, 0.8, 1))), side(0, 0.8, 0.2, left));
                TrimmedShape shape = Counted(WithOuter(Bare(closed.surface), loop), -1, 2, -1);
                if (right == 1 && left == 1) // more pieces may be joined or kept
                    shape = Counted(shape, 2, 2, 1);
                for (const int first : {0, 1, 2}) {
                    TrimmedShape styled = shape;
                    styled.loops[0].pieces = Rotated(loop, first);
                    ExpectImportedEverywhere(styled);
                    styled.loops[0].pieces = Backwards(Styled(Rotated(loop, first), 10, 5));
                    ExpectImportedEverywhere(styled);
                    if (HasFailure())
                        return;
                }
            }
        }
    }
}

TEST(SeamFamilies, SeamsApartByLittleAreOneEdge)
{
    for (const double apart : {2e-6, 2e-5, 5e-4}) {
        TrimmedShape shape = Whole(CylinderShape(1, 2));
        shape.surface.points[8][1] += apart;
        shape.surface.points[17][1] += apart;
        ExpectImported({Counted(shape, 2, 2, 1)}, {}, 1e-3);
        shape.loops = {{false, PolygonOf(Rectangle(0, 0, 1, 1))}};
        ExpectImported({Counted(shape, 2, 2, 1)}, {}, 1e-3);
        shape.loops = {{false, Ring(0, 0, 1)}, {false, Ring(0, 1, 1)}};
        ExpectImported({Counted(shape, 2, 2, 1)}, {}, 1e-3);
    }
    // A gap that the tolerance spans but that is large for the surface stays a gap.
    TrimmedShape slit = Whole(CylinderShape(1e-3, 2e-3));
    slit.surface.points[8][1] -= 1e-4;
    slit.surface.points[17][1] -= 1e-4;
    slit.area = -1.0;
    ExpectImported({Counted(slit, -1, 4, 0)}, {}, 1.0);
}

TEST(SeamFamilies, WindowsAndHolesAcrossASeam)
{
    for (const NamedSurface& closed : ClosedSurfaces()) {
        SCOPED_TRACE(closed.name);
        for (const double shift : {0.0, 1.0, -1.0}) {
            const Pieces shapes[] = {
                Moved(PolygonOf(Rectangle(-0.1, 0.3, 0.15, 0.7)), shift, 0),
                Moved(EllipseOf({0, 0.5}, 0.1, 0.2, 1), shift, 0),
                Moved(EllipseOf({0.02, 0.5}, 0.1, 0.2, 4), shift, 0),
                Moved(EllipseOf({0.5, 0.5}, 0.1, 0.2, 1), shift, 0),
            };
            for (const Pieces& loop : shapes) {
                ExpectImportedEverywhere(WithHole(Whole(closed.surface), loop));
                ExpectImportedEverywhere(WithHole(Whole(closed.surface), Backwards(loop)));
                TrimmedShape band =
                    Band(closed.surface, 0.1, 0.9, Ring(0, 0.1, 1), Ring(0, 0.9, 1));
                ExpectImportedEverywhere(WithHole(band, loop));
                ExpectImportedEverywhere(WithHole(
                    WithOuter(Bare(closed.surface), PolygonOf(Rectangle(0, 0.1, 1, 0.9))), loop));
                if (HasFailure())
                    return;
            }
        }
    }
}

TEST(SeamFamilies, OuterLoopsAcrossASeam)
{
    for (const NamedSurface& closed : ClosedSurfaces()) {
        SCOPED_TRACE(closed.name);
        const Pieces outers[] = {
            PolygonOf(Rectangle(0.7, 0.2, 1.2, 0.8)), PolygonOf(Rectangle(-0.3, 0.2, 0.2, 0.8)),
            PolygonOf(Rectangle(1.2, 0.2, 1.7, 0.8)), EllipseOf({0.95, 0.5}, 0.2, 0.3, 1)};
        for (const Pieces& outer : outers) {
            const TrimmedShape shape = WithOuter(Bare(closed.surface), outer);
            // Whether one face across the seam or one on each side, the area is the same.
            TrimmedShape any = shape;
            any.faces = -1;
            ExpectImportedEverywhere(any);
            any = WithHole(any, EllipseOf({outer[0].At(0).u < 0 ? 0.0 : 1.0, 0.5}, 0.02, 0.1, 1));
            if (outer[0].At(0).u < 1.1)
                ExpectImportedEverywhere(any);
            if (HasFailure())
                return;
        }
    }
}

TEST(SeamFamilies, HolesAcrossATorusInBothDirections)
{
    const Pieces holes[] = {EllipseOf({0, 0}, 0.1, 0.2, 1), EllipseOf({1, 1}, 0.1, 0.2, 4),
                            EllipseOf({0.02, 0.97}, 0.1, 0.2, 1),
                            PolygonOf(Rectangle(0.9, -0.2, 1.2, 0.1)),
                            PolygonOf(Rectangle(0.4, 0.9, 0.6, 1.1))};
    for (const Pieces& hole : holes) {
        ExpectImportedEverywhere(WithHole(Whole(TorusShape(3, 1)), hole));
        const TrimmedShape two =
            WithHole(WithHole(Whole(TorusShape(3, 1)), hole), EllipseOf({0.5, 0.5}, 0.1, 0.1, 1));
        ExpectImportedEverywhere(two);
        if (HasFailure())
            return;
    }
}

TEST(SeamFamilies, PolesWithAndWithoutTheirPiece)
{
    const ShapeSurface surfaces[] = {SphereShape(1), ConeShape(0, 2, 1)};
    for (const ShapeSurface& surface : surfaces) {
        for (const double u1 : {1.0, 0.75}) {
            const double u0 = 1.0 - u1;
            for (const bool withPole : {true, false}) {
                Pieces loop = PolygonOf(Rectangle(u0, 0, u1, 0.6)); // the pole's piece comes first
                TrimmedShape shape = WithOuter(Bare(surface), loop);
                shape = u0 == 0.0 ? Counted(shape, 2, 1, 1) : Counted(shape, 3, 3, 0);
                if (!withPole)
                    loop.erase(loop.begin());
                for (int first = 0; first < static_cast<int>(loop.size()); ++first) {
                    shape.loops[0].pieces = Rotated(loop, first);
                    ExpectImportedEverywhere(shape);
                    shape.loops[0].pieces = Backwards(Styled(Rotated(loop, first), 2, 5));
                    ExpectImportedEverywhere(shape);
                    if (HasFailure())
                        return;
                }
            }
        }
    }
}

TEST(SeamFamilies, WholeSpheresByTheirSeams)
{
    const Pieces all = PolygonOf(Rectangle(0, 0, 1, 1));
    const Pieces loops[] = {
        all, {all[1], all[2], all[3]}, {all[0], all[1], all[3]}, {all[1], all[3]}};
    for (const Pieces& loop : loops) {
        TrimmedShape shape = Counted(Whole(SphereShape(2)), 2, 0, 1);
        shape.loops = {{false, loop}};
        ExpectImportedEverywhere(shape);
        shape.loops = {{false, Backwards(loop)}};
        ExpectImportedEverywhere(shape);
    }
    // From pole to pole, with neither pole's piece.
    const Pieces slice = PolygonOf(Rectangle(0.2, 0, 0.6, 1));
    TrimmedShape shape = Counted(WithOuter(Bare(SphereShape(2)), slice), 2, 2, 0);
    shape.loops[0].pieces = {slice[1], slice[3]};
    ExpectImportedEverywhere(shape);
}

} // namespace
