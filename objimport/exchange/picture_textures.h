#pragma once

#include "objimport/exchange/exchange.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// An image that surfaces are covered with. Four bytes for each pixel, red, green, blue and
/// opacity; the bottom row comes first.
struct PictureImage
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
    bool isTransparent = false; ///< some of it is not opaque
};

/// The images of a document's materials, as fine as a picture needs them.
class PictureTextures
{
public:
    /// Reads the images of the materials that objects have. Throws std::bad_alloc when out of
    /// memory.
    explicit PictureTextures(const ExchangeDocument& document);

    /// Returns the image of a material of the document, which stays this object's; null when there
    /// is none, or no such material.
    [[nodiscard]] const PictureImage* ImageFor(int material) const;

    /// Appends a line when images are missing, and one when they are damaged.
    void AppendLosses(std::vector<std::string>& losses) const;

private:
    /// The files of colours and of opacity; either may be empty.
    using Names = std::pair<std::wstring, std::wstring>;

    static Names NamesOf(const GK_Material& material);
    const PictureImage* FindOrRead(const Names& names);

    std::map<Names, std::unique_ptr<PictureImage>> m_images; ///< null for what cannot be read
    std::vector<const PictureImage*> m_byMaterial;
    std::size_t m_missing = 0;
    std::size_t m_broken = 0;
};
