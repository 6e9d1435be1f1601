#pragma once

#include "console_host/app/document.h"

#include <filesystem>
#include <string>

/// Throws ProgramError when `what` ("the JSON"), written to this path, would replace a file that
/// the import has read or a texture of the document.
void CheckIsNotUsed(const std::filesystem::path& path, const ConsoleDoc& doc,
                    const std::string& what);
