#include "console_host/framework/dialog_units.h"

#include <FL/Fl.H>
#include <FL/fl_draw.H>
#include <algorithm>
#include <cmath>
#include <string>

namespace {

constexpr double PointsPerInch = 72.0;
constexpr int SmallestFontSize = 11;

int FontSizeInPixels(int pointSize)
{
    float horizontal = 0.0F;
    float vertical = 0.0F;
    Fl::screen_dpi(horizontal, vertical);
    const double size = pointSize * static_cast<double>(vertical) / PointsPerInch;
    return std::max(SmallestFontSize, static_cast<int>(std::lround(size)));
}

double AverageCharacterWidth()
{
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return fl_width(letters.c_str()) / static_cast<double>(letters.size());
}

} // namespace

DialogUnits::DialogUnits(const DialogTemplate& dialog)
    : m_fontSize(FontSizeInPixels(dialog.pointSize))
{
    fl_font(FL_HELVETICA, m_fontSize);
    m_unitWidth = AverageCharacterWidth() / 4.0;
    m_unitHeight = fl_height() / 8.0;
    for (const DialogControl& control : dialog.controls)
        MakeRoomFor(control);
}

void DialogUnits::MakeRoomFor(const DialogControl& control)
{
    const bool hasMark = control.kind == DialogControlKind::CheckBox ||
                         control.kind == DialogControlKind::RadioButton;
    const double margin = hasMark ? 2.0 * m_fontSize : 4.0;
    const double needed = fl_width(control.text) + margin;
    if (*control.text != '\0' && control.place.width > 0)
        m_unitWidth = std::max(m_unitWidth, needed / control.place.width);
}

DialogRect DialogUnits::Pixels(const DialogRect& rect) const
{
    const auto pixels = [](int units, double unit) {
        return static_cast<int>(std::lround(units * unit));
    };
    return {pixels(rect.x, m_unitWidth), pixels(rect.y, m_unitHeight),
            pixels(rect.width, m_unitWidth), pixels(rect.height, m_unitHeight)};
}
