#pragma once

#include "objimport/exchange/object_drawing.h"
#include "objimport/exchange/picture_camera.h"
#include "objimport/exchange/picture_canvas.h"

/// Draws what documents hold, as a camera sees it, on a canvas. What it cannot show is left out.
class PictureBrush
{
public:
    /// Which triangles are drawn, by the side that the eye sees.
    enum class Sides
    {
        Both,
        Back,
        Front
    };

    PictureBrush(const PictureCamera& camera, PictureCanvas& canvas)
        : m_camera(camera), m_canvas(canvas)
    {
    }

    /// How a surface is covered. The colours of its vertices replace the colour, where there are
    /// any. The image is laid over by the texture coordinates, which there must be; null: none.
    struct Paint
    {
        PictureColor color;
        const PictureImage* image = nullptr;

        [[nodiscard]] bool IsTransparent() const;
    };

    /// Draws the triangles of a mesh or brep in the light that falls on them. Both sides are alike.
    void DrawTriangles(const ObjectDrawing& drawing, const Paint& paint, Sides sides);

    /// Draw lines, and squares or discs at points, of a width in pixels that is the same in every
    /// direction.
    void DrawLine(std::span<const GK_3dPoint> points, double width, PictureColor color);
    void DrawSegment(const ObjectDrawing::Segment& segment, double width, PictureColor color);
    void DrawSquare(const GK_3dPoint& point, double width, PictureColor color);
    void DrawDisc(const GK_3dPoint& point, double width, PictureColor color);

private:
    void DrawTriangle(const ObjectDrawing& drawing, const ObjectDrawing::Triangle& triangle,
                      const Paint& paint, Sides sides);
    void DrawFan(std::span<const GK_3dPoint> corners, PictureColor color);

    const PictureCamera& m_camera;
    PictureCanvas& m_canvas;
};
