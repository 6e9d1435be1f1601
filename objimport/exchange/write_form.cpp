#include "objimport/exchange/write_form.h"

#include "objimport/exchange/glb_file.h"
#include "objimport/exchange/picture.h"
#include "objimport/exchange/step_file.h"

#include <exception>
#include <new>

namespace {

void WriteFormOrThrow(const ExchangeRequest& request, ExchangeOutcome& outcome)
{
    switch (request.form) {
    case ExchangeForm::Glb:
        return WriteGlb(request, outcome);
    case ExchangeForm::Step:
        return WriteStep(request, outcome);
    case ExchangeForm::Picture:
        return WritePicture(request, outcome);
    }
}

} // namespace

const char* WhyFormIsMissing(ExchangeForm form)
{
    switch (form) {
    case ExchangeForm::Glb:
        return nullptr;
    case ExchangeForm::Step:
        return WhyStepIsMissing();
    case ExchangeForm::Picture:
        return WhyPictureIsMissing();
    }
    return "there is no such form";
}

void WriteForm(const ExchangeRequest& request, ExchangeOutcome& outcome) noexcept
try {
    WriteFormOrThrow(request, outcome);
} catch (const std::bad_alloc&) {
    outcome.error = "out of memory"; // short enough to need no memory
} catch (const std::exception& failure) {
    outcome.error = failure.what();
}
