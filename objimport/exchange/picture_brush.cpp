#include "objimport/exchange/picture_brush.h"

#include "objimport/exchange/picture_textures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

PictureVertex MakeVertex(const GK_3dPoint& place, PictureColor color)
{
    return {static_cast<float>(place.x),
            static_cast<float>(place.y),
            static_cast<float>(place.z),
            color,
            0.0F,
            0.0F};
}

/// Returns the vector made unit; another one when it has no direction.
GK_3dVector UnitOr(const GK_3dVector& vector, const GK_3dVector& other)
{
    const double length = vector.Length();
    return length > 0.0 && std::isfinite(length) ? (1.0 / length) * vector : other;
}

/// Returns how bright a surface is, whose unit normal is given along the eye's axes: light falls
/// from above at the left, some from the eye and some from everywhere.
double Brightness(const GK_3dVector& normal)
{
    constexpr GK_3dVector Lamp = {-0.37, 0.60, 0.71};
    return 0.42 + 0.42 * std::max(GK_DotProduct(normal, Lamp), 0.0) +
           0.22 * std::max(normal.z, 0.0);
}

PictureColor Lit(PictureColor color, double brightness)
{
    const auto channel = [brightness](std::uint8_t value) {
        return static_cast<std::uint8_t>(std::min(std::lround(value * brightness), 255L));
    };
    return {channel(color.red), channel(color.green), channel(color.blue), color.alpha};
}

/// Returns the colour of a vertex: its own, as opaque as the surface's, or the surface's.
PictureColor ColorAt(const ObjectDrawing& drawing, std::uint32_t vertex, PictureColor color)
{
    if (drawing.colors.empty())
        return color;
    const GK_Color& own = drawing.colors[vertex];
    return {static_cast<std::uint8_t>(own.Red()), static_cast<std::uint8_t>(own.Green()),
            static_cast<std::uint8_t>(own.Blue()), color.alpha};
}

void SetPlaceInImage(const GK_2fPoint& coordinates, PictureVertex& corner)
{
    corner.u = std::isfinite(coordinates.x) ? coordinates.x : 0.0F;
    corner.v = std::isfinite(coordinates.y) ? coordinates.y : 0.0F;
}

} // namespace

bool PictureBrush::Paint::IsTransparent() const
{
    return color.alpha < 255 || (image != nullptr && image->isTransparent);
}

void PictureBrush::DrawTriangles(const ObjectDrawing& drawing, const Paint& paint, Sides sides)
{
    m_canvas.SetImage(paint.image);
    for (const ObjectDrawing::Triangle& triangle : drawing.triangles)
        DrawTriangle(drawing, triangle, paint, sides);
    m_canvas.SetImage(nullptr);
}

void PictureBrush::DrawTriangle(const ObjectDrawing& drawing,
                                const ObjectDrawing::Triangle& triangle, const Paint& paint,
                                Sides sides)
{
    std::array<GK_3dPoint, 3> places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const GK_3dPoint& position = drawing.positions[triangle[i]];
        if (!PictureCamera::CanShow(position))
            return;
        places[i] = m_camera.ToPixels(position);
    }
    const GK_3dVector across = GK_CrossProduct(places[1] - places[0], places[2] - places[0]);
    const bool isFront = across.z >= 0.0;
    if (sides != Sides::Both && isFront != (sides == Sides::Front))
        return;
    const double side = isFront ? 1.0 : -1.0;
    const GK_3dVector flat = UnitOr(side * across, {0.0, 0.0, 1.0});
    PictureTriangle corners;
    for (std::size_t i = 0; i < places.size(); ++i) {
        GK_3dVector normal = flat;
        if (!drawing.normals.empty()) {
            const GK_3fVector& given = drawing.normals[triangle[i]];
            normal = UnitOr(side * m_camera.ToEye({given.x, given.y, given.z}), flat);
        }
        const PictureColor color = ColorAt(drawing, triangle[i], paint.color);
        corners[i] = MakeVertex(places[i], Lit(color, Brightness(normal)));
        if (paint.image != nullptr)
            SetPlaceInImage(drawing.textureCoordinates[triangle[i]], corners[i]);
    }
    m_canvas.Add(paint.IsTransparent() ? PictureCanvas::Mode::Transparent
                                       : PictureCanvas::Mode::Surface,
                 corners);
}

void PictureBrush::DrawFan(std::span<const GK_3dPoint> corners, PictureColor color)
{
    for (std::size_t i = 2; i < corners.size(); ++i)
        m_canvas.Add(PictureCanvas::Mode::Line,
                     {MakeVertex(corners[0], color), MakeVertex(corners[i - 1], color),
                      MakeVertex(corners[i], color)});
}

void PictureBrush::DrawSegment(const ObjectDrawing::Segment& segment, double width,
                               PictureColor color)
{
    if (!PictureCamera::CanShow(segment[0]) || !PictureCamera::CanShow(segment[1]))
        return;
    const GK_3dPoint from = m_camera.ToPixels(segment[0]);
    const GK_3dPoint to = m_camera.ToPixels(segment[1]);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (length == 0.0)
        return;
    const double factor = width / (2.0 * length);
    const GK_3dVector aside = {factor * (from.y - to.y), factor * (to.x - from.x), 0.0};
    const GK_3dVector back = -1.0 * aside;
    DrawFan(std::array{from + back, to + back, to + aside, from + aside}, color);
}

void PictureBrush::DrawLine(std::span<const GK_3dPoint> points, double width, PictureColor color)
{
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i > 0)
            DrawSegment({points[i - 1], points[i]}, width, color);
        DrawDisc(points[i], width, color); // rounds the corners
    }
}

void PictureBrush::DrawSquare(const GK_3dPoint& point, double width, PictureColor color)
{
    if (!PictureCamera::CanShow(point))
        return;
    const GK_3dPoint at = m_camera.ToPixels(point);
    const double half = width / 2.0;
    DrawFan(std::array{at + GK_3dVector{-half, -half, 0.0}, at + GK_3dVector{half, -half, 0.0},
                       at + GK_3dVector{half, half, 0.0}, at + GK_3dVector{-half, half, 0.0}},
            color);
}

void PictureBrush::DrawDisc(const GK_3dPoint& point, double width, PictureColor color)
{
    if (!PictureCamera::CanShow(point))
        return;
    const GK_3dPoint at = m_camera.ToPixels(point);
    std::array<GK_3dPoint, 12> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const double angle = 2.0 * std::numbers::pi * static_cast<double>(i) / corners.size();
        corners[i] =
            at + GK_3dVector{width / 2.0 * std::cos(angle), width / 2.0 * std::sin(angle), 0.0};
    }
    DrawFan(corners, color);
}
