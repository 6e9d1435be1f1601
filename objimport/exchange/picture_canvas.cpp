#include "objimport/exchange/picture_canvas.h"

#include "objimport/exchange/picture_textures.h"

#include "host/app/dib.h"

#include <GL/osmesa.h>
#include <cstddef>
#include <new>

namespace {

constexpr int Fineness = 2; ///< samples in a pixel, in each direction

/// Copies a row of pixels, each the mean of its samples, as blue, green and red.
void CopyRow(const std::uint8_t* samples, std::size_t stride, int count, unsigned char* to)
{
    constexpr std::size_t Channels = 4;
    const std::uint8_t* above = samples + stride;
    for (int i = 0; i < count; ++i, to += 3) {
        for (std::size_t channel = 0; channel < 3; ++channel)
            to[2 - channel] =
                static_cast<unsigned char>((samples[channel] + samples[channel + Channels] +
                                            above[channel] + above[channel + Channels] + 2) /
                                           4);
        samples += Channels * Fineness;
        above += Channels * Fineness;
    }
}

/// Throws std::bad_alloc unless there is memory for what Mesa needs to draw that many samples,
/// which does not always notice when there is none.
void CheckMemory(std::size_t sampleCount)
{
    constexpr std::size_t OfSample = 16;
    constexpr std::size_t OfCompiler = std::size_t{256} << 20U; // and of its threads' stacks
    unsigned char* volatile room = new unsigned char[OfCompiler + sampleCount * OfSample];
    delete[] room;
}

/// Throws when drawing has failed.
void CheckDrawn()
{
    const GLenum error = glGetError();
    if (error == GL_OUT_OF_MEMORY)
        throw std::bad_alloc();
    if (error != GL_NO_ERROR)
        throw PictureError("OSMesa does not draw the picture: error " + std::to_string(error));
}

} // namespace

void PictureCanvas::EndContext::operator()(void* context) const
{
    OSMesaDestroyContext(static_cast<OSMesaContext>(context));
}

PictureCanvas::PictureCanvas(int width, int height, double farthest, double nearest)
    : m_width(width), m_height(height), m_farthest(farthest), m_nearest(nearest),
      m_samples(static_cast<std::size_t>(width) * Fineness * static_cast<std::size_t>(height) *
                Fineness)
{
    m_corners.reserve(MostCorners);
    CheckMemory(m_samples.size());
    m_context.reset(OSMesaCreateContextExt(OSMESA_RGBA, 24, 0, 0, nullptr));
    if (!m_context ||
        OSMesaMakeCurrent(static_cast<OSMesaContext>(m_context.get()), m_samples.data(),
                          GL_UNSIGNED_BYTE, width * Fineness, height * Fineness) == GL_FALSE)
        throw PictureError("OSMesa does not draw pictures of this size here");
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glPolygonOffset(2.0F, 2.0F);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    CheckDrawn();
}

PictureCanvas::~PictureCanvas() = default;

void PictureCanvas::Begin(const PictureTile& tile)
{
    m_tile = tile;
    m_corners.clear();
    glViewport(0, 0, m_width * Fineness, m_height * Fineness);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // Room for the thickness of lines, and for rounding.
    const double room = 8.0 + (m_nearest - m_farthest) * 1e-3;
    glOrtho(tile.x, tile.x + m_width, tile.y, tile.y + m_height, -m_nearest - room,
            -m_farthest + room);
    glDepthMask(GL_TRUE);
    glClearColor(Ground.red / 255.0F, Ground.green / 255.0F, Ground.blue / 255.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void PictureCanvas::SetMode() const
{
    const auto set = [](GLenum what, bool isOn) { isOn ? glEnable(what) : glDisable(what); };
    set(GL_POLYGON_OFFSET_FILL, m_mode != Mode::Line);
    set(GL_BLEND, m_mode == Mode::Transparent);
    glDepthMask(m_mode == Mode::Transparent ? GL_FALSE : GL_TRUE);
}

void PictureCanvas::SetImage(const PictureImage* image)
{
    if (image == m_image)
        return;
    Flush(m_mode);
    m_image = image;
    if (image == nullptr)
        return glDisable(GL_TEXTURE_2D);
    glEnable(GL_TEXTURE_2D);
    BindImage();
}

void PictureCanvas::BindImage()
{
    const auto [place, isNew] = m_textures.try_emplace(m_image, 0U);
    if (!isNew)
        return glBindTexture(GL_TEXTURE_2D, place->second);
    glGenTextures(1, &place->second);
    glBindTexture(GL_TEXTURE_2D, place->second);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_GENERATE_MIPMAP, GL_TRUE);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, m_image->width, m_image->height, 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, m_image->pixels.data());
}

void PictureCanvas::Flush(Mode next)
{
    if (!m_corners.empty()) {
        SetMode();
        glVertexPointer(3, GL_FLOAT, sizeof(PictureVertex), &m_corners.front().x);
        glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(PictureVertex), &m_corners.front().color);
        glTexCoordPointer(2, GL_FLOAT, sizeof(PictureVertex), &m_corners.front().u);
        glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(m_corners.size()));
    }
    m_corners.clear();
    m_mode = next;
}

void PictureCanvas::Finish(CKelvoDib& image)
{
    Flush(m_mode);
    glFinish();
    CheckDrawn();
    const std::size_t stride = static_cast<std::size_t>(m_width) * Fineness * 4;
    const std::size_t imageStride =
        image.GetStorageSize() / static_cast<std::size_t>(image.Height());
    const auto* samples = reinterpret_cast<const std::uint8_t*>(m_samples.data());
    unsigned char* to = image.FindDIBBits() + static_cast<std::size_t>(m_tile.y) * imageStride +
                        static_cast<std::size_t>(m_tile.x) * 3;
    for (int y = 0; y < m_tile.height; ++y) {
        CopyRow(samples, stride, m_tile.width, to);
        samples += stride * Fineness;
        to += imageStride;
    }
}
