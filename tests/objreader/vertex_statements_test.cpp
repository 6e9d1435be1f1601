#include "tests/objreader/read_text.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <optional>

namespace {

using testing::ElementsAre;

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(VertexStatements, PositionsWithWeightsAndColours)
{
    const struct
    {
        const char* line;
        GK_3dPoint position;
        double weight = 1.0;
        std::optional<GK_Color> color = std::nullopt;
    } cases[] = {
        {"v 1 2 3 0.1", {1, 2, 3}, 0.1},
        {"v 1 2 3 -2", {1, 2, 3}, -2},
        {"v 1 2 3 1 200 0.5", {1, 2, 3}, 1, GK_Color(255, 255, 128)},
        {"v 1 2 3 1.9 1.9 0.9", {1, 2, 3}, 1, GK_Color(1, 1, 0)},
        {"v 1 2 3 1e99 -1e99 nan", {1, 2, 3}, 1, GK_Color(255, 0, 0)},
        {"v 1 2 3 nan -1 2", {1, 2, 3}, 1, GK_Color(0, 0, 255)},
        {"v 1 2 3 4 5", {1, 2, 3}},
        {"v 1 2 3 4 x", {1, 2, 3}},
        {"v 1 2 3 4 5 6 7", {1, 2, 3}},
        {"v 2abc 1e2 -.5", {2, 100, -0.5}},
        {"v 1234567.891 0.1 1e-60", {1234567.875, 0.10000000149011612, 0}},
        {"v 16777217 1e39 -inf", {16777216, Infinity, -Infinity}},
    };
    for (const auto& [line, position, weight, color] : cases) {
        SCOPED_TRACE(line);
        const ReadText text(line);
        EXPECT_TRUE(text.parsed);
        const VertexLists& lists = text.file.lists;
        ASSERT_EQ(lists.vertices.Count(), 1);
        EXPECT_EQ(lists.Position(0), position);
        EXPECT_EQ(lists.VertexWeight(0), weight);
        EXPECT_EQ(lists.hasVertexColors, color.has_value());
        ASSERT_EQ(lists.vertexColors.Count(), color ? 1 : 0);
        EXPECT_EQ(color.value_or(GK_Color()), color ? lists.vertexColors[0] : GK_Color());
    }
}

TEST(VertexStatements, WeightsAreKeptFromTheFirstThatIsNotOne)
{
    const ReadText text("v 0 0 0\nv 0 0 0 1\nv 0 0 0 0.5\nv 0 0 0\n");
    EXPECT_THAT(ListOf(text.file.lists.vertexWeights), ElementsAre(1, 1, 0.5, 1));
    EXPECT_FALSE(ReadText("v 0 0 0\nv 0 0 0 1\n").file.lists.hasVertexWeights);
}

TEST(VertexStatements, ParameterPointsTextureCoordinatesAndNormals)
{
    const ReadText text("vp 0.25 0.75\nvp 0.1 1 2\nvp 1 2 3 4\nvp 1 2 x y\n"
                        "vt 0.5 0.1\nvt 1 2 3\nvt 1 2 x y z\n"
                        "vn 0 0 2\nVN 0.1 0 0 7 x y\nvn2 0 0 0\n");
    EXPECT_TRUE(text.parsed);
    const VertexLists& lists = text.file.lists;
    EXPECT_THAT(ListOf(lists.paramPoints), ElementsAre(GK_2dPoint{0.25, 0.75}, GK_2dPoint{0.1, 1},
                                                       GK_2dPoint{1, 2}, GK_2dPoint{1, 2}));
    EXPECT_THAT(ListOf(lists.paramWeights), ElementsAre(1, 2, 1, 1));
    EXPECT_THAT(ListOf(lists.texCoords),
                ElementsAre(GK_2fPoint{0.5F, 0.1F}, GK_2fPoint{1, 2}, GK_2fPoint{1, 2}));
    EXPECT_THAT(ListOf(lists.normals),
                ElementsAre(GK_3fVector{0, 0, 2}, GK_3fVector{0.1F, 0, 0}, GK_3fVector()));
}

TEST(VertexStatements, WhatIsRejectedLeavesNothingAndEndsTheParse)
{
    for (const char* const line :
         {"v", "v 1 2", "v a b c", "v 1 2 x", "v 1 2 3 x", "v 1 2 3 x 5 6", "v 1 2 3 4 5 x", "vp",
          "vp 0.5", "vp x 1", "vp 1 x", "vp 1 2 x", "vt", "vt 0.5", "vt x 1", "vt 1 x", "vn 0 0",
          "vn x 0 1", "vn 0 0 x"}) {
        SCOPED_TRACE(line);
        const ReadText text(std::string(line) + "\nv 1 2 3 4 5 6\nvp 1 2\nvt 1 2\n");
        EXPECT_FALSE(text.parsed);
        const VertexLists& lists = text.file.lists;
        EXPECT_EQ(lists.vertices.Count() + lists.vertexWeights.Count() +
                      lists.vertexColors.Count() + lists.paramPoints.Count() +
                      lists.paramWeights.Count() + lists.texCoords.Count() + lists.normals.Count(),
                  0);
        EXPECT_FALSE(lists.hasVertexColors);
        EXPECT_TRUE(text.events.lines.empty());
    }
}

} // namespace
