#include "console_host/app/image_codecs.h"
#include "console_host/runtime/allocation_failures.h"

#include <cstring>
#include <initguid.h>
#include <string>
#include <string_view>
#include <vector>
#include <wincodec.h>
#include <windows.h>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

namespace {

/// A call of the imaging component failed.
struct Failed
{
};

void Check(HRESULT result)
{
    if (result == E_OUTOFMEMORY)
        NoteAllocationFailure();
    if (FAILED(result))
        throw Failed();
}

/// COM on this thread, which keeps the kind of apartment it may already have.
class ComUse
{
public:
    ComUse() : m_result(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;
    ~ComUse()
    {
        if (SUCCEEDED(m_result))
            CoUninitialize();
    }

private:
    HRESULT m_result;
};

ComPtr<IWICImagingFactory> MakeFactory()
{
    ComPtr<IWICImagingFactory> factory;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           IID_IWICImagingFactory, &factory));
    return factory;
}

ComPtr<IWICStream> MakeStream(IWICImagingFactory* factory, std::span<unsigned char> bytes)
{
    ComPtr<IWICStream> stream;
    Check(factory->CreateStream(&stream));
    Check(stream->InitializeFromMemory(bytes.data(), static_cast<DWORD>(bytes.size())));
    return stream;
}

/// Returns the only, or first, picture of a file.
ComPtr<IWICBitmapFrameDecode> OpenFrame(IWICImagingFactory* factory, REFGUID format,
                                        ImageBytes file)
{
    const ComPtr<IWICStream> stream =
        MakeStream(factory, {const_cast<unsigned char*>(file.data()), file.size()});
    ComPtr<IWICBitmapDecoder> decoder;
    Check(factory->CreateDecoder(format, nullptr, &decoder));
    Check(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand));
    ComPtr<IWICBitmapFrameDecode> frame;
    Check(decoder->GetFrame(0, &frame));
    return frame;
}

/// Fills an image of 24 or 32 bits from pixels of 32.
void CopyRows(IWICBitmapSource* source, UINT width, UINT height, int depth, ImageBuilder& image)
{
    std::vector<unsigned char> pixels(std::size_t{width} * 4);
    const auto size = static_cast<UINT>(pixels.size());
    const std::size_t step = static_cast<std::size_t>(depth) / 8;
    for (UINT y = 0; y < height; ++y) {
        const WICRect row{0, static_cast<INT>(y), static_cast<INT>(width), 1};
        Check(source->CopyPixels(&row, size, size, pixels.data()));
        unsigned char* to = image.Row(y);
        for (std::size_t x = 0; x < width; ++x, to += step)
            std::memcpy(to, &pixels[4 * x], step);
    }
}

bool ReadFile(REFGUID format, ImageBytes file, int depth, ImageBuilder& image)
try {
    const ComUse com;
    const ComPtr<IWICImagingFactory> factory = MakeFactory();
    const ComPtr<IWICBitmapFrameDecode> frame = OpenFrame(factory.Get(), format, file);
    UINT width = 0;
    UINT height = 0;
    Check(frame->GetSize(&width, &height));
    if (!image.Make(width, height, depth))
        return false;
    // Conversion to 24 bits is not there for all formats everywhere.
    ComPtr<IWICFormatConverter> converter;
    Check(factory->CreateFormatConverter(&converter));
    Check(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA, WICBitmapDitherTypeNone,
                                nullptr, 0, WICBitmapPaletteTypeCustom));
    CopyRows(converter.Get(), width, height, depth, image);
    return true;
} catch (const Failed&) {
    return false;
}

/// Returns the only picture of a new PNG.
ComPtr<IWICBitmapFrameEncode> MakeFrame(IWICBitmapEncoder* encoder)
{
    ComPtr<IWICBitmapFrameEncode> frame;
    ComPtr<IPropertyBag2> options;
    Check(encoder->CreateNewFrame(&frame, &options));
    // Trying all filters on each row takes 50% longer and saves a few percent.
    PROPBAG2 name{};
    name.pstrName = const_cast<wchar_t*>(L"FilterOption");
    VARIANT filter{};
    filter.vt = VT_UI1;
    filter.bVal = WICPngFilterSub;
    Check(options->Write(1, &name, &filter));
    Check(frame->Initialize(options.Get()));
    return frame;
}

/// Puts a PNG at the beginning of the bytes.
void Encode(const CKelvoUiDib& image, std::span<unsigned char> bytes)
{
    const ComPtr<IWICImagingFactory> factory = MakeFactory();
    const ComPtr<IWICStream> stream = MakeStream(factory.Get(), bytes);
    ComPtr<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    const ComPtr<IWICBitmapFrameEncode> frame = MakeFrame(encoder.Get());
    Check(frame->SetSize(static_cast<UINT>(image.Width()), static_cast<UINT>(image.Height())));
    WICPixelFormatGUID format =
        image.GetDepth() == 32 ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format));
    const auto rowSize = static_cast<UINT>(DibRowSize(image.Width(), image.GetDepth()));
    for (int y = 0; y < image.Height(); ++y)
        Check(frame->WritePixels(1, rowSize, rowSize, const_cast<BYTE*>(DibRow(image, y))));
    Check(frame->Commit());
    Check(encoder->Commit());
}

} // namespace

bool ReadPng(ImageBytes file, ImageBuilder& image)
{
    constexpr std::size_t ColorType = 25;
    constexpr unsigned AlphaBit = 4;
    const std::string_view text(reinterpret_cast<const char*>(file.data()), file.size());
    const bool hasAlpha = text.size() > ColorType && (file[ColorType] & AlphaBit) != 0;
    const bool isTransparent = text.find("tRNS") < text.find("IDAT");
    return ReadFile(GUID_ContainerFormatPng, file, hasAlpha || isTransparent ? 32 : 24, image);
}

bool ReadJpeg(ImageBytes file, ImageBuilder& image)
{
    return ReadFile(GUID_ContainerFormatJpeg, file, 24, image);
}

bool WritePng(const CKelvoUiDib& image, const PutImageBytes& put)
try {
    const ComUse com;
    // A stream that grows would be copied with each few bytes more; no PNG is larger than this.
    const std::size_t size = image.GetStorageSize();
    std::string bytes(size + size / 64 + 65536, '\0');
    Encode(image, {reinterpret_cast<unsigned char*>(bytes.data()), bytes.size()});
    // Only zeros follow the end mark and its checksum.
    const std::size_t used = bytes.rfind("IEND") + 8;
    return put({reinterpret_cast<const unsigned char*>(bytes.data()), used});
} catch (const Failed&) {
    return false;
}
