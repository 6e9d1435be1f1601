#include "objreader/numbers.h"
#include "objreader/read_obj.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>

namespace {

// How many numbers a statement may give, and what they are.
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

/// Takes the numbers of a line up to its end and gives how many there are; 0 when there are more
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

double RoundToSingle(double value)
{
    return static_cast<double>(static_cast<float>(value));
}

/// Cuts off the fraction; what no integer can hold becomes the nearest one, and no number 0.
int Truncate(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<int>(std::clamp<double>(value, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

/// A colour as files give it: in integers to 255 when its red is above 1, in fractions otherwise.
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

} // namespace

bool CReadOBJ::ReadVertex()
{
    const int count = tokenizer.TokenCount() - 1;
    const int needed = count == PositionAndWeight || count == PositionAndColor ? count : 3;
    VertexValues values;
    if (count < needed ||
        !ReadReals(tokenizer, std::span(values).first(static_cast<std::size_t>(needed))))
        return false;
    AddVertex(values, count);
    return true;
}

bool CReadOBJ::ReadPlainVertex(const char* text)
{
    VertexValues values;
    const int count = TakeReals(text, values);
    if (count < 3 || !tokenizer.SkipLine(text))
        return false;
    AddVertex(values, count);
    return true;
}

/// Adds a position with a weight, a colour or neither: that depends on how many values there were.
void CReadOBJ::AddVertex(const VertexValues& values, int count)
{
    if (count == PositionAndColor) {
        hasVertexColors = true;
        vertexColors.Append(MakeColor({values[3], values[4], values[5]}));
    }
    vertices.Append({RoundToSingle(values[0]), RoundToSingle(values[1]), RoundToSingle(values[2])});
    vertexWeights.Append(count == PositionAndWeight ? values[3] : 1.0);
}

bool CReadOBJ::ReadParamVertex()
{
    const int count = tokenizer.TokenCount() - 1;
    const int needed = count == ParamPointAndWeight ? count : 2;
    std::array<double, ParamPointAndWeight> values;
    if (count < needed ||
        !ReadReals(tokenizer, std::span(values).first(static_cast<std::size_t>(needed))))
        return false;
    paramPoints.Append({values[0], values[1]});
    paramWeights.Append(count == ParamPointAndWeight ? values[2] : 1.0);
    return true;
}

bool CReadOBJ::ReadTexCoord()
{
    std::array<double, 2> values;
    if (tokenizer.TokenCount() < 3 || !ReadReals(tokenizer, values))
        return false;
    texCoords.Append(MakeTexCoord(values[0], values[1]));
    return true;
}

bool CReadOBJ::ReadPlainTexCoord(const char* text)
{
    std::array<double, 3> values;
    if (TakeReals(text, values) < 2 || !tokenizer.SkipLine(text))
        return false;
    texCoords.Append(MakeTexCoord(values[0], values[1]));
    return true;
}

bool CReadOBJ::ReadNormal()
{
    std::array<double, 3> values;
    if (tokenizer.TokenCount() < 4 || !ReadReals(tokenizer, values))
        return false;
    normals.Append(MakeNormal(values));
    return true;
}

bool CReadOBJ::ReadPlainNormal(const char* text)
{
    std::array<double, 3> values;
    if (TakeReals(text, values) < 3 || !tokenizer.SkipLine(text))
        return false;
    normals.Append(MakeNormal(values));
    return true;
}
