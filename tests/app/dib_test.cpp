#include "tests/temporary_folder.h"
#include "tests/test_images.h"

#include <thread>
#include <vector>
#ifdef _WIN32
#include <objbase.h>
#endif

namespace {

namespace fs = std::filesystem;

/// Returns an image whose pixels all differ.
CKelvoDib Pattern(int width, int height, int depth)
{
    return MakeImage(width, height, depth, [](int x, int y) -> Rgba {
        return {x * 16, y * 8, x + y, x * y};
    });
}

std::ptrdiff_t FileCount(const TemporaryFolder& folder)
{
    return std::distance(fs::directory_iterator(folder.Path()), {});
}

std::vector<Rgba> ColorsOf(CKelvoDib& image)
{
    std::vector<Rgba> colors;
    for (int y = 0; y < image.Height(); ++y) {
        for (int x = 0; x < image.Width(); ++x)
            colors.push_back(ColorAt(image, x, y));
    }
    return colors;
}

TEST(Dib, RowsArePaddedAndSizesLimited)
{
    struct
    {
        int width, height, depth;
        std::size_t size; ///< 0: refused
    } const cases[] = {
        {5, 3, 24, 48},        {4, 3, 24, 36},        {5, 3, 32, 60}, {1, 1, 24, 4},
        {0, 3, 24, 0},         {3, -1, 24, 0},        {3, 3, 8, 0},   {16385, 1, 24, 0},
        {16384, 1, 24, 49152}, {1, 16384, 32, 65536},
    };
    for (const auto& each : cases) {
        CKelvoDib image(each.width, each.height, each.depth, true);
        EXPECT_EQ(image.GetStorageSize(), each.size) << each.width << " x " << each.height;
        EXPECT_EQ(image.FindDIBBits() != nullptr, each.size > 0);
        EXPECT_EQ(image.Width(), each.size > 0 ? each.width : 0);
    }
    CKelvoDib withoutPixels(5, 3, 32, false);
    EXPECT_EQ(withoutPixels.GetDepth(), 32);
    EXPECT_EQ(withoutPixels.FindDIBBits(), nullptr);
}

TEST(Dib, WrittenImagesReadBackTheSame)
{
    const TemporaryFolder folder;
    for (const int depth : {24, 32}) {
        for (const int width : {1, 2, 3, 4, 5, 15}) {
            CKelvoDib image = Pattern(width, 7, depth);
            const fs::path path = folder / PathFromUtf8("\xE6\x9C\xA8 \xC3\xA9.PnG");
            ASSERT_TRUE(WriteDib(image, path));
            EXPECT_EQ(FileCount(folder), 1);
            const std::vector<unsigned char> bytes = image.PngBytes();
            EXPECT_EQ(std::string(bytes.begin(), bytes.end()), ReadBytes(path));
            CKelvoDib back;
            ASSERT_TRUE(ReadDib(back, path));
            EXPECT_EQ(back.GetDepth(), depth);
            EXPECT_EQ(back.Width(), width);
            EXPECT_TRUE(ColorsOf(back) == ColorsOf(image)) << width;
        }
    }
}

TEST(Dib, AFailedWriteLeavesWhatWasThere)
{
    const TemporaryFolder folder;
    fs::create_directories(folder / "taken.png" / "content");
    const CKelvoDib image = Pattern(3, 3, 24);

    EXPECT_FALSE(WriteDib(image, folder / "taken.png"));
    EXPECT_FALSE(WriteDib(image, folder / "missing" / "a.png"));
    for (const char* name : {"a.bmp", "a", "png", "a.png.tga", "a.pn"})
        EXPECT_FALSE(WriteDib(image, folder / name)) << name;
    EXPECT_FALSE(WriteDib(CKelvoDib(), folder / "empty.png"));

    EXPECT_EQ(FileCount(folder), 1);
}

#ifdef _WIN32
TEST(Dib, ComOfTheThreadStaysAsItIs)
{
    const TemporaryFolder folder;
    const auto writeAndRead = [&] {
        CKelvoDib image;
        EXPECT_TRUE(WriteDib(Pattern(3, 3, 32), folder / "a.png"));
        EXPECT_TRUE(ReadDib(image, folder / "a.png"));
    };
    std::thread([&] {
        writeAndRead();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK) << "none was left";
        writeAndRead();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
        CoUninitialize();
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK) << "none was left";
        CoUninitialize();
    }).join();
}
#else
TEST(Dib, AnImageIsNotWrittenThroughWhatIsPreparedBesideIt)
{
    const TemporaryFolder folder;
    const fs::path other = folder.Write("other", "kept");
    for (const char* name : {"a.png", "a.png.part", "a.png.new"})
        fs::create_symlink(other, folder / name);
    EXPECT_TRUE(WriteDib(Pattern(3, 3, 24), folder / "a.png"));
    EXPECT_EQ(folder.Read("other"), "kept");
    EXPECT_FALSE(fs::is_symlink(folder / "a.png"));
    EXPECT_EQ(FileCount(folder), 4);
}
#endif

TEST(Dib, OnlyImageFilesAreRead)
{
    const TemporaryFolder folder;
    fs::create_directories(folder / "folder.png");
    folder.Write("one_byte.png", "\x89");
    folder.Write("empty.png", "");
    folder.Write("text.tga", std::string(100, 'a'));
    for (const char* name :
         {"folder.png", "one_byte.png", "empty.png", "text.tga", "missing.png"}) {
        CKelvoDib image = Pattern(2, 2, 24);
        EXPECT_FALSE(ReadDib(image, folder / name)) << name;
        EXPECT_EQ(image.Width(), 2) << name;
    }
}

} // namespace
