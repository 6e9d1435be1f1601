// For builds without the library that draws pictures.

#include "objimport/exchange/picture.h"

const char* WhyPictureIsMissing()
{
    return "this build draws no pictures, since it was made without OSMesa";
}

void WritePicture(const ExchangeRequest&, ExchangeOutcome& outcome)
{
    outcome.error = WhyPictureIsMissing();
}
