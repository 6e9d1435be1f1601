#pragma once

#include "objimport/exchange/exchange.h"

#include <array>

/// Where an eye sees points of a document, in parallel projection. What it has to see is included
/// first; then the whole of it fills the picture.
class PictureCamera
{
public:
    PictureCamera(ExchangeView view, bool isZUp);

    /// Returns whether a point lies so near the origin that its place can be computed.
    [[nodiscard]] static bool CanShow(const GK_3dPoint& point);

    /// Includes a point that can be shown in what is to be seen.
    void Include(const GK_3dPoint& point);

    /// Sets the scale and the place so that all that was included fills a picture of that many
    /// pixels but for a margin.
    void Fit(int width, int height);

    /// Returns the place of a point in pixels: x to the right and y up from the lower left corner,
    /// z towards the eye.
    [[nodiscard]] GK_3dPoint ToPixels(const GK_3dPoint& point) const;

    /// Returns a direction of the document along the axes to the right, up and towards the eye.
    [[nodiscard]] GK_3dVector ToEye(const GK_3dVector& direction) const;

    /// Return the range of z, in pixels, of what was included.
    [[nodiscard]] double Farthest() const { return m_scale * m_low[2] + m_offset[2]; }
    [[nodiscard]] double Nearest() const { return m_scale * m_high[2] + m_offset[2]; }

private:
    std::array<GK_3dVector, 3> m_axes; ///< to the right, up, towards the eye; in the document
    std::array<double, 3> m_low{};     ///< along these axes, of what was included
    std::array<double, 3> m_high{};
    std::array<double, 3> m_offset{};
    double m_scale = 1.0;
    bool m_isEmpty = true;
};
