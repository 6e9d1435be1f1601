#include "console_host/app/image_reader.h"
#include "console_host/app/library_memory.h"
#include "tests/test_files.h"
#include "tests/test_images.h"

#include <initializer_list>
#include <new>
#include <string_view>

namespace {

namespace fs = std::filesystem;

const fs::path Seeds = fs::path(PROJECT_FOLDER) / "fuzz" / "seeds" / "images";

void Append(Bytes& bytes, std::initializer_list<unsigned> more)
{
    for (const unsigned each : more)
        bytes.push_back(static_cast<unsigned char>(each));
}

void AppendLittle32(Bytes& bytes, unsigned value)
{
    Append(bytes, {value & 255U, value >> 8U & 255U, value >> 16U & 255U, value >> 24U});
}

void AppendBig32(Bytes& bytes, unsigned value)
{
    Append(bytes, {value >> 24U, value >> 16U & 255U, value >> 8U & 255U, value & 255U});
}

void AppendChunk(Bytes& png, std::string_view name, const Bytes& data)
{
    AppendBig32(png, static_cast<unsigned>(data.size()));
    png.insert(png.end(), name.begin(), name.end());
    png.insert(png.end(), data.begin(), data.end());
    AppendBig32(png, 0);
}

/// A PNG of 8 bits a channel with the given pixel data; color type 0 is grey, 6 colours and alpha.
Bytes Png(unsigned width, unsigned height, unsigned colorType, const Bytes& data)
{
    Bytes png{0x89, 'P', 'N', 'G', 13, 10, 26, 10};
    Bytes header;
    AppendBig32(header, width);
    AppendBig32(header, height);
    Append(header, {8, colorType, 0, 0, 0});
    AppendChunk(png, "IHDR", header);
    AppendChunk(png, "IDAT", data);
    AppendChunk(png, "IEND", {});
    return png;
}

Bytes Bmp(unsigned width, unsigned height, unsigned depth)
{
    Bytes bmp{'B', 'M'};
    for (const unsigned value : {0U, 0U, 54U, 40U, width, height, 1U | depth << 16U})
        AppendLittle32(bmp, value);
    bmp.resize(100);
    return bmp;
}

Bytes Tga(unsigned type, unsigned width, unsigned height)
{
    Bytes tga;
    Append(tga, {0, 0, type, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    Append(tga, {width & 255U, width >> 8U, height & 255U, height >> 8U, 32, 0});
    tga.resize(200);
    return tga;
}

/// A grey JPEG that has a table with `codes` codes of 16 bits, and scans without data.
Bytes Jpeg(unsigned width, unsigned height, unsigned codes, int scans)
{
    Bytes jpeg{0xFF, 0xD8, 0xFF, 0xC2, 0, 11, 8};
    Append(jpeg, {height >> 8U, height & 255U, width >> 8U, width & 255U, 1, 1, 0x11, 0});
    const unsigned length = 19 + codes;
    Append(jpeg, {0xFF, 0xC4, length >> 8U, length & 255U, 0});
    Append(jpeg, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, codes - codes / 2, codes / 2});
    jpeg.resize(jpeg.size() + codes);
    for (int i = 0; i < scans; ++i)
        Append(jpeg, {0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 0, 0, 0, 0});
    Append(jpeg, {0xFF, 0xD9});
    return jpeg;
}

bool Reads(const Bytes& file)
{
    CKelvoUiDib image;
    return ReadImage(file, image);
}

TEST(ImageReader, KindsDepthsAndColors)
{
    struct
    {
        const char* name;
        int depth, width, height;
        Rgba topLeft, bottomRight;
    } const cases[] = {
        {"bitfields16.bmp", 24, 3, 2, {74, 166, 66}, {189, 48, 165}},
        {"grey.jpg", 24, 20, 16, {31, 31, 31}, {156, 156, 156}},
        {"grey.tga", 24, 4, 3, {40, 40, 40}, {111, 111, 111}},
        {"grey16.png", 24, 5, 4, {21, 21, 21}, {65, 65, 65}},
        {"grey_alpha.png", 32, 4, 4, {21, 21, 21, 42}, {152, 152, 152, 125}},
        {"grey_transparent.png", 32, 5, 4, {21, 21, 21}, {50, 50, 50}},
        {"interlaced.png", 24, 8, 8, {0, 0, 0}, {252, 20, 44}},
        {"palette.tga", 24, 4, 2, {151, 114, 77}, {151, 114, 77}},
        {"palette1.bmp", 24, 9, 3, {74, 37, 0}, {74, 37, 0}},
        {"palette2.png", 24, 6, 3, {0, 1, 2}, {0, 1, 2}},
        {"palette4.bmp", 24, 5, 3, {114, 77, 40}, {154, 117, 80}},
        {"palette_transparent.png", 32, 6, 3, {0, 1, 2, 0}, {9, 10, 11}},
        {"progressive.jpg", 24, 20, 16, {23, 52, 50}, {162, 167, 109}},
        {"rgb16.tga", 24, 4, 3, {238, 82, 131}, {0, 246, 246}},
        {"rgb16_transparent.png", 32, 3, 3, {21, 63, 105}, {19, 1, 239}},
        {"rgba16.png", 32, 3, 3, {21, 63, 105, 147}, {71, 53, 35, 17}},
        {"rgba_top.tga", 32, 4, 3, {74, 37, 0, 111}, {166, 129, 92, 203}},
        {"rgba_v4.bmp", 32, 3, 2, {6, 225, 188, 43}, {114, 77, 40, 151}},
        {"rle_palette.tga", 32, 6, 2, {74, 37, 0, 111}, {222, 185, 148, 3}},
        {"top_down.bmp", 24, 5, 3, {74, 37, 0}, {166, 129, 92}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        CKelvoUiDib image;
        ASSERT_TRUE(ReadImage(FileBytes(Seeds / each.name), image));
        EXPECT_EQ(image.GetDepth(), each.depth);
        ASSERT_EQ(image.Width(), each.width);
        ASSERT_EQ(image.Height(), each.height);
        EXPECT_EQ(ColorAt(image, 0, 0), each.topLeft);
        EXPECT_EQ(ColorAt(image, each.width - 1, each.height - 1), each.bottomRight);
    }
}

TEST(ImageReader, EveryBeginningOfAFileIsReadOrRefused)
{
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(Seeds)) {
        const Bytes whole = FileBytes(entry.path());
        CKelvoUiDib image;
        ASSERT_TRUE(ReadImage(whole, image)) << entry.path();
        for (std::size_t size = 0; size < whole.size(); ++size) {
            // A block of exactly this size, so that reading behind its end is noticed.
            const Bytes beginning(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
            CKelvoUiDib part;
            if (ReadImage(beginning, part)) {
                EXPECT_EQ(part.Width(), image.Width()) << entry.path() << size;
            }
        }
        ++files;
    }
    EXPECT_GT(files, 20);
}

TEST(ImageReader, ClaimsBeyondLimitOrFileAreRefused)
{
    const Bytes tiny(60, 0);
    EXPECT_FALSE(Reads(Png(60000, 60000, 0, tiny)));
    EXPECT_FALSE(Reads(Png(16384, 16384, 6, tiny)));
    EXPECT_FALSE(Reads(Png(16385, 1, 0, tiny)));
    // Enough data for the bare rows, but out of proportion to what they would take in memory.
    EXPECT_FALSE(Reads(Png(16384, 16000, 0, Bytes(260000, 0))));
    EXPECT_FALSE(Reads(Bmp(16384, 16384, 24)));
    EXPECT_FALSE(Reads(Bmp(5, 0x80000000U, 24)));
    EXPECT_TRUE(Reads(Bmp(3, 3, 24)));
    EXPECT_FALSE(Reads(Tga(2, 16384, 16384)));
    EXPECT_FALSE(Reads(Tga(10, 16384, 16384)));
    EXPECT_TRUE(Reads(Tga(10, 30, 30)));
    EXPECT_FALSE(Reads(Jpeg(16384, 16384, 2, 1)));
}

/// A deflate stream of one zero, repeated 258 times for each of the runs.
Bytes DeflatedZeros(int runs)
{
    std::string bits = "11000110000";
    for (int i = 0; i < runs; ++i)
        bits += "1100010100000";
    bits += "0000000";
    bits.append(32, '0'); // a checksum, which nobody checks
    Bytes bytes{0x78, 0x5E};
    for (std::size_t i = 0; i < bits.size(); ++i) {
        if (i % 8 == 0)
            bytes.push_back(0);
        if (bits[i] == '1')
            bytes.back() = static_cast<unsigned char>(bytes.back() | 1U << (i % 8));
    }
    return bytes;
}

TEST(ImageReader, PixelDataBeyondTheClaimIsNotTakenIn)
{
    EXPECT_TRUE(Reads(Png(1, 1, 0, DeflatedZeros(1))));
    EXPECT_FALSE(Reads(Png(1, 1, 0, DeflatedZeros(20000))));
}

TEST(ImageReader, JpegsThatTheLibraryMishandlesAreRefused)
{
    EXPECT_TRUE(Reads(Jpeg(8, 8, 200, 1)));
    EXPECT_FALSE(Reads(Jpeg(8, 8, 300, 1)));
    EXPECT_TRUE(Reads(Jpeg(8, 8, 2, 64)));
    EXPECT_FALSE(Reads(Jpeg(8, 8, 2, 65)));
}

TEST(LibraryMemory, IsLimitedAndReleasesWhatIsLeft)
{
    LibraryMemory memory(1000, LibraryMemory::WhenExhausted::GiveNull);
    EXPECT_EQ(memory.Allocate(1001), nullptr);
    void* block = memory.Allocate(500);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(static_cast<unsigned char*>(block)[499], 0);
    EXPECT_EQ(memory.Reallocate(block, 1001), nullptr);
    block = memory.Reallocate(block, 900);
    EXPECT_NE(block, nullptr);
    EXPECT_NE(memory.Allocate(1000), nullptr);
    LibraryMemory::Free(block);

    LibraryMemory throwing(10, LibraryMemory::WhenExhausted::Throw);
    EXPECT_THROW(static_cast<void>(throwing.Allocate(11)), std::bad_alloc);
}

} // namespace
