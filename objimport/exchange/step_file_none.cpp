// For builds without the library that writes STEP files.

#include "objimport/exchange/step_file.h"

const char* WhyStepIsMissing()
{
    return "this build writes no STEP files, since it was made without Open CASCADE";
}

void WriteStep(const ExchangeRequest&, ExchangeOutcome& outcome)
{
    outcome.error = WhyStepIsMissing();
}
