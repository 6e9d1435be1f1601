#include "host/geokit/color.h"

#include <algorithm>
#include <cmath>

namespace {

std::uint8_t ChannelOfInteger(int value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

std::uint8_t ChannelOfFraction(double value)
{
    if (std::isnan(value))
        return 0;
    return static_cast<std::uint8_t>(std::floor(std::clamp(value, 0.0, 1.0) * 255.0 + 0.5));
}

} // namespace

void GK_Color::SetRGB(int red, int green, int blue)
{
    m_red = ChannelOfInteger(red);
    m_green = ChannelOfInteger(green);
    m_blue = ChannelOfInteger(blue);
}

void GK_Color::SetFractionalRGB(double red, double green, double blue)
{
    m_red = ChannelOfFraction(red);
    m_green = ChannelOfFraction(green);
    m_blue = ChannelOfFraction(blue);
}
