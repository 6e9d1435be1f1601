#pragma once

#include "objimport/exchange/exchange.h"

/// Returns why this build cannot write a form; null when it can.
const char* WhyFormIsMissing(ExchangeForm form);

/// Writes the document in the form that is asked for and sets the outcome. Out of memory is an
/// error like any other.
void WriteForm(const ExchangeRequest& request, ExchangeOutcome& outcome) noexcept;
