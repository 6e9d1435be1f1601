#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Returns the number of 4 bytes, highest first.
inline std::uint32_t BigNumberAt(const std::string& bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = at; i < at + 4; ++i)
        value = value << 8U | static_cast<unsigned char>(bytes[i]);
    return value;
}

/// Sets the checksums of all chunks of a PNG, so that readers see what was changed in them.
inline void RepairPngChecksums(std::string& file)
{
    constexpr std::size_t SignatureSize = 8;
    if (file.size() < SignatureSize || file.compare(1, 3, "PNG") != 0)
        return;
    for (std::size_t chunk = SignatureSize; file.size() - chunk >= 12;) {
        const std::size_t end = chunk + 8 + BigNumberAt(file, chunk);
        if (end > file.size() - 4)
            return;
        std::uint32_t sum = 0xFFFFFFFF;
        for (std::size_t i = chunk + 4; i < end; ++i) {
            sum ^= static_cast<unsigned char>(file[i]);
            for (int bit = 0; bit < 8; ++bit)
                sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
        }
        for (unsigned i = 0; i < 4; ++i)
            file[end + i] = static_cast<char>(~sum >> (24 - 8 * i));
        chunk = end + 4;
    }
}
