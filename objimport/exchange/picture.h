#pragma once

#include "objimport/exchange/exchange.h"

/// Returns why this build draws no pictures; null when it does.
const char* WhyPictureIsMissing();

/// Draws the document, as the request's view and size say, and writes the picture as a PNG. Sets
/// what is to be seen, what is not drawn, and, when nothing whole was written, the error. Throws
/// std::bad_alloc when out of memory.
void WritePicture(const ExchangeRequest& request, ExchangeOutcome& outcome);
