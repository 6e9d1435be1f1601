#include "console_host/app/image_codecs.h"

#include <csetjmp>
#include <cstring>
#include <new>
#include <png.h>

// The library leaves a call that fails by a jump to the function that set its target. No object
// with a destructor lives between the two.

namespace {

[[noreturn]] void JumpOut(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void IgnoreWarning(png_structp, png_const_charp) {}

void* Allocate(png_structp, png_alloc_size_t size)
{
    return ::operator new(size, std::nothrow);
}

void Release(png_structp, void* block)
{
    ::operator delete(block);
}

/// The library's state while it reads or writes one file.
struct PngState
{
    enum class Use
    {
        Reading,
        Writing
    };

    explicit PngState(Use use)
        : png((use == Use::Reading ? png_create_read_struct_2 : png_create_write_struct_2)(
              PNG_LIBPNG_VER_STRING, nullptr, JumpOut, IgnoreWarning, nullptr, Allocate, Release)),
          info(png != nullptr ? png_create_info_struct(png) : nullptr), isRead(use == Use::Reading)
    {
    }
    PngState(const PngState&) = delete;
    PngState& operator=(const PngState&) = delete;
    ~PngState()
    {
        if (isRead)
            png_destroy_read_struct(&png, &info, nullptr);
        else
            png_destroy_write_struct(&png, &info);
    }

    png_structp png;
    png_infop info; ///< null when there is no memory for the two
    bool isRead;
};

/// Takes bytes from the front of what is left of a file.
void TakeBytes(png_structp png, png_bytep to, std::size_t size)
{
    ImageBytes& left = *static_cast<ImageBytes*>(png_get_io_ptr(png));
    if (size > left.size())
        png_error(png, "");
    std::memcpy(to, left.data(), size);
    left = left.subspan(size);
}

void PutBytes(png_structp png, png_bytep from, std::size_t size)
{
    if (!(*static_cast<const PutImageBytes*>(png_get_io_ptr(png)))({from, size}))
        png_error(png, "");
}

/// Asks for blue, green, red and, if the file has it, alpha, of 8 bits each, whatever the file
/// holds. Returns in how many passes the rows come.
int AskForColors(png_structp png, png_infop info)
{
    png_set_expand(png);
    png_set_strip_16(png);
    png_set_gray_to_rgb(png);
    png_set_bgr(png);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    return passes;
}

bool Decode(png_structp png, png_infop info, ImageBytes& file, ImageBuilder& image)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_read_fn(png, &file, TakeBytes);
    png_set_user_limits(png, CKelvoUiDib::MaxSide, CKelvoUiDib::MaxSide);
    // Chunks that have no effect on the pixels are skipped.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png, info);
    const int passes = AskForColors(png, info);
    const std::uint32_t height = png_get_image_height(png, info);
    if (!image.Make(png_get_image_width(png, info), height, 8 * png_get_channels(png, info)))
        return false;
    for (int pass = 0; pass < passes; ++pass) {
        for (std::uint32_t y = 0; y < height; ++y)
            png_read_row(png, image.Row(y), nullptr);
    }
    png_read_end(png, nullptr);
    return true;
}

bool Encode(png_structp png, png_infop info, const CKelvoUiDib& image, const PutImageBytes& put)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_write_fn(png, const_cast<PutImageBytes*>(&put), PutBytes, nullptr);
    // A higher level takes up to four times as long and saves a few percent.
    png_set_compression_level(png, 1);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.Width()),
                 static_cast<png_uint_32>(image.Height()), 8,
                 image.GetDepth() == 32 ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    png_set_bgr(png);
    for (int y = 0; y < image.Height(); ++y)
        png_write_row(png, DibRow(image, y));
    png_write_end(png, nullptr);
    return true;
}

} // namespace

bool ReadPng(ImageBytes file, ImageBuilder& image)
{
    const PngState state(PngState::Use::Reading);
    return state.info != nullptr && Decode(state.png, state.info, file, image);
}

bool WritePng(const CKelvoUiDib& image, const PutImageBytes& put)
{
    const PngState state(PngState::Use::Writing);
    return state.info != nullptr && Encode(state.png, state.info, image, put);
}
