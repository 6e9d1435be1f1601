#include "objimport/exchange/picture.h"

#include "objimport/exchange/exchange_texts.h"
#include "objimport/exchange/picture_canvas.h"
#include "objimport/exchange/picture_scene.h"
#include "objimport/exchange/stream_output.h"

#include "host/app/dib.h"

#include <algorithm>
#include <new>

namespace {

/// Draws the scene tile by tile, each as large as memory for samples is meant to be.
void Draw(const PictureScene& scene, CKelvoDib& image)
{
    constexpr int LongestSide = 2048;
    const int width = std::min(image.Width(), LongestSide);
    const int height = std::min(image.Height(), LongestSide);
    PictureCanvas canvas(width, height, scene.Camera().Farthest(), scene.Camera().Nearest());
    for (int y = 0; y < image.Height(); y += height)
        for (int x = 0; x < image.Width(); x += width) {
            canvas.Begin(
                {x, y, std::min(width, image.Width() - x), std::min(height, image.Height() - y)});
            scene.Draw(canvas);
            canvas.Finish(image);
        }
}

/// Returns why the image cannot be written; empty when it was.
std::string WritePng(const CKelvoDib& image, std::FILE* stream)
{
    const std::vector<unsigned char> bytes = image.PngBytes();
    if (bytes.empty())
        throw std::bad_alloc();
    StreamOutput output(stream);
    output.sputn(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
    return output.Finish();
}

std::string ContentsOf(const PictureScene& scene, const ExchangePicture& picture)
{
    const std::string shown = scene.ShownCount() == 0
                                  ? Say(ExchangeTexts::NothingSeen)
                                  : Counted(scene.ShownCount(), ExchangeTexts::Objects);
    return Say(ExchangeTexts::Pixels,
               {std::to_string(picture.width), std::to_string(picture.height), shown});
}

} // namespace

const char* WhyPictureIsMissing()
{
    return nullptr;
}

void WritePicture(const ExchangeRequest& request, ExchangeOutcome& outcome)
{
    CKelvoDib image(request.picture.width, request.picture.height, 24, true);
    if (image.FindDIBBits() == nullptr)
        throw std::bad_alloc();
    const PictureScene scene(*request.document, request.picture);
    Draw(scene, image);
    outcome.error = WritePng(image, request.stream);
    outcome.contents = ContentsOf(scene, request.picture);
    outcome.losses = scene.Losses();
}
