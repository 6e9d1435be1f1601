#include "tests/objimport/process.h"
#include "tests/temporary_folder.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

// Examples of free-form objects as JSON, compared with what their comments promise. Points are
// computed from the JSON alone, straight from the definition of B-splines.

namespace {

using nlohmann::json;
using Point = std::array<double, 3>;

json Imported(const std::string& example)
{
    const TemporaryFolder folder;
    const ProcessResult result =
        RunObjimport({"--settings", Utf8(folder.Path() / "s.ini"), "--quiet", "--json", "-",
                      PROJECT_FOLDER "/examples/" + example});
    EXPECT_EQ(result.status, 0) << result.errors;
    return json::parse(result.output);
}

/// Returns the values at a parameter of all basis functions of an order, by their recursive
/// definition. Knots stand without the superfluous ends.
std::vector<double> BasisFunctions(std::vector<double> knots, std::size_t order, double parameter)
{
    const double last = knots.back();
    knots.insert(knots.begin(), knots.front());
    knots.push_back(last);
    std::vector<double> values(knots.size() - 1, 0.0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool endsLast = parameter == last && knots[i + 1] == last;
        if (knots[i] < knots[i + 1] && knots[i] <= parameter &&
            (parameter < knots[i + 1] || endsLast))
            values[i] = 1.0;
    }
    for (std::size_t k = 1; k < order; ++k) {
        const auto part = [&](std::size_t i, double numerator) {
            const double span = knots[i + k] - knots[i];
            return span > 0.0 ? numerator / span * values[i] : 0.0;
        };
        std::vector<double> raised;
        for (std::size_t i = 0; i + 1 < values.size(); ++i) {
            raised.push_back(part(i, parameter - knots[i]) +
                             part(i + 1, knots[i + 1 + k] - parameter));
        }
        values = raised;
    }
    return values;
}

/// Returns the sum of a shape's points, weighted by a basis and the points' own weights.
Point WeightedSum(const json& shape, const std::vector<double>& basis)
{
    Point sum{};
    double weights = 0.0;
    for (std::size_t i = 0; i < basis.size(); ++i) {
        const double weight =
            basis[i] * (shape["rational"] ? shape["weights"][i].get<double>() : 1.0);
        weights += weight;
        for (std::size_t axis = 0; axis < shape["points"][i].size(); ++axis)
            sum[axis] += weight * shape["points"][i][axis].get<double>();
    }
    for (double& coordinate : sum)
        coordinate /= weights;
    return sum;
}

Point CurvePoint(const json& curve, double t)
{
    return WeightedSum(curve, BasisFunctions(curve["knots"], curve["order"], t));
}

Point SurfacePoint(const json& surface, double u, double v)
{
    const auto basisU = BasisFunctions(surface["knots"][0], surface["order"][0], u);
    const auto basisV = BasisFunctions(surface["knots"][1], surface["order"][1], v);
    std::vector<double> basis;
    for (const double inV : basisV) {
        for (const double inU : basisU)
            basis.push_back(inU * inV);
    }
    return WeightedSum(surface, basis);
}

double Distance(const Point& a, const Point& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

/// Returns the parameter at a fraction of a domain.
double At(const json& domain, double fraction)
{
    return domain[0].get<double>() * (1.0 - fraction) + domain[1].get<double>() * fraction;
}

/// Expects a trim's edge to lie on the surface along the trim, from vertex to vertex.
void ExpectEdgeOnSurface(const json& brep, const json& surface, const json& trim)
{
    constexpr double Tolerance = 0.001;
    if (trim["edge"] == -1)
        return;
    const json& edge = brep["edges"][trim["edge"].get<std::size_t>()];
    const json& curve = brep["curves_3d"][edge["curve_3d"].get<std::size_t>()];
    const json& flat = brep["curves_2d"][trim["curve_2d"].get<std::size_t>()];
    for (int i = 0; i <= 64; ++i) {
        const double fraction = i / 64.0;
        const Point uv = CurvePoint(flat, At(trim["domain"], fraction));
        const double along = trim["reversed"] ? 1.0 - fraction : fraction;
        EXPECT_LT(Distance(SurfacePoint(surface, uv[0], uv[1]),
                           CurvePoint(curve, At(edge["domain"], along))),
                  Tolerance);
    }
    for (const std::size_t end : {0U, 1U}) {
        const std::size_t vertex = edge["vertices"][end];
        EXPECT_LT(Distance(CurvePoint(curve, At(edge["domain"], static_cast<double>(end))),
                           brep["vertices"][vertex].get<Point>()),
                  Tolerance);
    }
}

TEST(FreeformJson, LoopsCloseAndEdgesLieOnTheirSurfaces)
{
    for (const char* example : {"bezier_patch.obj", "untrimmed_surface.obj", "cylinder.obj",
                                "sphere.obj", "trimmed_surface.obj"}) {
        SCOPED_TRACE(example);
        const json brep = Imported(example)["objects"].at(0);
        ASSERT_EQ(brep["type"], "brep");
        const json& surface = brep["surfaces"].at(0);
        for (const json& loop : brep["faces"].at(0)["loops"]) {
            const json& trims = loop["trims"];
            ASSERT_FALSE(trims.empty());
            for (std::size_t i = 0; i < trims.size(); ++i) {
                const json& next = trims[(i + 1) % trims.size()];
                const auto end = [&](const json& trim, double fraction) {
                    const std::size_t flat = trim["curve_2d"];
                    return CurvePoint(brep["curves_2d"][flat], At(trim["domain"], fraction));
                };
                EXPECT_LT(Distance(end(trims[i], 1.0), end(next, 0.0)), 0.001);
                EXPECT_EQ(trims[i]["vertices"][1], next["vertices"][0]);
                ExpectEdgeOnSurface(brep, surface, trims[i]);
            }
        }
    }
}

TEST(FreeformJson, ShapesAreTheOnesPromised)
{
    const json circle = Imported("rational_curve.obj")["objects"].at(0);
    const json ball = Imported("sphere.obj")["objects"].at(0)["surfaces"].at(0);
    const json can = Imported("cylinder.obj")["objects"].at(0)["surfaces"].at(0);
    for (int i = 0; i <= 100; ++i) {
        const double t = 0.04 * i;
        const Point round = CurvePoint(circle, t);
        EXPECT_NEAR(Distance(round, {3, 2, 1}), 2.0, 1e-12);
        EXPECT_NEAR(Distance(SurfacePoint(ball, t, t / 2), {0, 0, 0}), 1.0, 1e-12);
        EXPECT_NEAR(Distance(SurfacePoint(can, t, t / 2), {0, 0, t / 2}), 1.0, 1e-12);
    }
    const json pillow = Imported("bezier_patch.obj")["objects"].at(0)["surfaces"].at(0);
    EXPECT_LT(Distance(SurfacePoint(pillow, 0.5, 0.5), {1.5, 1.5, 1.125}), 1e-12);
    const json wave = Imported("bezier_curves.obj")["objects"].at(1);
    EXPECT_LT(Distance(CurvePoint(wave, 0.5), {2, 1.5, 0}), 1e-12);
    EXPECT_LT(Distance(CurvePoint(wave, 1.0), {4, 0, 0}), 1e-12);
}

} // namespace
