#include "console_host/app/image_codecs.h"
#include "console_host/runtime/allocation_failures.h"

#include <cstring>
#include <initguid.h>
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

/// Returns the only, or first, picture of a file.
ComPtr<IWICBitmapFrameDecode> OpenFrame(IWICImagingFactory* factory, REFGUID format,
                                        ImageBytes file)
{
    ComPtr<IWICStream> stream;
    Check(factory->CreateStream(&stream));
    Check(stream->InitializeFromMemory(const_cast<BYTE*>(file.data()),
                                       static_cast<DWORD>(file.size())));
    ComPtr<IWICBitmapDecoder> decoder;
    Check(factory->CreateDecoder(format, nullptr, &decoder));
    Check(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand));
    ComPtr<IWICBitmapFrameDecode> frame;
    Check(decoder->GetFrame(0, &frame));
    return frame;
}

bool HasAlpha(IWICImagingFactory* factory, IWICBitmapFrameDecode* frame)
{
    BOOL hasAlpha = FALSE;
    ComPtr<IWICPalette> palette;
    Check(factory->CreatePalette(&palette));
    if (SUCCEEDED(frame->CopyPalette(palette.Get()))) {
        Check(palette->HasAlpha(&hasAlpha));
        return hasAlpha != FALSE;
    }
    WICPixelFormatGUID format{};
    Check(frame->GetPixelFormat(&format));
    ComPtr<IWICComponentInfo> component;
    Check(factory->CreateComponentInfo(format, &component));
    ComPtr<IWICPixelFormatInfo2> info;
    Check(component->QueryInterface(IID_IWICPixelFormatInfo2, &info));
    Check(info->SupportsTransparency(&hasAlpha));
    return hasAlpha != FALSE;
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

bool ReadFile(REFGUID format, ImageBytes file, ImageBuilder& image)
try {
    const ComUse com;
    const ComPtr<IWICImagingFactory> factory = MakeFactory();
    const ComPtr<IWICBitmapFrameDecode> frame = OpenFrame(factory.Get(), format, file);
    UINT width = 0;
    UINT height = 0;
    Check(frame->GetSize(&width, &height));
    const int depth = HasAlpha(factory.Get(), frame.Get()) ? 32 : 24;
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

void Encode(const CKelvoUiDib& image, IStream* stream)
{
    const ComPtr<IWICImagingFactory> factory = MakeFactory();
    ComPtr<IWICBitmapEncoder> encoder;
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    Check(encoder->Initialize(stream, WICBitmapEncoderNoCache));
    ComPtr<IWICBitmapFrameEncode> frame;
    Check(encoder->CreateNewFrame(&frame, nullptr));
    Check(frame->Initialize(nullptr));
    Check(frame->SetSize(static_cast<UINT>(image.Width()), static_cast<UINT>(image.Height())));
    WICPixelFormatGUID format =
        image.GetDepth() == 32 ? GUID_WICPixelFormat32bppBGRA : GUID_WICPixelFormat24bppBGR;
    Check(frame->SetPixelFormat(&format));
    const auto rowSize = static_cast<UINT>(DibRowSize(image.Width(), image.GetDepth()));
    const unsigned char* row = image.FindDIBBits() + image.GetStorageSize();
    for (int y = 0; y < image.Height(); ++y) {
        row -= rowSize;
        Check(frame->WritePixels(1, rowSize, rowSize, const_cast<BYTE*>(row)));
    }
    Check(frame->Commit());
    Check(encoder->Commit());
}

/// Copies what a stream in memory holds.
bool WriteContents(IStream* from, std::FILE* to)
{
    STATSTG state{};
    Check(from->Stat(&state, STATFLAG_NONAME));
    const std::size_t size = state.cbSize.QuadPart;
    HGLOBAL memory = nullptr;
    Check(GetHGlobalFromStream(from, &memory));
    const void* const bytes = GlobalLock(memory);
    const bool isWritten = bytes != nullptr && std::fwrite(bytes, 1, size, to) == size;
    GlobalUnlock(memory);
    return isWritten;
}

} // namespace

bool ReadPng(ImageBytes file, ImageBuilder& image)
{
    return ReadFile(GUID_ContainerFormatPng, file, image);
}

bool ReadJpeg(ImageBytes file, ImageBuilder& image)
{
    return ReadFile(GUID_ContainerFormatJpeg, file, image);
}

bool WritePng(const CKelvoUiDib& image, std::FILE* stream)
try {
    const ComUse com;
    ComPtr<IStream> encoded;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, &encoded));
    Encode(image, encoded.Get());
    return WriteContents(encoded.Get(), stream);
} catch (const Failed&) {
    return false;
}
