#pragma once

#include <array>
#include <cstdint>
#include <span>

/// The frame of a JPEG file, as its markers describe it.
struct JpegStructure
{
    struct Component
    {
        std::uint32_t horizontal = 0; ///< samples across in relation to other components, 1 to 4
        std::uint32_t vertical = 0;
    };

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    bool isProgressive = false;
    int componentCount = 0;
    std::array<Component, 4> components;
    int scanCount = 0;

    /// Blocks of 8 by 8 samples in all components together.
    [[nodiscard]] std::uint64_t BlockCount() const;
};

/// Follows the markers of a JPEG file up to its end mark. False for what the image library cannot
/// read or must not see: code tables with more codes than there are bytes to code, more scans than
/// any picture needs, segments out of their order, a missing end.
bool ReadJpegStructure(std::span<const unsigned char> file, JpegStructure& structure);
