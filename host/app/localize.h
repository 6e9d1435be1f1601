#pragma once

/// The text of this id in the user's language, or `text` itself where there is none. The result
/// lives as long as the host; `text` must live as long as the result is used.
const wchar_t* KvLocalizeString(const wchar_t* text, int id);
