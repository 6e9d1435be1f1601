#include "objimport/exchange/brep_triangles.h"
#include "tests/trimming/brep_walk.h"
#include "tests/trimming/families.h"
#include "tests/trimming/import_text.h"
#include "tests/trimming/random_shapes.h"
#include "tests/trimming/surface_extent.h"

#include <cmath>
#include <tuple>

namespace {

using Place = std::tuple<double, double, double>;

Place PlaceOf(const GK_3dPoint& p)
{
    return {p.x, p.y, p.z};
}

int OpenEdges(const GK_Brep& brep)
{
    int open = 0;
    for (int i = 0; i < brep.EdgeCount(); ++i)
        open += brep.Edge(i).trimIndices.Count() == 1 ? 1 : 0;
    return open;
}

// The properties of triangles, as a net of places in space.
struct Net
{
    explicit Net(const BrepTriangles& triangles)
    {
        std::map<std::pair<Place, Place>, int> sides;
        for (const auto& t : triangles.triangles) {
            std::array<GK_3dPoint, 3> p;
            for (std::size_t k = 0; k < 3; ++k)
                p[k] = triangles.positions[t[k]];
            for (std::size_t k = 0; k < 3; ++k)
                ++sides[{PlaceOf(p[k]), PlaceOf(p[(k + 1) % 3])}];
            const GK_3dVector cross = GK_CrossProduct(p[1] - p[0], p[2] - p[0]);
            area += 0.5 * cross.Length();
            for (const std::uint32_t corner : t) {
                const GK_3fVector& n = triangles.normals[corner];
                areaAlongNormals += GK_DotProduct(cross, {n.x, n.y, n.z}) / 6.0;
                normalsAreUnit = normalsAreUnit && n.IsUnitVector();
            }
        }
        for (const auto& [side, count] : sides) {
            repeated += count > 1 ? 1 : 0;
            borders += sides.contains({side.second, side.first}) ? 0 : 1;
        }
    }

