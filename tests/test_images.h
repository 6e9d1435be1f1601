#pragma once

#include "console_host/runtime/native_path.h"

#include "host/app/dib.h"

#include <filesystem>

/// A colour with its alpha, 255 where the image has none.
struct Rgba
{
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 255;

    friend bool operator==(const Rgba&, const Rgba&) = default;
};

/// Returns the bytes of a pixel; row 0 is the top one.
inline unsigned char* PixelAt(CKelvoUiDib& image, int x, int y)
{
    const std::size_t rowSize = image.GetStorageSize() / static_cast<std::size_t>(image.Height());
    return image.FindDIBBits() + rowSize * static_cast<std::size_t>(image.Height() - 1 - y) +
           static_cast<std::size_t>(x * (image.GetDepth() / 8));
}

inline Rgba ColorAt(CKelvoUiDib& image, int x, int y)
{
    const unsigned char* const pixel = PixelAt(image, x, y);
    return {pixel[2], pixel[1], pixel[0], image.GetDepth() == 32 ? pixel[3] : 255};
}

inline void SetColor(CKelvoUiDib& image, int x, int y, const Rgba& color)
{
    unsigned char* const pixel = PixelAt(image, x, y);
    pixel[0] = static_cast<unsigned char>(color.blue);
    pixel[1] = static_cast<unsigned char>(color.green);
    pixel[2] = static_cast<unsigned char>(color.red);
    if (image.GetDepth() == 32)
        pixel[3] = static_cast<unsigned char>(color.alpha);
}

/// Returns an image with the colour that `colorAt` returns for each x and y.
template <class GiveColor>
CKelvoDib MakeImage(int width, int height, int depth, GiveColor colorAt)
{
    CKelvoDib image(width, height, depth, true);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            SetColor(image, x, y, colorAt(x, y));
    }
    return image;
}

inline bool ReadDib(CKelvoDib& image, const std::filesystem::path& path)
{
    return image.ReadFromFile(WidePath(path).c_str()) != 0;
}

inline bool WriteDib(const CKelvoDib& image, const std::filesystem::path& path)
{
    return image.WriteToFile(WidePath(path).c_str()) != 0;
}
