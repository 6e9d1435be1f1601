#pragma once

#include "objimport/check/finding.h"
#include "objreader/obj_reading.h"

/// What reading has told about the statement that it ends with.
struct ToldAtEnd
{
    const char* form = nullptr; ///< of a curve or surface that is not supported
    bool wrongKnotCount = false;
};

/// Returns why reading ends with the current line, whose handler has failed.
Phrase WhyReadingEnds(const ObjReading& reading, const ToldAtEnd& told);

/// Returns the name that files have for a form.
const char* NameOfForm(CurveForm form);
