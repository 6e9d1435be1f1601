#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

class CKelvoDib;
struct PictureImage;

struct PictureColor
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend bool operator==(const PictureColor&, const PictureColor&) = default;
};

/// A corner of a triangle that is drawn: x to the right and y up from the lower left corner of the
/// picture, z towards the eye, all in pixels.
struct PictureVertex
{
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    PictureColor color;
    float u = 0.0F; ///< place in the image, if there is one; v runs up
    float v = 0.0F;
};

using PictureTriangle = std::array<PictureVertex, 3>;

/// Why a picture cannot be drawn.
class PictureError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The part of a picture that is drawn at a time. The lower left corner is at x, y.
struct PictureTile
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Draws triangles, what is nearer over what is farther, with smooth edges: each pixel is the mean
/// of four. Mesa does it without a display.
class PictureCanvas
{
public:
    static constexpr PictureColor Ground = {235, 236, 238, 255};

    /// How triangles meet what is there already.
    enum class Mode
    {
        Surface,     ///< a little farther off than the same place is for lines
        Transparent, ///< as surfaces, mixed with what is there; covers nothing that comes later
        Line
    };

    /// Makes a canvas for tiles up to a size. Depths are the range of z of all triangles. Throws
    /// PictureError when that is not possible, std::bad_alloc when out of memory.
    PictureCanvas(int width, int height, double farthest, double nearest);
    PictureCanvas(const PictureCanvas&) = delete;
    PictureCanvas& operator=(const PictureCanvas&) = delete;
    ~PictureCanvas();

    /// Begins a tile with nothing but the ground.
    void Begin(const PictureTile& tile);

    void Add(Mode mode, const PictureTriangle& triangle)
    {
        if (mode != m_mode || m_corners.size() == MostCorners)
            Flush(mode);
        m_corners.insert(m_corners.end(), triangle.begin(), triangle.end());
    }

    /// Covers the triangles that follow with an image, which dims their colours; with none when it
    /// is null. The image remains the caller's and must outlive the canvas.
    void SetImage(const PictureImage* image);

    /// Ends the tile and copies it to its place in the image, whose pixels have 24 bits.
    void Finish(CKelvoDib& image);

private:
    static constexpr std::size_t MostCorners = std::size_t{3} << 15U;

    struct EndContext
    {
        void operator()(void* context) const;
    };

    void Flush(Mode next);
    void BindImage();
    void SetMode() const;

    int m_width;
    int m_height;
    double m_farthest;
    double m_nearest;
    PictureTile m_tile;
    Mode m_mode = Mode::Surface;
    std::vector<PictureVertex> m_corners;
    std::vector<std::uint32_t> m_samples; ///< of the canvas, two by two for a pixel
    const PictureImage* m_image = nullptr;
    std::map<const PictureImage*, unsigned> m_textures; ///< as the context knows them
    std::unique_ptr<void, EndContext> m_context;
};
