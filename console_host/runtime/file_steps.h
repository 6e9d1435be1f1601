#pragma once

#include <cstdio>
#include <filesystem>

/// The steps of replacing a file that each platform takes in its own way. Each throws
/// std::system_error when the system refuses.

/// Creates a file that must not exist yet, with the permissions that the one at `target` has or
/// would be created with, and returns its stream, which the caller closes.
std::FILE* CreateFresh(const std::filesystem::path& fresh, const std::filesystem::path& target);

/// Opens what is no plain file, as it is, and returns its stream, which the caller closes.
std::FILE* OpenSpecial(const std::filesystem::path& path);

/// Writes out what the stream holds, and has the system bring it to the disk where it can.
void MakeDurable(std::FILE* stream);

/// Puts `fresh` in the place of `target`, in one step.
void MoveInto(const std::filesystem::path& fresh, const std::filesystem::path& target);

/// Returns whether the path names an open stream of this program, like /dev/stdout.
bool NamesOpenStream(const std::filesystem::path& path);
