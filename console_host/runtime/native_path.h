#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

/// The path under which this platform knows a file that is named in the form of the product's
/// platform. Off Windows '\' counts as '/', and each part that is not found as written is looked
/// for without regard to case: the first such name in byte order is taken. From the first part that
/// is not found at all, the rest stands as it was written.
std::filesystem::path NativePath(std::wstring_view path);

/// A native path as the wide text that the importer knows it by.
std::wstring WidePath(const std::filesystem::path& path);

/// A native path from UTF-8, and as UTF-8, for command lines and messages.
std::filesystem::path PathFromUtf8(std::string_view utf8);
std::string Utf8Path(const std::filesystem::path& path);

/// fopen by a native path. Null, with errno set, when the file cannot be opened; the caller closes
/// it.
std::FILE* OpenNative(const std::filesystem::path& path, const char* mode);

/// The folder in which programs keep the user's settings; empty when the system names none.
std::filesystem::path UserSettingsFolder();

/// The folder of the running program; empty when the system does not tell.
std::filesystem::path ProgramFolder();
