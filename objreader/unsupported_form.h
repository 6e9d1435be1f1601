#pragma once

/// Tells the user, in a message box, that the file has a curve or a surface of a form that is not
/// supported. False, without a box, for the forms of CReadOBJ::CurveForm that are none of these.
bool ShowUnsupportedCurve(int form);
bool ShowUnsupportedSurface(int form);
