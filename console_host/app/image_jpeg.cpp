#include "console_host/app/image_codecs.h"
#include "console_host/runtime/allocation_failures.h"

#include <csetjmp>
#include <cstdio>
#include <jerror.h>
#include <jpeglib.h>

// The library leaves a call that fails by a jump to the function that set its target. No object
// with a destructor lives between the two.

namespace {

class JpegReader
{
public:
    JpegReader()
    {
        m_jpeg.err = jpeg_std_error(&m_errors);
        m_errors.error_exit = JumpOut;
        m_errors.emit_message = [](j_common_ptr, int) {};
        m_errors.output_message = [](j_common_ptr) {};
        m_jpeg.client_data = this;
    }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;
    ~JpegReader() { jpeg_destroy_decompress(&m_jpeg); }

    bool Read(ImageBytes file, ImageBuilder& image)
    {
        if (setjmp(m_target) != 0)
            return false;
        jpeg_create_decompress(&m_jpeg);
        jpeg_mem_src(&m_jpeg, file.data(), file.size());
        jpeg_read_header(&m_jpeg, TRUE);
        if (!image.Make(m_jpeg.image_width, m_jpeg.image_height, 24))
            return false;
        const bool isCmyk = m_jpeg.num_components == 4;
        m_jpeg.out_color_space = isCmyk ? JCS_CMYK : JCS_EXT_BGR;
        jpeg_start_decompress(&m_jpeg);
        if (isCmyk)
            ReadCmykRows(image);
        else
            ReadRows(image);
        jpeg_finish_decompress(&m_jpeg);
        return true;
    }

private:
    void ReadRows(ImageBuilder& image)
    {
        while (m_jpeg.output_scanline < m_jpeg.output_height) {
            unsigned char* row = image.Row(m_jpeg.output_scanline);
            jpeg_read_scanlines(&m_jpeg, &row, 1);
        }
    }

    /// Programs that say who they are by the Adobe marker store inks inverted.
    void ReadCmykRows(ImageBuilder& image)
    {
        const unsigned inversion = m_jpeg.saw_Adobe_marker != 0 ? 0 : 255;
        JSAMPARRAY inks = m_jpeg.mem->alloc_sarray(reinterpret_cast<j_common_ptr>(&m_jpeg),
                                                   JPOOL_IMAGE, 4 * m_jpeg.output_width, 1);
        while (m_jpeg.output_scanline < m_jpeg.output_height) {
            unsigned char* to = image.Row(m_jpeg.output_scanline);
            jpeg_read_scanlines(&m_jpeg, inks, 1);
            const unsigned char* from = inks[0];
            for (JDIMENSION x = 0; x < m_jpeg.output_width; ++x, from += 4, to += 3) {
                for (unsigned i = 0; i < 3; ++i)
                    to[i] = static_cast<unsigned char>((from[2 - i] ^ inversion) *
                                                       (from[3] ^ inversion) / 255);
            }
        }
    }

    [[noreturn]] static void JumpOut(j_common_ptr jpeg)
    {
        if (jpeg->err->msg_code == JERR_OUT_OF_MEMORY)
            NoteAllocationFailure();
        std::longjmp(static_cast<JpegReader*>(jpeg->client_data)->m_target, 1);
    }

    jpeg_decompress_struct m_jpeg{};
    jpeg_error_mgr m_errors{};
    std::jmp_buf m_target{};
};

} // namespace

bool ReadJpeg(ImageBytes file, ImageBuilder& image)
{
    return JpegReader().Read(file, image);
}
