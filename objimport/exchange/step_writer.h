#pragma once

#include <cstdio>
#include <string>

class TDocStd_Document;
namespace opencascade {
template <class T>
class handle;
} // namespace opencascade

/// Writes an assembly of the geometry library as a STEP file (AP214) to a stream, which remains the
/// caller's. Returns why that was not possible; empty when it was. The time in it is that of the
/// environment variable SOURCE_DATE_EPOCH, or now.
std::string WriteAssembly(const opencascade::handle<TDocStd_Document>& assembly, std::FILE* stream);
