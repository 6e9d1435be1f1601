#include "console_host/app/import_journal.h"
#include "console_host/vxkit/pushup_allowance.h"
#include "tests/vxkit/pushed_up.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <string>

namespace {

// What is reported to the kernel's error service from here on.
class Reports
{
public:
    Reports()
    {
        CurrentJournal().kernelErrors.clear();
        PushupAllowance::Current().Restart();
    }

    [[nodiscard]] static std::vector<std::string> Texts()
    {
        std::vector<std::string> texts;
        for (const auto& [source, text, times] : CurrentJournal().kernelErrors)
            texts.insert(texts.end(), static_cast<std::size_t>(times), source + ": " + text);
        return texts;
    }
};

TEST(Pushup, CutsWhatRoundingPutsOutsideTheDomain)
{
    const Reports reports;
    const auto hill = MakeHill(false);
    const GK_NurbsCurve circle = MakeCircle2d(1.5, 1.0, 0.9); // over [0, 4]
    const struct
    {
        GK_Interval asked;
        GK_Interval taken; // [0, 0]: refused
    } cases[] = {
        {{0, 4.0003}, {0, 4}},
        {{4.0003, -0.0003}, {0, 4}},
        {{3.9, 4.0003}, {3.9, 4}},
        {{0, 4.0005}, {0, 0}},
        {{-0.0005, 4}, {0, 0}},
        {{4, 4.0003}, {0, 0}},
        {{-0.0003, -0.0001}, {0, 0}},
        {{5, 6}, {0, 0}},
        {{2, 2}, {0, 0}},
    };
    for (const auto& [asked, taken] : cases) {
        const auto image = hill->Pushup(circle, 1e-3, &asked);
        ASSERT_EQ(image != nullptr, taken.IsIncreasing()) << asked[0] << " " << asked[1];
        if (image != nullptr) {
            EXPECT_EQ(image->Domain(), taken);
        }
    }
    EXPECT_EQ(Reports::Texts(), std::vector<std::string>{
                                    "pushup: A trim was left out, as it asks for the part from 0 "
                                    "to 4.0005 of a curve that goes from 0 to 4.\n"});
}

TEST(Pushup, EqualCallsShareOneResult)
{
    const Reports reports;
    PushupAllowance& allowance = PushupAllowance::Current();
    const auto hill = MakeHill(false);
    const GK_NurbsCurve circle = MakeCircle2d(1.5, 1.0, 0.9);
    const GK_Interval part(1, 2);
    const auto identity = [&](const GK_NurbsCurve& curve, double tolerance,
                              const GK_Interval* interval) {
        const auto image = hill->Pushup(curve, tolerance, interval);
        return image == nullptr ? nullptr : AsNurbs(image).controlPoints.Identity();
    };
    const auto image = hill->Pushup(circle, 1e-3, &part);
    const void* first = AsNurbs(image).controlPoints.Identity();
    const double left = allowance.Left();
    const GK_NurbsCurve copy = circle;
    const GK_Interval backwards(2, 1);
    EXPECT_EQ(identity(circle, 1e-3, &part), first);
    EXPECT_EQ(identity(copy, 1e-3, &backwards), first);
    EXPECT_EQ(allowance.Left(), left);

    EXPECT_NE(identity(circle, 1e-4, &part), first);
    EXPECT_NE(identity(circle, 1e-3, nullptr), first);
    EXPECT_NE(identity(MakeCircle2d(1.5, 1.0, 0.9), 1e-3, &part), first);
    GK_NurbsCurve changed = circle;
    changed.knots[0] = changed.knots[0]; // written: another storage
    EXPECT_NE(identity(changed, 1e-3, &part), first);

    // A result that is changed by its owner, and a surface that is.
    GK_NurbsCurve::Cast(hill->Pushup(circle, 1e-3, &part).get())->SetDomain(5, 6);
    EXPECT_EQ(identity(circle, 1e-3, &part), first);
    const VX_NurbsSurface before = *hill;
    const double point[] = {0, 0, 9};
    hill->SetCV(0, 0, GK::not_rational, point);
    EXPECT_NE(identity(circle, 1e-3, &part), first);
    EXPECT_LE(Deviation(*hill->Pushup(circle, 1e-3, &part), *hill, circle, part), 1e-3);
    hill->SetDomain(0, 0, 8);
    EXPECT_LE(Deviation(*hill->Pushup(circle, 1e-3, &part), *hill, circle, part), 1e-3);
    *hill = before;
    EXPECT_LE(Deviation(*hill->Pushup(circle, 1e-3, &part), *hill, circle, part), 1e-3);
}

// A failure takes no more work than a success on as many control points would, is remembered, and
// is reported once.
TEST(Pushup, GivesUpEarly)
{
    const Reports reports;
    PushupAllowance& allowance = PushupAllowance::Current();
    std::uint32_t seed = 1;
    const auto random = [&seed] { // of a linear congruential generator
        seed = seed * 1664525U + 1013904223U;
        return seed / 4294967296.0;
    };
    std::vector<double> net;
    for (int i = 0; i < 121; ++i)
        net.insert(net.end(), {i % 2 == 0 ? 1.0 : 1e30, 1e30 * random(), 1e30 * random()});
    const std::vector<double> bezier{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    const auto surface = MakeSurface(false, 11, 11, net, bezier, bezier);
    std::vector<double> points;
    for (int i = 0; i < 200; ++i)
        points.insert(points.end(), {random(), random()});
    std::vector<double> knots(10, 0.0);
    for (int i = 1; i < 190; ++i)
        knots.push_back(i);
    knots.insert(knots.end(), 10, 190.0);
    const GK_NurbsCurve curve = MakeCurve(2, false, 11, points, knots);
    constexpr int Trims = 40;
    const double before = allowance.Left();
    for (int i = 0; i < Trims; ++i) {
        const GK_Interval part(0.0, 190.0 - 0.1 * (i % 20));
        EXPECT_EQ(surface->Pushup(curve, 1e-3, &part), nullptr);
    }
    constexpr double WorkOfSuccess = 200.0 * 16 * 8; // points per span, times the cost of one
    EXPECT_LT(before - allowance.Left(), Trims * WorkOfSuccess);
    ASSERT_EQ(Reports::Texts().size(), 1U);
    EXPECT_NE(Reports::Texts()[0].find("too many control points"), std::string::npos);
}

// Work is bounded over all calls of an import: that is reported, and the next import begins again.
TEST(Pushup, EndsWithTheAllowance)
{
    const Reports reports;
    PushupAllowance& allowance = PushupAllowance::Current();
    const auto hill = MakeHill(false);
    std::vector<double> points;
    std::vector<double> knots;
    for (int i = 0; i < 20000; ++i) {
        points.insert(points.end(), {2 + std::sin(0.01 * i), 2 + std::cos(0.013 * i)});
        knots.push_back(i);
    }
    const GK_NurbsCurve curve = MakeCurve(2, false, 2, points, knots);
    const GK_Interval small(0.5, 20.0);
    ASSERT_NE(hill->Pushup(curve, 1e-3, &small), nullptr);
    allowance.Spend(allowance.Left());
    for (int i = 0; i < 200; ++i) {
        const GK_Interval part(0.001 * i, 19999.0);
        hill->Pushup(curve, 1e-3, &part);
        ASSERT_LT(allowance.Left(), 2e5); // what calls add is used up as well
    }
    EXPECT_NE(hill->Pushup(curve, 1e-3, &small), nullptr); // made before
    ASSERT_EQ(Reports::Texts().size(), 1U);
    EXPECT_NE(Reports::Texts()[0].find("more work in all"), std::string::npos);
    allowance.Restart();
    const GK_Interval part(0.0, 19999.0);
    EXPECT_NE(hill->Pushup(curve, 1e-3, &part), nullptr);
}

TEST(Pushup, ReturnsNullForInvalidInput)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto plane = MakePlane(1.0);
    const auto line = MakeLine(0, 0, 1, 1);
    const GK_Interval whole(0, 1);
    for (const GK_Interval part : {GK_Interval(0.5, 0.5), GK_Interval(0, 1.5), GK_Interval(-1, 0),
                                   GK_Interval(0, nan), GK_Interval(nan, 1)})
        EXPECT_EQ(plane->Pushup(line, 1e-3, &part), nullptr);

    GK_NurbsCurve knotless = line;
    knotless.knots.Destroy();
    EXPECT_EQ(plane->Pushup(knotless, 1e-3, &whole), nullptr);
    EXPECT_EQ(plane->Pushup(MakeCurve(3, false, 2, {0, 0, 0, 1, 1, 1}, {0, 1}), 1e-3, &whole),
              nullptr);
    const auto bare = MakePlane(1.0);
    bare->SetControlPointCount(0, 3);
    bare->SetControlPointCount(1, 3);
    EXPECT_EQ(bare->Pushup(line, 1e-3, &whole), nullptr);
}

// Whatever the arguments: an end, and a bounded number of control points.
TEST(Pushup, EndsOnAwkwardInput)
{
    const auto hill = MakeHill(true);
    const auto line = MakeLine(0.1, 0.1, 3.9, 3.8);
    for (const double tolerance : {0.0, -1.0, 1e-300, std::nan(""), 1e300}) {
        const auto image = hill->Pushup(line, tolerance, nullptr);
        const GK_NurbsCurve* curve = GK_NurbsCurve::Cast(image.get());
        ASSERT_NE(curve, nullptr) << tolerance;
        EXPECT_LE(curve->controlPointCount, 200000);
    }
    EXPECT_EQ(hill->Pushup(MakeLine(0, 0, 1e300, -1e300), 1e-3, nullptr), nullptr);
    hill->Pushup(MakeLine(-1e6, 1e6, 3, 5), 1e-3, nullptr);

    // Far from the origin double precision is coarser than the tolerance.
    const auto far = MakeSurface(false, 2, 2, {1e15, 0, 0, 1e15 + 4, 0, 1, 1e15, 4, 2, 1e15, 4, 9},
                                 {0, 1}, {0, 1});
    EXPECT_NE(far->Pushup(MakeLine(0, 0, 1, 0.7), 1e-6, nullptr), nullptr);

    // A zigzag across many knots: more pieces than there may be.
    std::vector<double> strip;
    std::vector<double> many(2000);
    std::iota(many.begin(), many.end(), 0.0);
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 2000; ++i)
            strip.insert(strip.end(), {1.0 * i, 1.0 * j, 1.0 * (i % 3)});
    const auto ribbed = MakeSurface(false, 2, 2, strip, many, {0, 1});
    std::vector<double> zigzag;
    for (int i = 0; i < 1000; ++i)
        zigzag.insert(zigzag.end(), {i % 2 == 0 ? 0.0 : 1999.0, 1e-3 * i});
    many.resize(1000);
    EXPECT_EQ(ribbed->Pushup(MakeCurve(2, false, 2, zigzag, many), 1e-3, nullptr), nullptr);
}

} // namespace
