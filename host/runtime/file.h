#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>

/// Closes the stream that it is given.
struct KelvoCloseFile
{
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

/// A stream that is closed with its owner.
using KelvoFile = std::unique_ptr<std::FILE, KelvoCloseFile>;

/// Returns a stream on the file of a wide path, in any Unicode text; the caller closes it. Off
/// Windows '\' counts as '/', and a name that is not found as written is looked for without regard
/// to case. A folder is never opened. Returns null when the file cannot be opened, or when out of
/// memory. The only mode offered everywhere is "rb". Any thread.
#ifdef _WIN32
#include <cwchar>
#else
// NOLINTNEXTLINE(*-identifier*): the name that it has on Windows
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
#endif

/// Tells the host that what the stream shows is part of what is imported (a library, an image), so
/// that the host replaces this file by nothing that it writes. The stream stays the caller's.
/// User-interface thread only. Throws std::bad_alloc when out of memory.
void KelvoNoteFileRead(std::FILE* stream);

/// Returns whether the stream is of a plain file, at whose start it stands: a device or a pipe may
/// never end, nor may a file of the system's that has bytes but no size. The stream stays the
/// caller's. Any thread.
bool IsPlainFile(std::FILE* stream);

/// Return what names are compared by: the same path for all spellings of one file's name, whether
/// the file is there or not. They take a name as _wfopen does, or as fopen does. Any thread. They
/// throw std::bad_alloc when out of memory.
std::filesystem::path FileKey(const wchar_t* name);
std::filesystem::path FileKey(const char* name);
