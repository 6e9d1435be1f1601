#include "objreader/numbers.h"
#include "objreader/obj_reading.h"
#include "objreader/plain_statements.h"
#include "objreader/statements.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

namespace {

// How many numbers a statement may have, and what they are.
constexpr int PositionAndWeight = 4;
constexpr int PositionAndColor = 6;
constexpr int ParamPointAndWeight = 3;

/// Reads the first values of a statement, as many as are asked for. False when one is no number.
bool ReadReals(const CObjLineTokenizer& tokenizer, std::span<double> values)
{
    const char* const* token = tokenizer.Tokens();
    return std::all_of(values.begin(), values.end(),
                       [&token](double& value) { return ReadReal(*++token, value); });
}

/// Takes the numbers of a line up to its end and returns how many there are; 0 when there are more
/// than N, or when something else stands there.
template <std::size_t N>
[[gnu::always_inline]] inline int TakeReals(const char*& text, std::array<double, N>& values)
{
    std::size_t count = 0;
    for (; SkipSpaces(text); ++count) {
        if (count == N || !TakeReal(text, values[count]) || !EndsNumber(*text))
            return 0;
    }
    return static_cast<int>(count);
}

/// Cuts off the fraction; what no integer can hold becomes the nearest one, and no number 0.
int Truncate(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp<double>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// Returns a colour that stands in a file: in integers to 255 when its red is above 1, in fractions
/// otherwise.
GK_Color MakeColor(const std::array<double, 3>& rgb)
{
    GK_Color color;
    if (rgb[0] > 1.0)
        color.SetRGB(Truncate(rgb[0]), Truncate(rgb[1]), Truncate(rgb[2]));
    else
        color.SetFractionalRGB(rgb[0], rgb[1], rgb[2]);
    return color;
}

GK_2fPoint MakeTexCoord(double u, double v)
{
    return {static_cast<float>(u), static_cast<float>(v)};
}

GK_3fVector MakeNormal(const std::array<double, 3>& values)
{
    return {static_cast<float>(values[0]), static_cast<float>(values[1]),
            static_cast<float>(values[2])};
}

using VertexValues = std::array<double, 6>;

/// Adds a position with a weight, a colour or neither: that depends on how many values there were.
void AddVertex(VertexLists& lists, const VertexValues& values, int count)
{
    if (count == PositionAndColor) {
        lists.hasVertexColors = true;
        lists.vertexColors.Append(MakeColor({values[3], values[4], values[5]}));
    }
    lists.AddVertex(GK_3fPoint(GK_3dPoint{values[0], values[1], values[2]}),
                    count == PositionAndWeight ? values[3] : 1.0);
}

} // namespace

bool ReadVertex(ObjReading& reading)
{
    const int count = reading.tokenizer.TokenCount() - 1;
    const int needed = count == PositionAndWeight || count == PositionAndColor ? count : 3;
    VertexValues values;
    if (count < needed ||
        !ReadReals(reading.tokenizer, std::span(values).first(static_cast<std::size_t>(needed))))
        return false;
    AddVertex(reading.file.lists, values, count);
    return true;
}

bool ReadPlainVertex(PlainText& text, const char* numbers, VertexLists& lists)
{
    VertexValues values;
    const int count = TakeReals(numbers, values);
    if (count < 3 || !text.SkipLine(numbers))
        return false;
    AddVertex(lists, values, count);
    return true;
}

bool ReadParamVertex(ObjReading& reading)
{
    const int count = reading.tokenizer.TokenCount() - 1;
    const int needed = count == ParamPointAndWeight ? count : 2;
    std::array<double, ParamPointAndWeight> values;
    if (count < needed ||
        !ReadReals(reading.tokenizer, std::span(values).first(static_cast<std::size_t>(needed))))
        return false;
    VertexLists& lists = reading.file.lists;
    lists.paramPoints.Append({values[0], values[1]});
    lists.paramWeights.Append(count == ParamPointAndWeight ? values[2] : 1.0);
    return true;
}

bool ReadTexCoord(ObjReading& reading)
{
    std::array<double, 2> values;
    if (reading.tokenizer.TokenCount() < 3 || !ReadReals(reading.tokenizer, values))
        return false;
    reading.file.lists.texCoords.Append(MakeTexCoord(values[0], values[1]));
    return true;
}

bool ReadPlainTexCoord(PlainText& text, const char* numbers, VertexLists& lists)
{
    std::array<double, 3> values;
    if (TakeReals(numbers, values) < 2 || !text.SkipLine(numbers))
        return false;
    lists.texCoords.Append(MakeTexCoord(values[0], values[1]));
    return true;
}

bool ReadNormal(ObjReading& reading)
{
    std::array<double, 3> values;
    if (reading.tokenizer.TokenCount() < 4 || !ReadReals(reading.tokenizer, values))
        return false;
    reading.file.lists.normals.Append(MakeNormal(values));
    return true;
}

bool ReadPlainNormal(PlainText& text, const char* numbers, VertexLists& lists)
{
    std::array<double, 3> values;
    if (TakeReals(numbers, values) < 3 || !text.SkipLine(numbers))
        return false;
    lists.normals.Append(MakeNormal(values));
    return true;
}
