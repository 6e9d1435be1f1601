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

    /// Draws the triangles of a mesh or brep in a colour, which those of its vertices replace where
    /// there are any, in the light that falls on them. Both sides are alike.
    void DrawTriangles(const ObjectDrawing& drawing, PictureColor color, Sides sides);

    /// Draw lines, and squares or discs at points, of a width in pixels that is the same in every
    /// direction.
    void DrawLine(std::span<const GK_3dPoint> points, double width, PictureColor color);
    void DrawSegment(const ObjectDrawing::Segment& segment, double width, PictureColor color);
    void DrawSquare(const GK_3dPoint& point, double width, PictureColor color);
    void DrawDisc(const GK_3dPoint& point, double width, PictureColor color);

private:
    void DrawTriangle(const ObjectDrawing& drawing, const ObjectDrawing::Triangle& triangle,
                      PictureColor color, Sides sides);
    void DrawFan(std::span<const GK_3dPoint> corners, PictureColor color);

    const PictureCamera& m_camera;
    PictureCanvas& m_canvas;
};
