#include "objimport/exchange/glb_file.h"

void WriteGlb(const ExchangeRequest&, ExchangeOutcome& outcome)
{
    outcome.error = "not yet";
}
