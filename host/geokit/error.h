#pragma once

/// Reports an inconsistency that was met and survived. `source` names who reports and `line` where
/// (0 when that says nothing); both texts are only read during the call. What becomes of the report
/// is up to the host. One that was met several times in a row may be reported once, with how often.
/// It never fails. User-interface thread only, at any time.
void GK_Error(const char* source, int line, const char* text, int times = 1) noexcept;
