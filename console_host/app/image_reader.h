#pragma once

#include "console_host/app/image_header.h"

class CKelvoUiDib;

/// Reads the bytes of a PNG, TGA, BMP or JPEG file. False, with the image unchanged, for anything
/// else, for what ReadFromFile of the image class refuses, and when memory runs out.
bool ReadImage(ImageBytes file, CKelvoUiDib& image);
