// What the program looks up in the library by its plain name.

#include "objimport/exchange/write_form.h"

#ifdef _WIN32
#define EXCHANGE_EXPORT extern "C" __declspec(dllexport)
#else
#define EXCHANGE_EXPORT extern "C" __attribute__((visibility("default")))
#endif

EXCHANGE_EXPORT const char* KelvoExchangeWhyMissing(ExchangeForm form)
{
    return WhyFormIsMissing(form);
}

EXCHANGE_EXPORT void KelvoExchangeWrite(const ExchangeRequest& request, ExchangeOutcome& outcome)
{
    WriteForm(request, outcome);
}
