#pragma once

/// When the module was built, as in "Jan  3 2013 03:34:43". Its source is written by the build
/// whenever any part of the module has been compiled again.
extern const wchar_t* const BuildMoment;
