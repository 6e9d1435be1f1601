#pragma once

#include <string_view>

/// A file name that says where the file is: drive, folder, name and extension are all there.
bool IsFullFileName(std::wstring_view name);

/// No part of the name is longer than the product's platform allows.
bool HasShortParts(std::wstring_view name);
