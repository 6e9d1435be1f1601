#pragma once

#include "console_host/app/document_object.h"
#include "objimport/json_stream.h"

/// The word for a kind of geometry: "mesh", "curve", "point", "point_cloud", "brep".
const char* TypeOf(const AnyGeometry& geometry);

/// Writes the members that hold an object's geometry.
void WriteGeometry(JsonStream& json, const AnyGeometry& geometry);
