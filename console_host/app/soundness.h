#pragma once

#include "console_host/app/document_object.h"

#include <string>

/// Why geometry cannot stand in a document ("the curve has no knots"); empty when it can.
std::string WhyUnsound(const AnyGeometry& geometry);

/// Puts (0, 0, 1) and (0, 0) in place of normals and texture coordinates that are not finite, which
/// do not cost a mesh its place.
void ReplaceUnsoundDirections(GK_Mesh& mesh);
