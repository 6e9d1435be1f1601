#include "tests/trimming/brep_walk.h"
#include "tests/trimming/families.h"
#include "tests/trimming/import_text.h"

#include <cmath>

// Loops on surfaces that are not closed, written in every way that modellers write them.

namespace {

constexpr unsigned int Every = 0xFFFFFFFFU;
constexpr unsigned int EverySecond = 0xAAAAAAAAU;
constexpr double Sizes[] = {1e-4, 0.01, 1.0, 1e3, 1e5};
constexpr double Tolerances[] = {1e-6, 1e-3, 1.0};

const std::vector<UV> Frame = Rectangle(0.1, 0.2, 0.9, 0.8);

// Returns a rectangle without its corners.
std::vector<UV> Chamfered(double u0, double v0, double u1, double v1, double cutU, double cutV)
{
    return {{u0 + cutU, v0}, {u1 - cutU, v0}, {u1, v0 + cutV}, {u1, v1 - cutV},
            {u1 - cutU, v1}, {u0 + cutU, v1}, {u0, v1 - cutV}, {u0, v0 + cutV}};
}

// Expects the shape of every rotation of a loop's pieces, each with single pieces turned, every
// second one and all, and with decreasing intervals.
void ExpectInEveryStyle(const ShapeSurface& surface, const Pieces& loop)
{
    const int count = static_cast<int>(loop.size());
    std::vector<std::array<unsigned int, 2>> styles{
        {0, 0}, {0, Every}, {Every, 0}, {EverySecond, 0}, {~EverySecond, 0}, {EverySecond, Every}};
    for (int i = 0; i < count; ++i)
        styles.push_back({1U << i, 0});
    const TrimmedShape shape = Counted(WithOuter(Bare(surface), loop), count, count, 0);
    for (const auto& [turned, decreasing] : styles)
        for (int first = 0; first < count; ++first) {
            TrimmedShape styled = shape;
            styled.loops[0].pieces = Styled(Rotated(loop, first), turned, decreasing);
            for (const double size : Sizes)
                for (const double tolerance : Tolerances) {
                    ExpectImported({Placed(styled, size, 0.0)}, {}, tolerance);
                    if (testing::Test::HasFailure())
                        return;
                }
        }
}

TEST(LoopFamilies, PlateNarrowAsItsChamfersAreShort)
{
    ExpectInEveryStyle(PlaneShape(1.0, 0.01), PolygonOf(Chamfered(0.1, 0.1, 0.9, 0.9, 0.002, 0.2)));
}

TEST(LoopFamilies, ShortPieceAmongLongOnes)
{
    ExpectInEveryStyle(PlaneShape(1.0, 1.0),
                       PolygonOf({{0.1, 0.1}, {0.9, 0.1}, {0.9, 0.8}, {0.9, 0.8007}, {0.1, 0.9}}));
}

TEST(LoopFamilies, NarrowLoopsKeepTheirCorners)
{
    ExpectInEveryStyle(PlaneShape(1, 1),
                       PolygonOf({{0.5, 0.45}, {0.504, 0.5}, {0.5, 0.55}, {0.496, 0.5}}));
}

TEST(LoopFamilies, CurvedPiecesAndTwoPieces)
{
    const ShapeSurface patch =
        PatchShape(1, 1, {0, 0.1, 0.2, 0, 0.1, 0.5, -0.3, 0, 0, 0.2, 0.4, 0.1, 0, 0, 0.1, 0.3});
    ExpectInEveryStyle(patch, EllipseOf({0.5, 0.5}, 0.4, 0.3, 4));
    ExpectInEveryStyle(patch, EllipseOf({0.5, 0.5}, 0.4, 0.01, 2));
}

TEST(LoopFamilies, EndsApartByTheLastOfSixDigits)
{
    struct Case
    {
        double apart; // in shares of the domain: up to one unit of the last digit
        double domain;
    };
    for (const Case c : {Case{1e-6, 1.0}, Case{-1e-6, 1.0}, Case{6.6e-6, 1500.0}})
        for (const double tolerance : {1e-6, 1e-3})
            for (const double size : {1500.0, 1.0}) {
                Pieces loop = PolygonOf({{0.123457, 0.2}, {0.9, 0.2}, {0.9, 0.876543}, {0.1, 0.8}});
                TrimmedShape shape =
                    Counted(WithOuter(Bare(PlaneShape(size, size)), loop), 4, 4, 0);
                for (TrimPiece& piece : loop)
                    piece.points[0] = {piece.points[0][0] + c.apart, piece.points[0][1] - c.apart,
                                       1};
                const Writing writing{6, {{{0, c.domain}, {0, c.domain}}}, false};
                shape.loops[0].pieces = loop;
                ExpectImported({shape}, writing, tolerance);
                shape.loops[0].pieces = Styled(loop, EverySecond, 0);
                ExpectImported({shape}, writing, tolerance);
            }
}

TEST(LoopFamilies, DirectionsAndFormsOfOutersAndHoles)
{
    const Pieces outers[] = {
        PolygonOf(Frame),
        {PolylinePiece({Frame[0], Frame[1], Frame[2], Frame[3], Frame[0]})},
        {PolylinePiece({Frame[0], Frame[1], Frame[2]}),
         PolylinePiece({Frame[2], Frame[3], Frame[0]})},
        SpansOf(PolylinePiece({Frame[0], Frame[1], Frame[2], Frame[3], Frame[0]})),
    };
    const Pieces holes[] = {EllipseOf({0.3, 0.5}, 0.1, 0.2, 1), EllipseOf({0.3, 0.5}, 0.1, 0.2, 4),
                            PolygonOf(Rectangle(0.2, 0.3, 0.5, 0.6)),
                            SpansOf(ArcPiece({0.4, 0.5}, 0.1, 0.1, 1, 4))};
    for (const Pieces& outer : outers)
        for (const Pieces& hole : holes)
            for (const unsigned int backwards : {0U, 1U, 2U, 3U}) {
                const int count = static_cast<int>(outer.size() + hole.size());
                const TrimmedShape shape =
                    WithHole(WithOuter(Bare(PlaneShape(4, 3)),
                                       (backwards & 1U) != 0 ? Backwards(outer) : outer),
                             (backwards & 2U) != 0 ? Backwards(hole) : hole);
                ExpectImportedEverywhere(Counted(shape, count, count, 0));
                if (HasFailure())
                    return;
            }
}

TEST(LoopFamilies, CurvesThatAreShared)
{
    const Pieces outer = PolygonOf(Frame);
    const Pieces hole = EllipseOf({0.5, 0.5}, 0.1, 0.2, 1);
    std::vector<TrimmedShape> shapes;
    for (const double width : {1.0, 2.0, 3.0})
        shapes.push_back(
            Counted(WithHole(WithOuter(Bare(PlaneShape(width, 1)), outer), hole), 5, 5, 0));
    for (const double tolerance : Tolerances)
        ExpectImported(shapes, {}, tolerance);
}

// However often a file names a long curve, each triple is there.
TEST(LoopFamilies, EachSpanOfALongCurveAsAPiece)
{
    constexpr int Spans = 1000;
    constexpr double Turn = 2 * 3.14159265358979323846;
    std::vector<UV> points;
    for (int i = 0; i < Spans; ++i)
        points.push_back(
            {0.5 + 0.4 * std::cos(Turn * i / Spans), 0.5 + 0.3 * std::sin(Turn * i / Spans)});
    points.push_back(points.front());
    const TrimmedShape shape = WithOuter(Bare(PlaneShape(10, 10)), SpansOf(PolylinePiece(points)));
    ExpectImported({Counted(shape, Spans, Spans, 0)}, {}, 1e-3);
}

TEST(LoopFamilies, IntervalsBeyondKnotsThatLostADigit)
{
    for (const double end : {0.99999, 0.999999, 1.0000009}) {
        Pieces loop = PolygonOf(Frame);
        for (TrimPiece& piece : loop)
            piece.knots = {0, 0, end, end};
        const TrimmedShape shape = Counted(WithOuter(Bare(PlaneShape(2, 1)), loop), 4, 4, 0);
        ExpectImportedEverywhere(shape);
    }
}

TEST(LoopFamilies, BadHolesAmongGoodOnes)
{
    const Pieces good = EllipseOf({0.3, 0.5}, 0.1, 0.1, 1);
    const Pieces better = PolygonOf(Rectangle(0.6, 0.4, 0.7, 0.6));
    Pieces open = PolygonOf(Rectangle(0.45, 0.4, 0.55, 0.6));
    open.pop_back();
    struct Case
    {
        Pieces hole;
        bool isOpen;
    };
    const Case cases[] = {
        {open, true},
        {{LinePiece({0.45, 0.4}, {0.55, 0.6})}, true},
        {EllipseOf({0.9, 0.5}, 0.05, 0.1, 1), false},        // across the outer loop
        {PolygonOf(Rectangle(0.92, 0.4, 0.97, 0.6)), false}, // outside it
        {PolygonOf(Rectangle(0.05, 0.1, 0.95, 0.9)), false}, // around it
    };
    for (const auto& [hole, isOpen] : cases) {
        const TrimmedShape frame = WithOuter(Bare(PlaneShape(4, 3)), PolygonOf(Frame));
        ExpectImportedEverywhere(
            Counted(WithHole(WithDropped(WithHole(frame, good), hole), better), 9, 9, 0), !isOpen);
        ExpectImportedEverywhere(
            Counted(WithHole(WithHole(WithDropped(frame, hole), good), better), 9, 9, 0), !isOpen);
        if (HasFailure())
            return;
    }
}

// Of two holes that cross, what is left is a face with at most one of them.
TEST(LoopFamilies, HolesThatCrossEachOther)
{
    const Pieces holes[] = {EllipseOf({0.4, 0.5}, 0.1, 0.1, 1), EllipseOf({0.5, 0.5}, 0.1, 0.1, 1)};
    TrimmedShape shape = Bare(PlaneShape(1, 1));
    shape.loops = {{false, PolygonOf(Frame)}, {true, holes[0]}, {true, holes[1]}};
    const ImportedText file(ObjText({shape}, {}), 1e-3);
    ASSERT_EQ(file.Breps().size(), 1U);
    const GK_Brep& brep = *file.Breps()[0];
    EXPECT_THAT(FaultsOf(brep, 1e-3), testing::IsEmpty());
    EXPECT_EQ(brep.LoopCount() + file.Refusals("loop"), 3);
    EXPECT_LE(brep.LoopCount(), 2);
}

TEST(LoopFamilies, SeveralOuterLoops)
{
    const Pieces left = PolygonOf(Rectangle(0.1, 0.1, 0.45, 0.9));
    const Pieces right = PolygonOf(Rectangle(0.55, 0.1, 0.9, 0.9));
    const Pieces inLeft = EllipseOf({0.3, 0.5}, 0.1, 0.1, 1);
    const Pieces inRight = EllipseOf({0.7, 0.5}, 0.1, 0.1, 1);
    const Pieces island = EllipseOf({0.3, 0.5}, 0.05, 0.05, 1);
    TrimmedShape two = WithOuter(Bare(PlaneShape(2, 1)), left);
    two = WithHole(WithHole(WithOuter(two, Backwards(right)), inRight), inLeft);
    two.faces = 2;
    ExpectImportedEverywhere(Counted(two, 10, 10, 0));
    TrimmedShape withIsland = WithOuter(two, island);
    withIsland.faces = 3;
    ExpectImportedEverywhere(Counted(withIsland, 11, 11, 0));

    const ImportedText file(ObjText({two}, {}), 1e-3);
    ASSERT_EQ(file.Breps().size(), 1U);
    for (int i = 0; i < file.Breps()[0]->FaceCount(); ++i)
        EXPECT_EQ(file.Breps()[0]->Face(i).LoopCount(), 2);
}

TEST(LoopFamilies, LoopsBeyondASurfaceThatIsNotClosed)
{
    for (const double beyond : {1.1, 1.01, 4.0}) {
        TrimmedShape shape = Bare(PlaneShape(2, 1));
        shape.loops = {{false, PolygonOf(Rectangle(0.2, 0.2, beyond, 0.8))}};
        shape.faces = 0;
        ExpectImportedEverywhere(shape);
    }
    for (const double rounding : {1.000001, 0.999999, 1.0}) {
        const TrimmedShape shape =
            WithOuter(Bare(PlaneShape(2, 1)), PolygonOf(Rectangle(0.2, 0.2, rounding, 0.8)));
        ExpectImportedEverywhere(Counted(shape, 4, 4, 0));
    }
}

TEST(LoopFamilies, OuterLoopsThatDoNotClose)
{
    Pieces open = PolygonOf(Frame);
    open.pop_back();
    TrimmedShape shape = Bare(PlaneShape(2, 1));
    shape.loops = {{false, open}, {true, EllipseOf({0.5, 0.5}, 0.1, 0.1, 1)}};
    shape.faces = 0;
    ExpectImported({shape}, {}, 1e-3);
}

// Returns the area that an edge bounds in the plane z = 0.
double AreaOfEdge(const GK_BrepEdge& edge)
{
    constexpr int Steps = 4000;
    std::vector<GK_2dPoint> points;
    for (int i = 0; i < Steps; ++i) {
        const GK_3dPoint point = edge.PointAt(edge.Domain().ParameterAt(1.0 * i / Steps));
        points.push_back({point.x, point.y});
    }
    return std::abs(SignedAreaOf(points));
}

TEST(LoopFamilies, EdgesOfSmallHolesAreTrue)
{
    constexpr double Pi = 3.14159265358979323846;
    for (const double radius : {1e-4, 0.002, 0.01, 0.1}) {
        for (const double tolerance : Tolerances) {
            for (const double size : {1.0, 1e-3}) {
                const TrimmedShape shape = Placed(
                    WithHole(Whole(PlaneShape(1, 1)), EllipseOf({0.5, 0.5}, radius, radius, 1)),
                    size, 0.0);
                const ImportedText file(ObjText({shape}, {}), tolerance);
                ASSERT_EQ(file.Breps().size(), 1U);
                const GK_Brep& brep = *file.Breps()[0];
                ASSERT_EQ(brep.LoopCount(), 2);
                const GK_BrepLoop& hole = brep.Loop(1);
                ASSERT_EQ(hole.trimIndices.Count(), 1);
                const double area = AreaOfEdge(brep.Edge(brep.Trim(hole.trimIndices[0]).edgeIndex));
                const double expected = Pi * radius * radius * size * size;
                EXPECT_NEAR(area / expected, 1.0, 1e-3)
                    << "radius " << radius << ", size " << size << ", tolerance " << tolerance;
            }
        }
    }
}

TEST(LoopFamilies, LoopsWithoutArea)
{
    const Pieces there = PolygonOf({{0.2, 0.2}, {0.8, 0.7}});
    const Pieces eight = PolygonOf({{0.2, 0.2}, {0.8, 0.8}, {0.8, 0.2}, {0.2, 0.8}});
    for (const Pieces& loop : {there, eight}) {
        ExpectImportedEverywhere(WithDropped(Whole(PlaneShape(2, 1)), loop));
        TrimmedShape outer = Bare(PlaneShape(2, 1));
        outer.loops = {{false, loop}};
        outer.faces = 0;
        outer.dropped = 1;
        ExpectImportedEverywhere(outer);
    }
}

} // namespace
