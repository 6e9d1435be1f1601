#pragma once

#include <cstdint>

/// A colour of three 8-bit channels, a plain value; nothing here fails. A default-made one is
/// black.
class GK_Color
{
public:
    GK_Color() = default;
    GK_Color(int red, int green, int blue) { SetRGB(red, green, blue); }

    /// Sets values 0 to 255; what lies outside is clamped.
    void SetRGB(int red, int green, int blue);

    /// Sets fractions 0 to 1, clamped and rounded to the nearest 255th, halves up. A value that is
    /// not a number counts as 0.
    void SetFractionalRGB(double red, double green, double blue);

    [[nodiscard]] int Red() const { return m_red; }
    [[nodiscard]] int Green() const { return m_green; }
    [[nodiscard]] int Blue() const { return m_blue; }

    friend bool operator==(const GK_Color&, const GK_Color&) = default;

private:
    std::uint8_t m_red = 0;
    std::uint8_t m_green = 0;
    std::uint8_t m_blue = 0;
};
