// Lines that are read in place must have the same result as if they had been cut into tokens.

#include "tests/objreader/read_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <sstream>

namespace {

constexpr std::string_view FirstElements = "v 1 2 3\nv 4 5 6\nvt 1 2\nvn 0 0 1\nvn 0 1 0\n";

/// Returns all that reading keeps of a text, and what it reports.
std::string Report(std::string_view text)
{
    const ReadText read(text);
    const VertexLists& lists = read.file.lists;
    std::ostringstream report;
    report.precision(17);
    report << read.parsed << ' ' << read.file.BogusIndexCount << '\n';
    for (const GK_3fPoint& point : lists.vertices)
        report << "v " << point.x << ' ' << point.y << ' ' << point.z << '\n';
    for (const double weight : lists.vertexWeights)
        report << "weight " << weight << '\n';
    for (const GK_Color& color : lists.vertexColors)
        report << "colour " << color.Red() << ' ' << color.Green() << ' ' << color.Blue() << '\n';
    for (const GK_2fPoint& point : lists.texCoords)
        report << "vt " << point.x << ' ' << point.y << '\n';
    for (const GK_3fVector& normal : lists.normals)
        report << "vn " << normal.x << ' ' << normal.y << ' ' << normal.z << '\n';
    if (const auto& geometry = read.reading.currentGroup->geometry) {
        report << "corners " << Shown(CornersOf(*geometry)) << geometry->hasEmptyCorner;
        for (const int count : CornerCountsOf(*geometry))
            report << "\nf " << count;
    }
    for (const std::string& line : read.events.lines)
        report << line;
    return report.str();
}

/// Returns the text with tabs for its spaces: they separate as well, but make each line one to be
/// cut.
std::string WithTabs(std::string text)
{
    std::replace(text.begin(), text.end(), ' ', '\t');
    return text;
}

void Compare(const std::string& text)
{
    ASSERT_EQ(Report(text), Report(WithTabs(text))) << text;
}

TEST(PlainLines, WhateverIsAlmostPlain)
{
    std::istringstream lines(
        "v 1.5 -2.5 +0.25|v 1.5  2.5   3.5  |v .5 5. 1e3|v 1 2|v|v |v 1 2 3 0.5|v 1 2 3 4 5|"
        "v 1 2 3 0.5 0.25 1|v 1 2 3 4 5 6 7|v 1 2 3 x|v 1 2 x|v 1.5-3 2 3|v 1.5,3 2 3|v 1.5.5 2 3|"
        "v 12345678.5 123456789.5 1.23456789|v 0x10 inf nan|v infinity nan(1) 1e|v -.0 -0.0 -0|"
        "v. 1 2 3|V 1 2 3| v 1 2 3|v 1 2\\\n3|v 1 2 3 \\\n0.5|v 1 2 3#|v 1 2 3 # 4|v\n1 2 3|"
        "vt 0.5 0.25|vt 1 2 3|vt 1 2 3 4|vt 1|vt 1 x|vt 1 2 x|vtx 1 2|vt\n1 2|vn 0 0 1|vn 0 0|"
        "vn 0 0 1 2|vn 0 0 x|vx 1 2 3|vn\n1 2 3|f 1 2 1|f 1/1 2/1 1/1|f 1/1/1 2/1/2 1/1/1|"
        "f 1//1 2//2 1//1|f -1 -2 -1|f -1/-1/-2 1/1/1 2/1/2|f 1  2 1 |f 1 2|f|f |f 1 2 1 2 1 2|"
        "f 1 2 3|f 0 1 2|f -0 1 2|f -3 1 2|f 1/1 2 1|f 1 2/1 1|f 1/ 2/ 1/|f /1 1/1 2/1|"
        "f 1/1/ 2/1/ 1/1/|f 1// 2// 1//|f 1/1/1/1 2 1|f 1/2 2/1 1/1|f 1/1/3 2/1/1 1/1/1|"
        "f 00000001 2 1|f 000000001 2 1|f 100000000 1 2|f 1x 2 1|f +1 2 1|f 1.5 2 1|f 1-2 2 1|"
        "f 1 x 2|f --1 2 1|F 1 2 1|face 1 2 1|f 1 2 \\\n1|f 1 2 1 # 2|f\n1 2 1");
    for (std::string line; std::getline(lines, line, '|');) {
        for (const char* const end : {"", "\n", "\r\n", "\r"})
            Compare(std::string(FirstElements).append(line) + end);
        Compare(std::string(FirstElements) + line + "\nf 1 2 1\n");
    }
}

TEST(PlainLines, RandomLines)
{
    const char* const keywords[] = {"v", "v", "vt", "vn", "f", "f", "f"};
    const char* const tokens[] = {"1",       "2", "-1",  "1/1", "2/1", "1//1",  "2//2", "1/1/1",
                                  "-1/1/-2", "0", "3/1", "0.5", "1.",  "-2.25", "1e2",  "x"};
    const char* const ends[] = {"\n", "\r\n", " \n", "\r"};
    std::mt19937 random(4);
    const auto pick = [&random](const auto& list) { return list[random() % std::size(list)]; };
    for (int i = 0; i < 2000 && !testing::Test::HasFatalFailure(); ++i) {
        std::string text(FirstElements);
        for (int line = 0; line < 8; ++line) {
            text += pick(keywords);
            // The first tokens are numbers more often than not.
            const std::size_t known = random() % 4 == 0 ? std::size(tokens) : 3;
            for (auto left = random() % 4 + 2; left > 0; --left)
                text += std::string(random() % 8 == 0 ? "  " : " ") + tokens[random() % known];
            text += pick(ends);
        }
        Compare(text);
    }
}

} // namespace
