#include "objreader/numbers.h"
#include "objreader/read_obj.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

/// Reads `N` tokens from the given one on as reals. False when one of them is no number.
template <std::size_t N>
bool ReadReals(const CObjLineTokenizer& tokenizer, int firstToken, std::array<double, N>& values)
{
    const char* const* token = tokenizer.Tokens() + firstToken;
    for (double& value : values) {
        if (!ReadReal(*token++, value))
            return false;
    }
    return true;
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

} // namespace

bool CReadOBJ::ReadVertex()
{
    constexpr int WithWeight = 5;
    constexpr int WithColor = 7;
    const int tokenCount = tokenizer.TokenCount();
    std::array<double, 3> position{};
    std::array<double, 1> weight{1.0};
    std::array<double, 3> rgb{};
    if (tokenCount < 4 || !ReadReals(tokenizer, 1, position))
        return false;
    if (tokenCount == WithWeight && !ReadReals(tokenizer, 4, weight))
        return false;
    if (tokenCount == WithColor && !ReadReals(tokenizer, 4, rgb))
        return false;

    if (tokenCount == WithColor) {
        hasVertexColors = true;
        vertexColors.Append(MakeColor(rgb));
    }
    vertices.Append(
        {RoundToSingle(position[0]), RoundToSingle(position[1]), RoundToSingle(position[2])});
    vertexWeights.Append(weight[0]);
    return true;
}

bool CReadOBJ::ReadParamVertex()
{
    constexpr int WithWeight = 4;
    const int tokenCount = tokenizer.TokenCount();
    std::array<double, 2> point{};
    std::array<double, 1> weight{1.0};
    if (tokenCount < 3 || !ReadReals(tokenizer, 1, point))
        return false;
    if (tokenCount == WithWeight && !ReadReals(tokenizer, 3, weight))
        return false;
    paramPoints.Append({point[0], point[1]});
    paramWeights.Append(weight[0]);
    return true;
}

bool CReadOBJ::ReadTexCoord()
{
    std::array<double, 2> point{};
    if (tokenizer.TokenCount() < 3 || !ReadReals(tokenizer, 1, point))
        return false;
    texCoords.Append({static_cast<float>(point[0]), static_cast<float>(point[1])});
    return true;
}

bool CReadOBJ::ReadNormal()
{
    std::array<double, 3> normal{};
    if (tokenizer.TokenCount() < 4 || !ReadReals(tokenizer, 1, normal))
        return false;
    normals.Append({static_cast<float>(normal[0]), static_cast<float>(normal[1]),
                    static_cast<float>(normal[2])});
    return true;
}
