#pragma once

#include "host/framework/dialog_template.h"

/// Turns dialog units into pixels for the font of a template.
class DialogUnits
{
public:
    /// Measures the font that is used in place of the template's. A display must be open. Where the
    /// font is so wide that a text would not fit its control, the units grow until it does.
    explicit DialogUnits(const DialogTemplate& dialog);

    [[nodiscard]] DialogRect Pixels(const DialogRect& rect) const;
    [[nodiscard]] int FontSize() const { return m_fontSize; }

private:
    void MakeRoomFor(const DialogControl& control);

    int m_fontSize;
    double m_unitWidth;  ///< pixels in one horizontal unit
    double m_unitHeight; ///< pixels in one vertical unit
};
