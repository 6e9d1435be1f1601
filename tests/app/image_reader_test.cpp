#include "console_host/app/image_codecs.h"
#include "tests/png_checksums.h"
#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path Seeds = fs::path(PROJECT_FOLDER) / "fuzz" / "seeds" / "images";

std::string Bytes(std::initializer_list<unsigned> values)
{
    std::string bytes;
    for (const unsigned value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

/// Returns a grey JPEG of 8 by 8 pixels that has scans without data.
std::string JpegOfScans(int scans)
{
    std::string jpeg = Bytes({0xFF, 0xD8, 0xFF, 0xDB, 0, 67, 0}) + std::string(64, '\1');
    jpeg += Bytes({0xFF, 0xC2, 0, 11, 8, 0, 8, 0, 8, 1, 1, 0x11, 0});
    jpeg += Bytes({0xFF, 0xC4, 0, 20, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    for (int i = 0; i < scans; ++i)
        jpeg += Bytes({0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 0, 0});
    return jpeg += Bytes({0xFF, 0xD9});
}

bool Reads(const std::string& file, CKelvoUiDib& image)
{
    // A block of exactly this size, so that reading beyond its end is noticed.
    const std::vector<unsigned char> bytes(file.begin(), file.end());
    ImageBuilder builder(bytes.size());
    const bool isRead = ReadImage(bytes, builder);
    if (isRead)
        image = builder.TakeImage();
    return isRead;
}

bool Reads(const std::string& file)
{
    CKelvoUiDib image;
    return Reads(file, image);
}

/// Returns the largest difference between two colours in a channel.
int Difference(const Rgba& a, const Rgba& b)
{
    return std::max({std::abs(a.red - b.red), std::abs(a.green - b.green),
                     std::abs(a.blue - b.blue), std::abs(a.alpha - b.alpha)});
}

TEST(ImageReader, KindsDepthsAndColors)
{
    struct
    {
        const char* name;
        int depth, width, height;
        Rgba topLeft, bottomRight;
    } const cases[] = {
        {"adobe_ycck.jpg", 24, 8, 8, {172, 86, 43}, {172, 86, 43}},
        {"bitfields16.bmp", 24, 3, 2, {74, 166, 66}, {189, 48, 165}},
        {"cmyk.jpg", 24, 8, 8, {8, 21, 28}, {8, 21, 28}},
        {"grey.jpg", 24, 20, 16, {31, 31, 31}, {156, 156, 156}},
        {"grey.tga", 24, 4, 3, {40, 40, 40}, {111, 111, 111}},
        {"grey16.png", 24, 5, 4, {21, 21, 21}, {65, 65, 65}},
        {"grey_alpha.png", 32, 4, 4, {21, 21, 21, 42}, {152, 152, 152, 125}},
        {"grey_transparent.png", 32, 5, 4, {21, 21, 21}, {50, 50, 50}},
        {"interlaced.png", 24, 8, 8, {0, 0, 0}, {252, 20, 44}},
        {"old_palette4.bmp", 24, 5, 3, {22, 21, 20}, {42, 41, 40}},
        {"palette.tga", 24, 4, 2, {151, 114, 77}, {151, 114, 77}},
        {"palette1.bmp", 24, 9, 3, {74, 37, 0}, {74, 37, 0}},
        {"palette2.png", 24, 6, 3, {0, 1, 2}, {0, 1, 2}},
        {"palette4.bmp", 24, 5, 3, {114, 77, 40}, {154, 117, 80}},
        {"palette_offset.tga", 24, 2, 1, {6, 5, 4}, {9, 8, 7}},
        {"palette_transparent.png", 32, 6, 3, {0, 1, 2, 0}, {9, 10, 11}},
        {"progressive.jpg", 24, 20, 16, {23, 52, 50}, {162, 167, 109}},
        {"rgb16.tga", 24, 4, 3, {239, 82, 132}, {0, 247, 247}},
        {"rgb16_transparent.png", 32, 3, 3, {21, 63, 105}, {19, 1, 239}},
        {"rgba16.png", 32, 3, 3, {21, 63, 105, 147}, {71, 53, 35, 17}},
        {"rgba4444_v4.bmp", 32, 3, 1, {0x22, 0x33, 0x44, 0x11}, {0, 0xFF, 0xFF, 0x88}},
        {"rgba_top.tga", 32, 4, 3, {74, 37, 0, 111}, {166, 129, 92, 203}},
        {"rgba_v4.bmp", 32, 3, 2, {6, 225, 188, 43}, {114, 77, 40, 151}},
        {"rle_palette.tga", 32, 6, 2, {74, 37, 0, 111}, {222, 185, 148, 3}},
        {"top_down.bmp", 24, 5, 3, {74, 37, 0}, {166, 129, 92}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        CKelvoUiDib image;
        ASSERT_TRUE(Reads(ReadBytes(Seeds / each.name), image));
        EXPECT_EQ(image.GetDepth(), each.depth);
        ASSERT_EQ(image.Width(), each.width);
        ASSERT_EQ(image.Height(), each.height);
        // Decoders of JPEG differ in how they spread colours of less resolution.
        const int most = fs::path(each.name).extension() == ".jpg" ? 16 : 0;
        EXPECT_LE(Difference(ColorAt(image, 0, 0), each.topLeft), most);
        const Rgba last = ColorAt(image, each.width - 1, each.height - 1);
        EXPECT_LE(Difference(last, each.bottomRight), most);
    }
}

TEST(ImageReader, EveryBeginningOfAFileIsReadOrRefused)
{
    int files = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(Seeds)) {
        const std::string whole = ReadBytes(entry.path());
        CKelvoUiDib image;
        ASSERT_TRUE(Reads(whole, image)) << entry.path();
        for (std::size_t size = 0; size < whole.size(); ++size) {
            CKelvoUiDib part;
            if (Reads(whole.substr(0, size), part)) {
                EXPECT_EQ(part.Width(), image.Width()) << entry.path() << size;
            }
        }
        ++files;
    }
    EXPECT_GT(files, 20);
}

TEST(ImageReader, ClaimsBeyondLimitOrFileAreRefused)
{
    struct
    {
        const char* name;
        std::size_t at; ///< where the size is
        std::string size;
    } const cases[] = {
        {"grey_transparent.png", 16, Bytes({0, 0, 0xEA, 0x60, 0, 0, 0xEA, 0x60})},
        {"rgba.png", 16, Bytes({0, 0, 0x40, 0, 0, 0, 0x40, 0})},
        {"grey1.png", 16, Bytes({0, 0, 0x40, 1, 0, 0, 0, 1})},
        {"rgb.bmp", 18, Bytes({0, 0x40, 0, 0, 0, 0x40, 0, 0})},
        {"rgb.bmp", 18, Bytes({5, 0, 0, 0, 0, 0, 0, 0x80})},
        {"rgb.tga", 12, Bytes({0, 0x40, 0, 0x40})},
        {"rle.tga", 12, Bytes({0, 0x40, 0, 0x40})},
        {"progressive.jpg", 163, Bytes({0x40, 0, 0x40, 0})},
        {"progressive.jpg", 163, Bytes({4, 0, 4, 0})},
    };
    for (const auto& each : cases) {
        std::string file = ReadBytes(Seeds / each.name);
        file.replace(each.at, each.size.size(), each.size);
        RepairPngChecksums(file);
        EXPECT_FALSE(Reads(file)) << each.name;
    }
    // All pixels are there, but a row is too long.
    std::string wide =
        ReadBytes(Seeds / "rgb.bmp").replace(18, 8, Bytes({1, 0x40, 0, 0, 1, 0, 0, 0}));
    EXPECT_FALSE(Reads(wide.append(60000, '\0')));
    EXPECT_TRUE(Reads(wide.replace(18, 2, Bytes({0, 0x40}))));
}

TEST(ImageReader, PixelsAreInProportionToTheFile)
{
    struct
    {
        std::uint64_t side, fileSize;
        bool granted;
    } const cases[] = {
        {4096, 66'000, true},    {8192, 278'000, false}, // one colour, packed as well as can be
        {8192, 3'200'000, true}, {16384, 16'000'000, true}, {16384, 15'000'000, false},
    };
    for (const auto& each : cases)
        EXPECT_EQ(IsInProportion(each.side, each.side, each.fileSize), each.granted)
            << each.side << " " << each.fileSize;
}

TEST(ImageReader, PixelDataBeyondTheClaimIsIgnored)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(WriteDib(CKelvoDib(2000, 1000, 24, true), folder / "large.png"));
    std::string file = ReadBytes(folder / "large.png");
    EXPECT_TRUE(Reads(file));
    RepairPngChecksums(file.replace(16, 8, Bytes({0, 0, 0, 1, 0, 0, 0, 1})));
    CKelvoUiDib image;
    if (Reads(file, image)) {
        EXPECT_EQ(image.GetStorageSize(), 4U);
    }
}

TEST(ImageReader, ScansOfAJpegAreLimited)
{
    EXPECT_TRUE(Reads(JpegOfScans(64)));
    EXPECT_FALSE(Reads(JpegOfScans(65)));
}

} // namespace
