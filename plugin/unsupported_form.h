#pragma once

#include "objreader/freeform.h"

/// Tells the user, in a message box, that the file has a curve or a surface of a form that is not
/// supported. Nothing is shown for the other forms.
void ShowUnsupportedCurve(CurveForm form);
void ShowUnsupportedSurface(CurveForm form);
