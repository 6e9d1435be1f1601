#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

/// Returns the path under which this platform knows a file that is named in the form of the
/// product's platform. Off Windows '\' counts as '/', and each part that is not found as written is
/// looked for ignoring case: the first such name in byte order is taken. From the first part that
/// is not found at all, the rest stays as it was written.
std::filesystem::path NativePath(std::wstring_view path);

/// Returns a native path as the wide text that the importer knows it by.
std::wstring WidePath(const std::filesystem::path& path);

/// Return a native path from UTF-8, and as UTF-8, for command lines and messages.
std::filesystem::path PathFromUtf8(std::string_view utf8);
std::string Utf8Path(const std::filesystem::path& path);

/// Returns what fopen does for a native path: null, with errno set, when the file cannot be opened.
/// The caller closes the stream.
std::FILE* OpenNative(const std::filesystem::path& path, const char* mode);

/// Returns the folder in which programs keep the user's settings; empty when the system names none.
std::filesystem::path UserSettingsFolder();

/// Returns the folder of the running program; empty when the system does not say.
std::filesystem::path ProgramFolder();
