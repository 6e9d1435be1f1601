#include "objimport/exchange/picture_scene.h"

#include "objimport/exchange/exchange_texts.h"

#include "host/geokit/mesh.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr PictureColor PlainSurface = {200, 203, 208, 255};
constexpr PictureColor PlainLine = {32, 74, 135, 255};
constexpr PictureColor Edge = {44, 47, 52, 255};

bool IsKept(const ExchangeObject& object)
{
    return std::holds_alternative<const GK_Brep*>(object.geometry) ||
           std::holds_alternative<const GK_Curve*>(object.geometry);
}

/// Returns whether faces are so large on average that their sides do not hide them.
bool HasLargeFaces(const ExchangeDocument& document, const ExchangePicture& picture)
{
    constexpr std::int64_t LeastPixels = 250;
    std::int64_t faces = 0;
    for (const ExchangeObject& object : document.objects)
        if (const auto* mesh = std::get_if<const GK_Mesh*>(&object.geometry))
            faces += (*mesh)->FaceCount();
    return faces * LeastPixels <= std::int64_t{picture.width} * picture.height;
}

/// Returns a colour that can be told from the ground, for what is too narrow to be shaded.
PictureColor Narrow(PictureColor color)
{
    const int sum = color.red + color.green + color.blue;
    constexpr int Most = 480;
    if (sum <= Most)
        return {color.red, color.green, color.blue, 255};
    const auto darker = [sum](std::uint8_t channel) {
        return static_cast<std::uint8_t>(channel * Most / sum);
    };
    return {darker(color.red), darker(color.green), darker(color.blue), 255};
}

} // namespace

PictureScene::PictureScene(const ExchangeDocument& document, const ExchangePicture& picture)
    : m_document(document), m_textures(document), m_camera(picture.view, document.isZUp),
      m_lineWidth(std::max(2.0, std::min(picture.width, picture.height) / 350.0)),
      m_hasMeshEdges(HasLargeFaces(document, picture)), m_kept(document.objects.size())
{
    for (std::size_t i = 0; i < m_document.objects.size(); ++i)
        Prepare(i);
    std::stable_sort(m_transparent.begin(), m_transparent.end(),
                     [](const auto& a, const auto& b) { return a.depth < b.depth; });
    m_camera.Fit(picture.width, picture.height);
}

void PictureScene::Prepare(std::size_t object)
{
    ObjectDrawing drawing =
        DrawObject(m_document.objects[object], m_document.tolerance,
                   IsKept(m_document.objects[object]) ? DrawnEdges::Wanted : DrawnEdges::None);
    m_losses.Note(drawing);
    Include(drawing, object);
    if (IsKept(m_document.objects[object]))
        m_kept[object] = std::make_unique<ObjectDrawing>(std::move(drawing));
}

/// Includes in what the camera sees whatever of an object is drawn.
void PictureScene::Include(const ObjectDrawing& drawing, std::size_t object)
{
    double nearest = -std::numeric_limits<double>::infinity();
    double farthest = std::numeric_limits<double>::infinity();
    const auto include = [&](const GK_3dPoint& position) {
        if (!PictureCamera::CanShow(position)) {
            ++m_tooFar;
            return;
        }
        m_camera.Include(position);
        const double depth = m_camera.ToEye(position - GK_origin).z;
        nearest = std::max(nearest, depth);
        farthest = std::min(farthest, depth);
    };
    const bool isSurface = drawing.kind == ObjectDrawing::Kind::Triangles;
    if (isSurface)
        for (const ObjectDrawing::Triangle& triangle : drawing.triangles)
            for (const std::uint32_t corner : triangle)
                include(drawing.positions[corner]);
    else
        std::for_each(drawing.positions.begin(), drawing.positions.end(), include);
    if (drawing.kind == ObjectDrawing::Kind::Points)
        m_points += drawing.positions.size();
    if (nearest < farthest)
        return; // nothing is shown
    if (isSurface && PaintOf(drawing).IsTransparent())
        m_transparent.push_back({object, nearest / 2.0 + farthest / 2.0});
    else
        m_opaque.push_back(object);
}

