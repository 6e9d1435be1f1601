#pragma once

#include <cstdio>
#include <filesystem>

/// Opens a file by its wide path, in any Unicode text. Off Windows '\' counts as '/', and a name
/// that is not found as written is looked for without regard to case. A folder is never opened.
/// The only mode offered everywhere is "rb". Null when the file cannot be opened; the caller closes
/// what it gets.
#ifdef _WIN32
#include <cwchar>
#else
// NOLINTNEXTLINE(*-identifier*): the name that it has on Windows
std::FILE* _wfopen(const wchar_t* path, const wchar_t* mode);
#endif

/// Tells the host that what the stream shows is part of what is imported (a library, an image), so
/// that the host replaces this file by nothing that it writes. The stream stays the caller's.
/// Throws std::bad_alloc when there is no memory.
void KelvoNoteFileRead(std::FILE* stream);

/// Whether the stream is of a plain file, at whose start it stands: a device or a pipe may never
/// end, nor may a file of the system's that has bytes but no size.
bool IsPlainFile(std::FILE* stream);

/// What names are compared by: the same path for all spellings of one file's name, whether the file
/// is there or not. Takes a name as _wfopen does, or as fopen does.
std::filesystem::path FileKey(const wchar_t* name);
std::filesystem::path FileKey(const char* name);
