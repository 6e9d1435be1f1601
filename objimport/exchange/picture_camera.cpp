#include "objimport/exchange/picture_camera.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double Limit = 1e100; ///< of coordinates

GK_3dVector Unit(const GK_3dVector& vector)
{
    return (1.0 / vector.Length()) * vector;
}

/// Returns the direction towards the eye where Y points up.
GK_3dVector TowardsEye(ExchangeView view)
{
    switch (view) {
    case ExchangeView::Top:
        return {0.0, 1.0, 0.0};
    case ExchangeView::Front:
        return {0.0, 0.0, 1.0};
    case ExchangeView::Right:
        return {1.0, 0.0, 0.0};
    case ExchangeView::Iso:
        break;
    }
    return Unit({0.75, 0.7, 1.0}); // no two edges of a box fall on each other
}

GK_3dVector Along(const std::array<GK_3dVector, 3>& axes, const GK_3dVector& direction)
{
    return {GK_DotProduct(axes[0], direction), GK_DotProduct(axes[1], direction),
            GK_DotProduct(axes[2], direction)};
}

} // namespace

PictureCamera::PictureCamera(ExchangeView view, bool isZUp)
{
    const GK_3dVector eye = TowardsEye(view);
    const GK_3dVector up =
        view == ExchangeView::Top ? GK_3dVector{0.0, 0.0, -1.0} : GK_3dVector{0.0, 1.0, 0.0};
    const GK_3dVector right = Unit(GK_CrossProduct(up, eye));
    m_axes = {right, GK_CrossProduct(eye, right), eye};
    if (isZUp) // a quarter turn about X, from Y to Z
        for (GK_3dVector& axis : m_axes)
            axis = {axis.x, -axis.z, axis.y};
}

bool PictureCamera::CanShow(const GK_3dPoint& point)
{
    return std::abs(point.x) < Limit && std::abs(point.y) < Limit && std::abs(point.z) < Limit;
}

void PictureCamera::Include(const GK_3dPoint& point)
{
    const GK_3dVector place = Along(m_axes, point - GK_origin);
    const std::array at = {place.x, place.y, place.z};
    for (std::size_t i = 0; i < at.size(); ++i) {
        m_low[i] = m_isEmpty ? at[i] : std::min(m_low[i], at[i]);
        m_high[i] = m_isEmpty ? at[i] : std::max(m_high[i], at[i]);
    }
    m_isEmpty = false;
}

void PictureCamera::Fit(int width, int height)
{
    // Below this, differences are rounding.
    double least = 1e-100;
    for (std::size_t i = 0; i < m_low.size(); ++i)
        least = std::max({least, 1e-12 * std::abs(m_low[i]), 1e-12 * std::abs(m_high[i])});
    const double shorter = std::min(width, height);
    const double margin = std::min(0.04 * shorter + 4.0, 0.25 * shorter);
    m_scale = std::min((width - 2.0 * margin) / std::max(m_high[0] - m_low[0], least),
                       (height - 2.0 * margin) / std::max(m_high[1] - m_low[1], least));
    if (m_high[0] - m_low[0] <= least && m_high[1] - m_low[1] <= least)
        m_scale = 1.0 / std::max(m_high[2] - m_low[2], least); // a point, or a line from the eye
    const std::array middle = {width / 2.0, height / 2.0, 0.0};
    for (std::size_t i = 0; i < middle.size(); ++i)
        m_offset[i] = middle[i] - m_scale * (m_low[i] / 2.0 + m_high[i] / 2.0);
}

GK_3dPoint PictureCamera::ToPixels(const GK_3dPoint& point) const
{
    const GK_3dVector place = Along(m_axes, point - GK_origin);
    return {m_scale * place.x + m_offset[0], m_scale * place.y + m_offset[1],
            m_scale * place.z + m_offset[2]};
}

GK_3dVector PictureCamera::ToEye(const GK_3dVector& direction) const
{
    return Along(m_axes, direction);
}