ObjectDrawing PictureScene::Drawing(std::size_t object) const
{
    return DrawObject(m_document.objects[object], m_document.tolerance,
                      m_hasMeshEdges ? DrawnEdges::Wanted : DrawnEdges::None);
}

PictureColor PictureScene::ColorOf(const ObjectDrawing& drawing) const
{
    if (drawing.material < 0 || drawing.material >= std::ssize(m_document.materials))
        return drawing.kind == ObjectDrawing::Kind::Triangles ? PlainSurface : PlainLine;
    const GK_Material& material = m_document.materials[static_cast<std::size_t>(drawing.material)];
    constexpr double LeastOpacity = 0.1; // what is there can be seen
    const double opacity = std::clamp(1.0 - material.Transparency(), LeastOpacity, 1.0);
    const GK_Color& color = material.Diffuse();
    return {static_cast<std::uint8_t>(color.Red()), static_cast<std::uint8_t>(color.Green()),
            static_cast<std::uint8_t>(color.Blue()),
            static_cast<std::uint8_t>(std::lround(255.0 * opacity))};
}

PictureBrush::Paint PictureScene::PaintOf(const ObjectDrawing& drawing) const
{
    PictureBrush::Paint paint{ColorOf(drawing), nullptr};
    if (!drawing.textureCoordinates.empty())
        paint.image = m_textures.ImageFor(drawing.material);
    if (paint.image != nullptr)
        paint.color = {255, 255, 255, paint.color.alpha}; // the image has the colours
    return paint;
}

void PictureScene::DrawSurface(const ObjectDrawing& drawing, PictureBrush& brush) const
{
    const PictureBrush::Paint paint = PaintOf(drawing);
    if (paint.IsTransparent()) {
        brush.DrawTriangles(drawing, paint, PictureBrush::Sides::Back);
        brush.DrawTriangles(drawing, paint, PictureBrush::Sides::Front);
    } else {
        brush.DrawTriangles(drawing, paint, PictureBrush::Sides::Both);
    }
    for (const ObjectDrawing::Segment& segment : drawing.edges)
        brush.DrawSegment(segment, m_lineWidth / 2.0, Edge);
}

void PictureScene::DrawPoints(const ObjectDrawing& drawing, PictureBrush& brush) const
{
    // Where points are many, they need be neither round nor large to be seen.
    constexpr std::size_t Many = 20'000;
    const double width = m_lineWidth * (m_points > Many ? 1.0 : 3.0);
    const PictureColor color = Narrow(ColorOf(drawing));
    for (const GK_3dPoint& point : drawing.positions) {
        if (m_points > Many)
            brush.DrawSquare(point, width, color);
        else
            brush.DrawDisc(point, width, color);
    }
}

void PictureScene::DrawOne(std::size_t object, PictureBrush& brush) const
{
    const ObjectDrawing made = m_kept[object] ? ObjectDrawing() : Drawing(object);
    const ObjectDrawing& drawing = m_kept[object] ? *m_kept[object] : made;
    switch (drawing.kind) {
    case ObjectDrawing::Kind::Triangles:
        return DrawSurface(drawing, brush);
    case ObjectDrawing::Kind::Line:
        return brush.DrawLine(drawing.positions, m_lineWidth, Narrow(ColorOf(drawing)));
    case ObjectDrawing::Kind::Points:
        return DrawPoints(drawing, brush);
    }
}

void PictureScene::Draw(PictureCanvas& canvas) const
{
    PictureBrush brush(m_camera, canvas);
    for (const std::size_t object : m_opaque)
        DrawOne(object, brush);
    for (const Transparent& transparent : m_transparent)
        DrawOne(transparent.object, brush);
}

std::vector<std::string> PictureScene::Losses() const
{
    std::vector<std::string> losses;
    m_losses.AppendTo(losses);
    if (m_tooFar > 0)
        losses.push_back(Counted(m_tooFar, ExchangeTexts::TooFarOff));
    m_textures.AppendLosses(losses);
    return losses;
}
