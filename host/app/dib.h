#pragma once

#include <cstddef>
#include <memory>
#include <vector>

class CKelvoPalette;

/// A device-independent bitmap in memory. Pixels are blue, green, red (24 bits) or blue, green,
/// red, alpha (32 bits); the bottom row comes first; each row starts at a multiple of 4 bytes, so
/// the rows of a 24-bit image may end in padding, whose value is ignored.
///
/// A value that owns its pixels: any thread may use an image, one thread at a time.
class CKelvoUiDib
{
public:
    /// Longest side and largest pixel storage of an image; what is larger cannot be made or read.
    static constexpr int MaxSide = 16384;
    static constexpr std::size_t MaxStorageSize = std::size_t{1} << 30U;

    CKelvoUiDib() = default;
    CKelvoUiDib(const CKelvoUiDib&) = delete;
    CKelvoUiDib& operator=(const CKelvoUiDib&) = delete;
    CKelvoUiDib(CKelvoUiDib&& other) noexcept;

    /// Takes the other image's pixels over and leaves it empty.
    CKelvoUiDib& operator=(CKelvoUiDib&& other) noexcept;
    virtual ~CKelvoUiDib();

    /// Makes a new image in place of this one and returns true; `depth` is 24 or 32 bits and takes
    /// no palette. With `withPixels` the pixel storage is made too, its contents undefined. Returns
    /// false, leaving an empty image, for a size or depth that is not supported, and when out of
    /// memory. `palette` is only read during the call.
    bool CreateDib(int width, int height, int depth, bool withPixels,
                   const CKelvoPalette* palette = nullptr);

    /// Releases the pixels and leaves an empty image.
    void DestroyDib();

    /// Returns the bits in a pixel; 0 for an empty image.
    [[nodiscard]] int GetDepth() const { return m_layout.depth; }

    /// Return the size in pixels; 0 for an empty image.
    [[nodiscard]] int Width() const { return m_layout.width; }
    [[nodiscard]] int Height() const { return m_layout.height; }

    /// Returns the pixel storage, which the image owns and which is valid until the image is
    /// changed or destroyed; null while there is none.
    [[nodiscard]] unsigned char* FindDIBBits() { return m_bits.get(); }
    [[nodiscard]] const unsigned char* FindDIBBits() const { return m_bits.get(); }

    /// Returns the size of the pixel storage in bytes, with the padding of its rows; 0 without
    /// pixel storage.
    [[nodiscard]] std::size_t GetStorageSize() const { return m_layout.storageSize; }

private:
    struct Layout
    {
        int width = 0;
        int height = 0;
        int depth = 0;
        std::size_t storageSize = 0;
    };

    Layout m_layout;
    std::unique_ptr<unsigned char[]> m_bits;
};

/// An image that can be read from a file and written to one. File names are as for _wfopen.
class CKelvoDib : public CKelvoUiDib
{
public:
    CKelvoDib() = default;

    /// As CreateDib; an image that cannot be made is empty.
    CKelvoDib(int width, int height, int depth, bool withPixels,
              const CKelvoPalette* palette = nullptr);

    /// Reads a PNG, TGA, BMP or JPEG in place of this image: 32 bits deep when the file has an
    /// alpha channel or a transparent colour, otherwise 24; 16 bits a channel become 8. Returns
    /// non-zero on success; otherwise the image is unchanged, also when out of memory. Refused are,
    /// beside what is no such image, images above MaxSide or MaxStorageSize, headers that claim
    /// more than the file can hold, and images of more than 4096 x 4096 pixels and another 16 for
    /// each byte of the file.
    int ReadFromFile(const wchar_t* path);

    /// Writes the image in the format that the name's extension calls for: ".png", in any case. The
    /// file appears, or replaces an older one, only when it is complete. Returns non-zero on
    /// success; otherwise an older file is unchanged. Fails for other extensions, without pixels
    /// and when out of memory.
    [[nodiscard]] int WriteToFile(const wchar_t* path) const;

    /// Returns the image as the bytes of a PNG file; none without pixels, when the image cannot be
    /// written as such, and when out of memory.
    [[nodiscard]] std::vector<unsigned char> PngBytes() const;
};
