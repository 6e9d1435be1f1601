#include "console_host/app/image_codecs.h"
#include "console_host/app/import_journal.h"
#include "console_host/app/option_words.h"
#include "console_host/runtime/file_replacement.h"
#include "console_host/runtime/files.h"
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

/// Reads up to `size` bytes from the file's start; empty on failure.
std::vector<unsigned char> ReadBytes(std::FILE* file, std::size_t size)
{
    std::vector<unsigned char> bytes(size);
    std::rewind(file);
    bytes.resize(std::fread(bytes.data(), 1, size, file));
    return bytes;
}

/// Returns the file's size, or 0 when it is not known or more than any decoder can count.
std::size_t SizeOf(std::FILE* file)
{
    if (std::fseek(file, 0, SEEK_END) != 0)
        return 0;
    const long size = std::ftell(file);
    return size > 0 && size <= std::numeric_limits<int>::max() ? static_cast<std::size_t>(size) : 0;
}

bool IsPngName(const wchar_t* path)
{
    return SameWord(SplitPath(path).ext, L".png");
}

/// Notes which image was refused for its size. Any other file that is not read is not an image.
void NoteOutOfProportion(const wchar_t* path, const ImageBuilder& image, std::size_t fileSize)
{
    NoteRefused("image", GK_wString(path).Utf8() + ": " + std::to_string(image.Width()) + " x " +
                             std::to_string(image.Height()) + " pixels in a file of " +
                             std::to_string(fileSize) + " bytes are out of proportion");
}

} // namespace

int CKelvoDib::ReadFromFile(const wchar_t* path)
try {
    const KelvoFile file(_wfopen(path, L"rb"));
    if (file == nullptr || !IsPlainFile(file.get()) ||
        !HasImageSignature(ReadBytes(file.get(), ImageSignatureSize)))
        return 0;
    KelvoNoteFileRead(file.get());
    const std::vector<unsigned char> bytes = ReadBytes(file.get(), SizeOf(file.get()));
    ImageBuilder image(bytes.size());
    if (ReadImage(bytes, image)) {
        CKelvoUiDib::operator=(image.TakeImage());
        return 1;
    }
    if (image.IsOutOfProportion())
        NoteOutOfProportion(path, image, bytes.size());
    return 0;
} catch (const std::bad_alloc&) {
    return 0;
}

int CKelvoDib::WriteToFile(const wchar_t* path) const
try {
    if (FindDIBBits() == nullptr || !IsPngName(path))
        return 0;
    // The name was made from what stands in a file, so a link there is not followed.
    FileReplacement file(NativePath(path), FileReplacement::Links::Replace);
    const auto write = [&](ImageBytes bytes) {
        return std::fwrite(bytes.data(), 1, bytes.size(), file.Stream()) == bytes.size();
    };
    if (!WritePng(*this, write))
        return 0;
    file.Commit();
    return 1;
} catch (const std::runtime_error&) {
    return 0;
} catch (const std::bad_alloc&) {
    return 0;
}

std::vector<unsigned char> CKelvoDib::PngBytes() const
try {
    std::vector<unsigned char> file;
    const auto append = [&](ImageBytes bytes) {
        try {
            file.insert(file.end(), bytes.begin(), bytes.end());
            return true;
        } catch (const std::bad_alloc&) {
            return false;
        }
    };
    if (FindDIBBits() == nullptr || !WritePng(*this, append))
        file.clear();
    return file;
} catch (const std::bad_alloc&) {
    return {};
}
