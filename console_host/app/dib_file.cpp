#include "console_host/app/dib_layout.h"
#include "console_host/app/image_header.h"
#include "console_host/app/image_library.h"
#include "console_host/app/image_reader.h"
#include "console_host/app/import_journal.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/native_path.h"

#include "host/app/dib.h"
#include "host/geokit/string.h"
#include "host/runtime/file.h"
#include "host/runtime/split_path.h"

#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

using File = std::unique_ptr<std::FILE, CloseFile>;

/// Reads up to `size` bytes from the file's start; empty on failure.
std::vector<unsigned char> ReadBytes(std::FILE* file, std::size_t size)
{
    std::vector<unsigned char> bytes(size);
    std::rewind(file);
    bytes.resize(std::fread(bytes.data(), 1, size, file));
    return bytes;
}

/// The file's size, or 0 when it is not known or above what the image library can count.
std::size_t SizeOf(std::FILE* file)
{
    if (std::fseek(file, 0, SEEK_END) != 0)
        return 0;
    const long size = std::ftell(file);
    return size > 0 && size <= std::numeric_limits<int>::max() ? static_cast<std::size_t>(size) : 0;
}

bool IsPngName(const wchar_t* path)
{
    constexpr std::wstring_view Wanted = L".png";
    const std::wstring_view extension = SplitPath(path).ext;
    if (extension.size() != Wanted.size())
        return false;
    for (std::size_t i = 0; i < Wanted.size(); ++i) {
        const wchar_t character = extension[i];
        const bool isUpper = character >= L'A' && character <= L'Z';
        if ((isUpper ? character - L'A' + L'a' : character) != Wanted[i])
            return false;
    }
    return true;
}

/// The image's pixels as the image library takes them: red first, top row first, no padding.
std::vector<unsigned char> TopDownPixels(const CKelvoUiDib& image)
{
    const int bytes = image.GetDepth() / 8;
    const std::size_t rowSize = DibRowSize(image.Width(), image.GetDepth());
    std::vector<unsigned char> pixels(static_cast<std::size_t>(image.Width() * bytes) *
                                      static_cast<std::size_t>(image.Height()));
    const unsigned char* row = image.FindDIBBits() + image.GetStorageSize();
    unsigned char* to = pixels.data();
    for (int y = 0; y < image.Height(); ++y) {
        row -= rowSize;
        const unsigned char* from = row;
        for (int x = 0; x < image.Width(); ++x, from += bytes, to += bytes) {
            to[0] = from[2];
            to[1] = from[1];
            to[2] = from[0];
            if (bytes == 4)
                to[3] = from[3];
        }
    }
    return pixels;
}

/// The name was made from what stands in a file, so a link there is not followed.
bool WriteImageFile(const std::filesystem::path& target, ImageBytes bytes)
try {
    ReplaceFile(target, {reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                FileReplacement::Links::Replace);
    return true;
} catch (const std::runtime_error&) {
    return false;
}

/// Says which image was not read for its size. Every other that is not read is none at all.
void NoteWhenTooLarge(const wchar_t* path, ImageBytes file)
{
    ImageHeader header;
    if (!ReadImageHeader(file, header) || IsInProportion(header, file.size()))
        return;
    NoteRefused("image", GK_wString(path).Utf8() + ": " + std::to_string(header.width) + " x " +
                             std::to_string(header.height) + " pixels in a file of " +
                             std::to_string(file.size()) + " bytes are out of proportion");
}

} // namespace

int CKelvoDib::ReadFromFile(const wchar_t* path)
try {
    const File file(_wfopen(path, L"rb"));
    if (file == nullptr || !IsPlainFile(file.get()) ||
        !HasImageSignature(ReadBytes(file.get(), ImageSignatureSize)))
        return 0;
    KelvoNoteFileRead(file.get());
    const std::vector<unsigned char> bytes = ReadBytes(file.get(), SizeOf(file.get()));
    if (ReadImage(bytes, *this))
        return 1;
    NoteWhenTooLarge(path, bytes);
    return 0;
} catch (const std::bad_alloc&) {
    return 0;
}

int CKelvoDib::WriteToFile(const wchar_t* path) const
try {
    if (FindDIBBits() == nullptr || !IsPngName(path))
        return 0;
    const std::vector<unsigned char> pixels = TopDownPixels(*this);
    const LibraryImage image{pixels.data(), Width(), Height(), GetDepth() / 8};
    LibraryMemory memory(std::numeric_limits<std::uint64_t>::max(),
                         LibraryMemory::WhenExhausted::Throw);
    const ImageBytes png = MakePng(image, memory);
    return !png.empty() && WriteImageFile(NativePath(path), png) ? 1 : 0;
} catch (const std::bad_alloc&) {
    return 0;
}
