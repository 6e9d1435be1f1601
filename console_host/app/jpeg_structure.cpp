#include "console_host/app/jpeg_structure.h"

#include "console_host/app/byte_reader.h"

#include <algorithm>

namespace {

enum Marker : std::uint8_t
{
    Baseline = 0xC0,
    ExtendedSequential = 0xC1,
    Progressive = 0xC2,
    HuffmanTables = 0xC4,
    FirstRestart = 0xD0,
    LastRestart = 0xD7,
    EndOfImage = 0xD9,
    StartOfScan = 0xDA,
    QuantizationTables = 0xDB,
    NumberOfLines = 0xDC,
    RestartInterval = 0xDD,
    FirstApplication = 0xE0,
    LastApplication = 0xEF,
    Comment = 0xFE
};

/// Each scan goes over the whole picture; pictures in use have some ten.
constexpr int MaxScans = 64;

class JpegWalker
{
public:
    JpegWalker(std::span<const unsigned char> file, JpegStructure& structure)
        : m_reader(file, 2), m_structure(structure)
    {
    }

    bool Walk()
    {
        while (true) {
            const std::uint8_t marker = NextMarker();
            if (marker == EndOfImage)
                return m_structure.scanCount > 0;
            if (!ReadSegment(marker))
                return false;
        }
    }

private:
    /// The marker at the reader's place, or 0. Before the frame the library passes over bytes that
    /// are no marker.
    std::uint8_t NextMarker()
    {
        std::uint8_t byte = m_reader.Byte();
        while (byte != 0xFF && !HasFrame() && !m_reader.AtEnd())
            byte = m_reader.Byte();
        if (byte != 0xFF)
            return 0;
        while (byte == 0xFF && !m_reader.AtEnd())
            byte = m_reader.Byte();
        return byte;
    }

    [[nodiscard]] bool HasFrame() const { return m_structure.componentCount > 0; }

    bool ReadSegment(std::uint8_t marker)
    {
        const std::uint32_t length = m_reader.Big16();
        if (length < 2 || length - 2 > m_reader.Left())
            return false;
        const std::size_t end = m_reader.Position() + length - 2;
        const bool isSound = ReadSegmentBody(marker, end);
        if (!isSound || m_reader.Position() > end)
            return false;
        m_reader.Skip(end - m_reader.Position());
        return marker != StartOfScan || SkipScanData();
    }

    bool ReadSegmentBody(std::uint8_t marker, std::size_t end)
    {
        switch (marker) {
        case Baseline:
        case ExtendedSequential:
        case Progressive:
            return ReadFrame(marker);
        case HuffmanTables:
            return ReadHuffmanTables(end);
        case StartOfScan:
            return HasFrame() && ++m_structure.scanCount <= MaxScans;
        case QuantizationTables:
        case NumberOfLines:
        case RestartInterval:
        case Comment:
            return true;
        default:
            return marker >= FirstApplication && marker <= LastApplication;
        }
    }

    bool ReadFrame(std::uint8_t marker)
    {
        if (HasFrame())
            return false;
        m_structure.isProgressive = marker == Progressive;
        m_reader.Skip(1);
        m_structure.height = m_reader.Big16();
        m_structure.width = m_reader.Big16();
        const int count = m_reader.Byte();
        if (count != 1 && count != 3 && count != 4)
            return false;
        m_structure.componentCount = count;
        return std::all_of(m_structure.components.begin(), m_structure.components.begin() + count,
                           [this](JpegStructure::Component& each) { return ReadComponent(each); });
    }

    bool ReadComponent(JpegStructure::Component& component)
    {
        m_reader.Skip(1);
        const unsigned sampling = m_reader.Byte();
        m_reader.Skip(1);
        component.horizontal = sampling >> 4U;
        component.vertical = sampling & 15U;
        const auto isFactor = [](std::uint32_t value) { return value >= 1 && value <= 4; };
        return isFactor(component.horizontal) && isFactor(component.vertical);
    }

    bool ReadHuffmanTables(std::size_t end)
    {
        while (m_reader.Position() < end) {
            m_reader.Skip(1);
            std::size_t codeCount = 0;
            for (int bits = 1; bits <= 16; ++bits)
                codeCount += m_reader.Byte();
            if (codeCount > 256)
                return false;
            m_reader.Skip(codeCount);
        }
        return true;
    }

    /// Stops at the next marker. A 0xFF that is data is followed by 0, and restart marks stand
    /// among the data.
    bool SkipScanData()
    {
        while (m_reader.Left() >= 2) {
            const ByteReader start = m_reader;
            if (m_reader.Byte() != 0xFF)
                continue;
            const std::uint8_t next = ByteReader(m_reader).Byte();
            if (next != 0 && next != 0xFF && (next < FirstRestart || next > LastRestart)) {
                m_reader = start;
                return true;
            }
        }
        return false;
    }

    ByteReader m_reader;
    JpegStructure& m_structure;
};

} // namespace

std::uint64_t JpegStructure::BlockCount() const
{
    std::uint64_t widest = 1;
    std::uint64_t tallest = 1;
    for (const Component& component : components) {
        widest = std::max<std::uint64_t>(widest, component.horizontal);
        tallest = std::max<std::uint64_t>(tallest, component.vertical);
    }
    std::uint64_t count = 0;
    for (const Component& component : components) {
        const auto blocks = [](std::uint64_t size, std::uint64_t factor, std::uint64_t largest) {
            return (size * factor + 8 * largest - 1) / (8 * largest);
        };
        count += blocks(width, component.horizontal, widest) *
                 blocks(height, component.vertical, tallest);
    }
    return count;
}

bool ReadJpegStructure(std::span<const unsigned char> file, JpegStructure& structure)
{
    return JpegWalker(file, structure).Walk();
}
