#pragma once

/// Returns the text of this id in the user's language, or `text` itself where there is none. The
/// host owns the result, which lives as long as the host; `text` must live as long as the result is
/// used. From the start of the host, also while a module's globals are constructed; user-interface
/// thread only. Throws std::bad_alloc when out of memory.
const wchar_t* KvLocalizeString(const wchar_t* text, int id);
