#pragma once

#include "objimport/exchange/exchange.h"

/// Writes the document as a glTF 2.0 file in its binary form: a node for each object, in order.
/// Sets what the file holds, what it cannot hold, and, when nothing whole was written, the error.
/// Throws std::bad_alloc when out of memory.
void WriteGlb(const ExchangeRequest& request, ExchangeOutcome& outcome);
