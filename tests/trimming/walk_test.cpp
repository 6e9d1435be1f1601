#include "console_host/geokit/compact_curves.h"
#include "tests/geokit/brep_shapes.h"
#include "tests/trimming/brep_walk.h"

#include <functional>
#include <gmock/gmock.h>

// The walk itself: it finds nothing in what is sound, and each fault when it is made.

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double Tolerance = 1e-3;

// Returns a plate with a hole, clockwise.
std::unique_ptr<VX_Brep> Plate()
{
    auto plate = MakeBrep(MakePlane(4.0));
    AddNaturalLoop(*plate);
    Piece circle{MakeCircle2d(2, 2, 1), {0, 4}};
    circle.curve.Reverse();
    AddLoop(*plate, GK_BrepLoop::inner, {circle});
    GK_BrepTrim& trim = plate->Trim(4);
    trim.reversed = false;
    return plate;
}

// Returns the curve, to be damaged: a brep itself does not let its curves change.
GK_Curve& Changed(const GK_Curve* curve)
{
    return const_cast<GK_Curve&>(*curve);
}

GK_NurbsCurve& BsplineOf(const GK_Curve* curve)
{
    return *GK_NurbsCurve::Cast(&Changed(curve));
}

// Adds to the first coordinate of a curve's control points.
void MoveAll(GK_NurbsCurve& curve, int stride, double distance)
{
    for (int i = 0; i < curve.controlPoints.Count(); i += stride)
        curve.controlPoints[i] += distance;
}

void LoseEdge(GK_Brep& brep, int trim)
{
    brep.Edge(brep.Trim(trim).edgeIndex).trimIndices = {};
    brep.Trim(trim).edgeIndex = -1;
}

std::unique_ptr<VX_Brep> Natural(std::unique_ptr<VX_NurbsSurface> surface)
{
    auto brep = MakeBrep(std::move(surface));
    AddNaturalLoop(*brep);
    return brep;
}

TEST(BrepWalk, FindsNothingInSoundBreps)
{
    EXPECT_THAT(FaultsOf(*Plate(), Tolerance), IsEmpty());
    EXPECT_THAT(FaultsOf(*Natural(MakeCylinder()), Tolerance), IsEmpty());
    EXPECT_THAT(FaultsOf(*Natural(MakeSphere()), Tolerance), IsEmpty());
    EXPECT_THAT(FaultsOf(*Natural(MakeHill(true)), Tolerance), IsEmpty());
}

TEST(BrepWalk, FindsEachFault)
{
    struct Case
    {
        const char* fault;
        std::function<void(GK_Brep&)> make;
    };
    const Case cases[] = {
        {"names a loop that does not name it", [](GK_Brep& b) { b.Loop(1).faceIndex = -1; }},
        {"names a trim that does not name it", [](GK_Brep& b) { b.Trim(1).loopIndex = 1; }},
        {"is not named once by its edge", [](GK_Brep& b) { b.Trim(0).edgeIndex = 1; }},
        {"has 3 trims",
         [](GK_Brep& b) {
             b.Edge(0).trimIndices = {0, 1, 2};
         }},
        {"has a wrong index", [](GK_Brep& b) { b.Vertex(2).vertexIndex = 1; }},
        {"a vertex has no trim",
         [](GK_Brep& b) {
             b.NewVertex({0, 0, 0}, 0.0);
         }},
        {"has 2 outer loops", [](GK_Brep& b) { b.Loop(1).type = GK_BrepLoop::outer; }},
        {"runs the wrong way round", [](GK_Brep& b) { b.Loop(1).type = GK_BrepLoop::outer; }},
        {"share no vertex", [](GK_Brep& b) { b.Trim(2).vertexIndex[0] = 0; }},
        {"disagree on a vertex", [](GK_Brep& b) { b.Edge(2).vertexIndex[0] = 0; }},
        {"from vertex 0", [](GK_Brep& b) { b.Vertex(0).point.z += 0.05; }},
        {"leaves the domain",
         [](GK_Brep& b) {
             dynamic_cast<LineCurve&>(Changed(b.TrimCurve(0))) = {{0, 0, 0}, {4.1, 0, 0}, {0, 4}};
         }},
        {"is not inside the outer loop",
         [](GK_Brep& b) { MoveAll(BsplineOf(b.TrimCurve(4)), 3, 30.0); }},
        {"does not run along edge 4", [](GK_Brep& b) { BsplineOf(b.EdgeCurve(4)).Reverse(); }},
        {"from the surface along trim 4",
         [](GK_Brep& b) { MoveAll(BsplineOf(b.EdgeCurve(4)), 3, 0.1); }},
        {"trim 1 starts at (4, 0.5)",
         [](GK_Brep& b) { b.Trim(1).SetDomain(GK_Interval(0.5, 4.0)); }},
        {"has 0 trims", [](GK_Brep& b) { LoseEdge(b, 1); }},
    };
    for (const Case& c : cases) {
        const auto brep = Plate();
        c.make(*brep);
        EXPECT_THAT(FaultsOf(*brep, Tolerance), Contains(HasSubstr(c.fault))) << c.fault;
    }
}

TEST(BrepWalk, FindsSidesOfASeamThatRunTheSameWay)
{
    const auto cylinder = Natural(MakeCylinder());
    cylinder->Trim(3).reversed = false;
    EXPECT_THAT(FaultsOf(*cylinder, Tolerance), Contains(HasSubstr("run the same way along")));
}

TEST(BrepWalk, MeasuresAreas)
{
    EXPECT_NEAR(AreaOf(*Plate()), 16.0 - Pi, 1e-5);
    EXPECT_NEAR(AreaOf(*Natural(MakeCylinder())), 4 * Pi, 1e-5);
    EXPECT_NEAR(AreaOf(*Natural(MakeSphere())), 4 * Pi, 1e-5);
}

} // namespace
