#pragma once

#include "console_host/app/document.h"
#include "objimport/json_stream.h"

/// Writes the members that hold an object's geometry.
void WriteGeometry(JsonStream& json, const AnyGeometry& geometry);