    double area = 0.0;
    double areaAlongNormals = 0.0; // as large where normals stand on their triangles
    bool normalsAreUnit = true;
    int repeated = 0; // sides that two triangles have in the same direction
    int borders = 0;  // sides that one triangle has
};

void ExpectSound(const GK_Brep& brep, double tolerance)
{
    const BrepTriangles triangles = TrianglesOfBrep(brep, tolerance);
    EXPECT_EQ(triangles.facesWithout, 0U) << triangles.whyWithout;
    ASSERT_EQ(triangles.faceEnds.size(), static_cast<std::size_t>(brep.FaceCount()));
    EXPECT_EQ(triangles.faceEnds.back(), triangles.triangles.size());
    const Net net(triangles);
    EXPECT_EQ(net.repeated, 0);
    EXPECT_EQ(net.borders == 0, OpenEdges(brep) == 0) << net.borders << " sides are open";
    EXPECT_TRUE(net.normalsAreUnit);
    const double area = AreaOf(brep);
    EXPECT_NEAR(net.area, area, 6e-3 * area);
    EXPECT_NEAR(net.areaAlongNormals, area, 4e-2 * area);
}

void ExpectSound(const std::string& text, double tolerance)
{
    const ImportedText file(text, tolerance);
    const auto breps = file.Breps();
    ASSERT_FALSE(breps.empty());
    for (const GK_Brep* brep : breps)
        ExpectSound(*brep, tolerance);
}

TEST(BrepTriangles, CoverRandomShapesWithoutCracks)
{
    constexpr std::uint32_t Count = 60;
    for (std::uint32_t seed = 1; seed <= Count && !testing::Test::HasFailure(); ++seed) {
        const RandomFile file = MakeRandomFile(seed);
        const double coarse = 1e4; // then a thousandth of the size counts
        SCOPED_TRACE("seed " + std::to_string(seed));
        const ImportedText imported(ObjText(file.shapes, file.writing), file.tolerance);
        for (const GK_Brep* brep : imported.Breps())
            ExpectSound(*brep, coarse);
    }
}

TEST(BrepTriangles, AreAsGoodAtEverySizeAndPlace)
{
    struct Case
    {
        double scale;
        double offset;
    };
    for (const auto [scale, offset] : {Case{1e-9, 0}, {1e-4, 0.1}, {1.0, 1e5}, {1e30, 0}})
        for (const ShapeSurface& surface :
             {SphereShape(1), TorusShape(2, 0.5), ConeShape(1, 0, 1)}) {
            SCOPED_TRACE(testing::Message() << "scale " << scale << ", offset " << offset);
            ExpectSound(ObjText({Placed(Whole(surface), scale, offset)}, {}), 1e-2 * scale);
        }
}

// A sphere shows both: the distance of places on triangles, and of normals, from a formula.
TEST(BrepTriangles, LieWithinTheToleranceOfTheSurface)
{
    struct Case
    {
        double tolerance;
        double allowed;
    };
    for (const auto [tolerance, allowed] :
         {Case{0.1, 2e-3}, {1e-3, 1e-3}, {2e-4, 2e-4}, {1e-9, 2e-4}}) {
        const ImportedText file(ObjText({Whole(SphereShape(1))}, {}), 1e-3);
        const BrepTriangles triangles = TrianglesOfBrep(*file.Breps().at(0), tolerance);
        EXPECT_EQ(triangles.isCoarse, tolerance < allowed);
        double off = 0.0;
        double turned = 0.0;
        for (const auto& t : triangles.triangles)
            for (std::size_t k = 0; k < 3; ++k) {
                const GK_3dPoint& a = triangles.positions[t[k]];
                const GK_3dPoint& b = triangles.positions[t[(k + 1) % 3]];
                const GK_3fVector& n = triangles.normals[t[k]];
                const GK_3dPoint middle = a + 0.5 * (b - a);
                off = std::max({off, std::abs(1 - a.DistanceTo(GK_origin)),
                                std::abs(1 - middle.DistanceTo(GK_origin))});
                turned = std::max(turned, 1 - std::abs(n.x * a.x + n.y * a.y + n.z * a.z));
            }
        EXPECT_LE(off, 1.01 * allowed);
        EXPECT_GE(off, 0.1 * allowed) << "far more triangles than needed";
        EXPECT_LE(turned, 1e-3);
    }
}

// A roof of two planes, as one surface.
TEST(BrepTriangles, HaveANormalForEachSideOfACrease)
{
    const ImportedText file("v 0 0 0\nv 1 0 1\nv 2 0 0\nv 0 5 0\nv 1 5 1\nv 2 5 0\n"
                            "cstype bspline\ndeg 1 1\nsurf 0 2 0 1 1 2 3 4 5 6\n"
                            "parm u 0 0 1 2 2\nparm v 0 0 1 1\nend\n",
                            1e-3);
    const BrepTriangles triangles = TrianglesOfBrep(*file.Breps().at(0), 1e-3);
    std::map<Place, std::vector<GK_3fVector>> normals;
    for (std::size_t i = 0; i < triangles.positions.size(); ++i)
        normals[PlaceOf(triangles.positions[i])].push_back(triangles.normals[i]);
    for (const auto& [place, there] : normals) {
        const bool isOnTop = std::get<0>(place) == 1.0;
        ASSERT_EQ(there.size(), isOnTop ? 2U : 1U);
        EXPECT_NEAR(std::abs(there[0].x), std::sqrt(0.5), 1e-6);
        if (isOnTop) {
            EXPECT_NEAR(there[0].x, -there[1].x, 1e-6);
        }
    }
    EXPECT_NEAR(Net(triangles).areaAlongNormals, 10 * std::sqrt(2.0), 1e-2);
}

// Many folds between few control points would take millions of triangles.
TEST(BrepTriangles, AreNotManyMoreThanWhatTheSurfaceConsistsOf)
{
    constexpr int Side = 60;
    std::string text;
    for (int i = 0; i < Side * Side; ++i)
        text += "v " + std::to_string(i % Side) + " " + std::to_string(i / Side) + " " +
                std::to_string(i * 7919 % 97) + "\n";
    text += "cstype bspline\ndeg 3 3\nsurf 0 57 0 57";
    for (int i = 1; i <= Side * Side; ++i)
        text += " " + std::to_string(i);
    for (const char* direction : {"\nparm u", "\nparm v"}) {
        text += direction;
        for (int i = -3; i <= Side; ++i)
            text += " " + std::to_string(std::clamp(i, 0, Side - 3));
    }
    const ImportedText file(text + "\nend\n", 1e-9);
    ASSERT_EQ(file.Breps().size(), 1U) << file.Refused();
    const BrepTriangles triangles = TrianglesOfBrep(*file.Breps()[0], 1e-9);
    EXPECT_EQ(triangles.facesWithout, 0U) << triangles.whyWithout;
    EXPECT_LT(triangles.triangles.size(), 500'000U);
    EXPECT_GT(triangles.triangles.size(), 20'000U);
    EXPECT_TRUE(triangles.isCoarse);
}

TEST(BrepTriangles, NameFacesThatTheLibraryDoesNotTake)
{
    constexpr int Degree = 28;
    std::string text;
    for (int i = 0; i < 2 * (Degree + 1); ++i)
        text += "v " + std::to_string(i % (Degree + 1)) + " " + std::to_string(i / (Degree + 1)) +
                " 0\n";
    text += "cstype bezier\ndeg 28 1\nsurf 0 1 0 1";
    for (int i = 1; i <= 2 * (Degree + 1); ++i)
        text += " " + std::to_string(i);
    const ImportedText file(text + "\nparm u 0 1\nparm v 0 1\nend\n", 1e-3);
    ASSERT_EQ(file.Breps().size(), 1U) << file.Refused();
    const BrepTriangles triangles = TrianglesOfBrep(*file.Breps()[0], 1e-3);
    EXPECT_EQ(triangles.facesWithout, 1U);
    EXPECT_EQ(triangles.whyWithout, "its degree is 28, above 25");
    EXPECT_EQ(triangles.faceEnds, std::vector<std::size_t>{0});
}

} // namespace
