#pragma once

#include "objimport/exchange/exchange.h"

/// Returns why this build writes no STEP files; null when it does.
const char* WhyStepIsMissing();

/// Writes the document's curves, breps and points as a STEP file: a request for any form, whose
/// stream and document are used. Sets what the file holds, what it cannot hold, and, when nothing
/// whole was written, the error. Throws std::bad_alloc when out of memory.
void WriteStep(const ExchangeRequest& request, ExchangeOutcome& outcome);
