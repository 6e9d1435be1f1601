#pragma once

#include "objimport/exchange/drawing_losses.h"
#include "objimport/exchange/picture_brush.h"
#include "objimport/exchange/picture_textures.h"

#include <memory>

/// The objects of a document in the order in which they are drawn, again and again for the parts
/// of a picture. Meshes and points, whose drawings are soon made, are drawn from the document each
/// time.
class PictureScene
{
public:
    /// Views the document. Throws std::bad_alloc when out of memory.
    PictureScene(const ExchangeDocument& document, const ExchangePicture& picture);

    [[nodiscard]] const PictureCamera& Camera() const { return m_camera; }

    void Draw(PictureCanvas& canvas) const;

    /// Returns how many objects there are to be seen.
    [[nodiscard]] std::size_t ShownCount() const { return m_opaque.size() + m_transparent.size(); }

    /// Returns what is not drawn, or not as it is, with counts.
    [[nodiscard]] std::vector<std::string> Losses() const;

private:
    struct Transparent
    {
        std::size_t object = 0;
        double depth = 0.0; ///< of the middle of the object
    };

    void Prepare(std::size_t object);
    void Include(const ObjectDrawing& drawing, std::size_t object);
    [[nodiscard]] ObjectDrawing Drawing(std::size_t object) const;
    [[nodiscard]] PictureColor ColorOf(const ObjectDrawing& drawing) const;
    [[nodiscard]] PictureBrush::Paint PaintOf(const ObjectDrawing& drawing) const;
    void DrawOne(std::size_t object, PictureBrush& brush) const;
    void DrawSurface(const ObjectDrawing& drawing, PictureBrush& brush) const;
    void DrawPoints(const ObjectDrawing& drawing, PictureBrush& brush) const;

    const ExchangeDocument& m_document;
    PictureTextures m_textures;
    PictureCamera m_camera;
    double m_lineWidth;                                 ///< of curves, in pixels
    bool m_hasMeshEdges;                                ///< which help where faces are large
    std::vector<std::unique_ptr<ObjectDrawing>> m_kept; ///< by objects: of breps and curves
    std::vector<std::size_t> m_opaque;
    std::vector<Transparent> m_transparent; ///< the farthest first
    std::size_t m_points = 0;
    std::size_t m_tooFar = 0; ///< positions that cannot be shown
    DrawingLosses m_losses;
};
