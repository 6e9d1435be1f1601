#pragma once

#include "console_host/app/document.h"

class CReadOBJ;

/// Options that depend on a number.
void SetOptions(CReadOBJ& reader, unsigned int choice);

/// Imports the file of a reader and checks that the host's rules were kept, and that the document
/// as JSON reads back.
void ImportAndCheck(const wchar_t* path, unsigned int options);
